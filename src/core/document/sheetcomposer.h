#pragma once

#include <QImage>

class QRect;

class Character;

// Flattens a Character's stack of elements into one sheet, and renders the canvas's
// view of it (zoom, grid and selection marks). Neither changes the model.
class SheetComposer
{
public:
    // The exact sheet, Format_ARGB32, starting from the raw transparent pixel 19:
    // what PNG exports, the mass save and restoration use.
    static QImage compose(const Character& character);

    // The canvas's view: the sheet over the character's fill pixel, zoomed by nearest
    // pixel, with the dashed grid and the marks of the selected cells.
    static QImage render(const Character& character);

    // Blends the visible elements of character into image, a sheet-sized image.
    static void drawElements(const Character& character, QImage& image);

    // Nearest-pixel zoom, as QImage::scaled with Qt::FastTransformation picks pixels.
    static QImage zoomed(const QImage& image, double zoom);

private:
    static void drawCell(const Character& character, QImage& image, int e, int c);
    static void drawGrid(const Character& character, QImage& image);
    static void drawSelectionMarks(const Character& character, QImage& image);
    static void drawBand(QImage& image, const QRect& cell);
};
