#pragma once

#include <QPointer>
#include <QStringList>

class MainWindow;
class QAddCharacterElementBox;
class QWidget;

// The main window's commands on library elements: the box that adds them, one at a
// time, the restoration of the selected elements from their files, and the windows
// that add elements to the library.
class LibraryCommands
{
public:
    explicit LibraryCommands(MainWindow& window);
    ~LibraryCommands();

    // Opens the box on the active document, or raises the one already open. Without a
    // document nothing happens.
    void openAddBox();
    QAddCharacterElementBox* addBox() const;

    // Restores the active document's selected elements, asking about each element of
    // the other engine, and lists the files that could not be read.
    void restoreElements();

    // Asks what to add to the library, then opens the window that adds it: images
    // with key colours, or a group element of either kind.
    void addElementLibrary();
    // The images to bring into the library, asked in the folder of the last ones.
    static QStringList chooseElementImages(QWidget* parent, const QString& title);

private:
    MainWindow& m_window;
    QPointer<QAddCharacterElementBox> m_addBox;
};
