#pragma once

#include <QWidget>

class QKeyColourPanel;
class QLabel;
class QLibraryBrowser;
class QLineEdit;
class QNewCategoryDialog;
class QPushButton;

// The window that brings chosen images into the library one after another: the user
// picks the ground colour (and a half-seen colour) on each image, walks into XP or VX
// and a category, names the element, and the image is written there as a PNG with
// those colours made transparent. The category stays for the next image, so that a
// series goes into one folder.
class QAddLibraryCharacter : public QWidget
{
    Q_OBJECT

public:
    QAddLibraryCharacter(const QStringList& files, QWidget* parent = nullptr);

    // False when none of the files could be read: the window has nothing to show.
    bool hasImage() const;

    QKeyColourPanel* panel() const { return m_panel; }
    QLibraryBrowser* browser() const { return m_browser; }
    QLineEdit* nameEdit() const { return m_name; }
    QLabel* messageLabel() const { return m_message; }
    QPushButton* validButton() const { return m_valid; }
    QPushButton* categoryButton() const { return m_category; }

public slots:
    void validModelIndex(const QModelIndex& modelIndex);
    void validModelIndex();
    void backElement();
    QNewCategoryDialog* makeADir();
    void changeValid(const QString& str);
    void updateColor(const QColor& rgb, int type);
    void updateZoom(int index);
    void updateInfo();

private:
    void showElementName(const QModelIndex& modelIndex);
    void folderChanged();
    void showImage();

    QKeyColourPanel* m_panel;
    QLibraryBrowser* m_browser;
    QLineEdit* m_name;
    QLabel* m_message;
    QPushButton* m_category;
    QPushButton* m_valid;
};
