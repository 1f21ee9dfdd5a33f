#include "imaging/defaultpalette.h"

#include "imaging/classichsv.h"

#include <cmath>

namespace {

QColor grey(int level, int alpha = 255)
{
    return QColor(level, level, level, alpha);
}

// Black, white, greys rising between them, then translucent black and white.
QColor firstColumn(int row, int rows)
{
    if (row == 0)
        return grey(0);
    if (row == 1)
        return grey(255);
    if (row == rows - 2)
        return grey(0, 128);
    if (row == rows - 1)
        return grey(255, 128);
    return grey(int(255.0 * (row - 1) / (rows - 3)));
}

// Greys between the first column's, then two translucent ones.
QColor secondColumn(int row, int rows)
{
    if (row == rows - 2)
        return grey(64, 128);
    if (row == rows - 1)
        return grey(128, 128);
    return grey(int(255.0 * (row + 1) / (rows - 1)));
}

// One hue: full, then by threes pale, dark and both, then translucent full and dark.
QColor hueColumn(int hue, int row, int rows)
{
    if (row == 0)
        return ClassicHsv::fromHsv(hue, 255, 255, 255);
    if (row == rows - 2)
        return ClassicHsv::fromHsv(hue, 255, 255, 128);
    if (row == rows - 1)
        return ClassicHsv::fromHsv(hue, 255, 128, 128);
    const int k = row - 1;
    const int q = k / 3;
    const int r = k % 3;
    const int m = int((255.0 * q + 255) / (std::ceil((rows - 3) / 3.0) + 1));
    return ClassicHsv::fromHsv(hue, r == 1 ? 255 : m, r == 0 ? 255 : m, 255);
}

} // namespace

QList<QColor> DefaultPalette::colours(int columns, int rows)
{
    QList<QColor> colours;
    colours.reserve(columns * rows);
    for (int i = 0; i < columns; ++i) {
        for (int j = 0; j < rows; ++j) {
            if (i == 0)
                colours.append(firstColumn(j, rows));
            else if (i == 1)
                colours.append(secondColumn(j, rows));
            else
                colours.append(
                    ClassicHsv::toRgb(hueColumn(int((i * 360.0 - 720) / (columns - 1)), j, rows)));
        }
    }
    return colours;
}
