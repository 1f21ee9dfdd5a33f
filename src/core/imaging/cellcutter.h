#pragma once

#include <QImage>
#include <QList>
#include <QPoint>
#include <QSize>

// Cuts a sheet image into the cells of a character: by the sheet's grid when the
// image has the sheet's size, otherwise by the image's own grid with its cells centred
// on the sheet's cells (the shift cut toward zero). Each cell is trimmed, and its
// position is where the trimmed box goes relative to the cell's corner.
class CellCutter
{
public:
    struct Cells
    {
        QList<QImage> images;
        QList<QPoint> positions;
    };

    // image must be Format_ARGB32. An unknown kind gives null cells at (0, 0).
    static Cells cut(const QImage& image, QSize sheetSize, int kind);

    // The part of image inside rect, or a null image when rect is empty.
    static QImage copyRect(const QImage& image, const QRect& rect);
};
