#pragma once

#include <QDialog>

class QLabel;
class QLineEdit;
class QPushButton;

// The small dialog that makes a category, a folder, in the folder a library browser
// shows. It checks the name as it is typed and makes the folder on "Valider".
class QNewCategoryDialog : public QDialog
{
    Q_OBJECT

public:
    // folder is the browser's folder, base included.
    QNewCategoryDialog(const QString& folder, QWidget* parent = nullptr);

    QLineEdit* nameEdit() const { return m_name; }
    QLabel* messageLabel() const { return m_message; }
    QPushButton* validButton() const { return m_valid; }

signals:
    // After "Valider", made or not: the browser lists its folder again.
    void folderMade();

public slots:
    void dirNameChanged(const QString& str);
    void validMkDir();

private:
    QString m_folder;
    QLineEdit* m_name;
    QLabel* m_message;
    QPushButton* m_valid;
};
