#pragma once

#include <QPoint>

class QLayer;
struct DrawTarget;

// What must hold before a drawing tool starts a gesture, in this order: an element to
// draw on (a drawing layer made for the purpose when the user chose so, or the top
// element), cells to draw on when the zone is the selected cells, the question about
// drawing on an element that came from a file rather than on a drawing layer, and a
// cell under the press. Each refusal is told to the user, except a press between
// cells.
class DrawingPress
{
public:
    // The answers of the question about drawing on an element, kept in the settings.
    enum DrawElementSetting
    {
        AlwaysCreateLayer = 2,
        NeverCreateLayer = 3,
        Ask = 4
    };

    // True when the gesture may start; target then holds the selected elements, in
    // ascending order, and the cell under pixel. A press that only made a drawing
    // layer after the question gives false: the stroke starts at the next press.
    static bool prepare(QLayer& canvas, bool rubber, QPoint pixel, DrawTarget* target);

private:
    static bool ensureElement(QLayer& canvas, bool rubber);
    static bool ensureDrawingLayer(QLayer& canvas);
    static bool insertDrawingLayer(QLayer& canvas, int index);
    static int drawElementSetting();
    static void storeDrawElementSetting(int value);
};
