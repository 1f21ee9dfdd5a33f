#pragma once

#include <QDialog>
#include <QSize>
#include <QString>

class QLabel;
class QLineEdit;
class QPushButton;
class QScrollLayer;
class QSpinBox;

// Asks for the name and sheet size of a new character, or edits those of an open one.
// The size typed is that of the whole sheet; the dialog shows what it gives per cell.
class QNewCharacter : public QDialog
{
    Q_OBJECT

public:
    // In edit mode, scrollLayer is the edited document and width and height its sheet
    // size; in creation mode they are null and 0, and an empty name gets a fresh one.
    QNewCharacter(int kind, const QString& name, bool editMode, QScrollLayer* scrollLayer,
                  int width = 0, int height = 0, QWidget* parent = nullptr);

    // How many characters this run of the program has created through the dialog.
    static int createdCount() { return s_createdCount; }

    int kind() const { return m_kind; }
    bool isEditMode() const { return m_editMode; }

signals:
    void validNewChar(const QString& name, int width, int height, int kind);

public slots:
    void create();
    void changeValue(int value);
    void activeButton();

private:
    void buildForm();
    void setUpSizes(int width, int height);
    int columnCount() const;
    int roundedWidth() const;
    int roundedHeight() const;
    void editDocument(const QString& name, QSize size);

    static int s_createdCount;

    QSpinBox* m_heightBox = nullptr;
    QSpinBox* m_widthBox = nullptr;
    QLineEdit* m_nameEdit = nullptr;
    QLabel* m_cellWidthLabel = nullptr;
    QLabel* m_cellHeightLabel = nullptr;
    QLabel* m_messageLabel = nullptr;
    int m_kind = 0;
    QScrollLayer* m_scrollLayer = nullptr;
    QPushButton* m_validButton = nullptr;
    bool m_editMode = false;
};
