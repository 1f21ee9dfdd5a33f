#pragma once

#include <QPointer>

class MainWindow;
class QAddCharacterElementBox;

// The main window's commands on library elements: the box that adds them, one at a
// time, and the restoration of the selected elements from their files.
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

private:
    MainWindow& m_window;
    QPointer<QAddCharacterElementBox> m_addBox;
};
