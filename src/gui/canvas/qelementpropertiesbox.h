#pragma once

#include <QDialog>

class QCheckBox;
class QLineEdit;
class QPushButton;

// The box that renames an element and hides or shows it. It only holds the fields: the
// element list connects them and applies what is validated.
class QElementPropertiesBox : public QDialog
{
    Q_OBJECT

public:
    QElementPropertiesBox(const QString& name, bool hidden, QWidget* parent = nullptr);

    QLineEdit* nameEdit() const { return m_nameEdit; }
    QCheckBox* hideBox() const { return m_hideBox; }
    QPushButton* validButton() const { return m_validButton; }
    QPushButton* cancelButton() const { return m_cancelButton; }

private:
    QLineEdit* m_nameEdit;
    QCheckBox* m_hideBox;
    QPushButton* m_validButton;
    QPushButton* m_cancelButton;
};
