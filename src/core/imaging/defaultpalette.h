#pragma once

#include <QColor>
#include <QList>

// The palette that the colour box starts with and restores: greys in the first two
// columns, then one column per hue, in index order (index = column * rows + row).
class DefaultPalette
{
public:
    static QList<QColor> colours(int columns, int rows);
};
