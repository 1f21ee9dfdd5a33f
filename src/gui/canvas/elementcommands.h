#pragma once

#include <QByteArray>
#include <QString>

class ClipBoard;
class QLayer;
class QLayerList;
class QWidget;

// The changes to a document's stack of elements, as the element list's menu and the
// window's "Edition" menu ask for them: the checks and questions, the model's
// operation, the history step with its label, and the refresh of the canvas and the
// list. Every command takes the canvas it works on and does nothing without one.
class ElementCommands
{
public:
    ElementCommands(ClipBoard& clipBoard, QWidget* dialogParent);

    void setList(QLayerList* list) { m_list = list; }
    ClipBoard& clipBoard() { return m_clipBoard; }

    // The list's commands, on the selected elements.
    void cutElements(QLayer* layer);
    void copyElements(QLayer* layer);
    void paste(QLayer* layer);
    void duplicate(QLayer* layer);
    void remove(QLayer* layer);
    void toggleVisibility(QLayer* layer);
    void setProperties(QLayer* layer, const QString& name, bool hidden);
    void mergeWithLower(QLayer* layer);
    void mergeSelection(QLayer* layer);
    void addDrawingLayer(QLayer* layer);
    // Moves the one selected element to the place between rows that gap designates
    // (gap g lies under element g); its own place and the one above it change nothing.
    void moveToGap(QLayer* layer, int gap);

    // The window's cut and copy: one cell of one element when exactly one element and
    // one cell are selected, otherwise the selected elements.
    void cut(QLayer* layer);
    void copy(QLayer* layer);

    // How every change to the elements ends, here, in the retouches and in the
    // library's dialogs: the history step under its label, the canvas redrawn, the
    // list's thumbnails made again.
    static void finishChange(QLayer* layer, QLayerList* list, const QByteArray& label);
    void finish(QLayer* layer, const QByteArray& label);

private:
    bool refuseIfFull(int adding, int count, bool warning);
    void pasteElements(QLayer* layer);
    void pasteCell(QLayer* layer);

    ClipBoard& m_clipBoard;
    QWidget* m_parent;
    QLayerList* m_list = nullptr;
};
