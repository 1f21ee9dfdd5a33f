#pragma once

#include <QImage>

#include <array>

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

    // One step of the walk for the preview: the cell of column walkColumn(kind, step)
    // in each of the four rows, exactly as compose() has it, raw pixel 19 included.
    static std::array<QImage, 4> composeRows(const Character& character, int step);
    // The column a walk shows at steps 0 to 3: an XP sheet runs through its four
    // frames in order, a VX one goes middle, left, middle, right.
    static int walkColumn(int kind, int step);

    // The canvas's view: the sheet over the character's fill pixel, zoomed by nearest
    // pixel, with the dashed grid and the marks of the selected cells.
    static QImage render(const Character& character);

    // Blends the visible elements of character into image, a sheet-sized image.
    static void drawElements(const Character& character, QImage& image);

    // Nearest-pixel zoom, as QImage::scaled with Qt::FastTransformation picks pixels.
    static QImage zoomed(const QImage& image, double zoom);

private:
    // Only the cells of one column when column is not -1.
    static void drawElements(const Character& character, QImage& image, int column);
    static void drawCell(const Character& character, QImage& image, int e, int c);
    static void drawGrid(const Character& character, QImage& image);
    static void drawSelectionMarks(const Character& character, QImage& image);
    static void drawBand(QImage& image, const QRect& cell);
};
