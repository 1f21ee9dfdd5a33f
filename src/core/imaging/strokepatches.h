#pragma once

#include <QColor>
#include <QImage>
#include <QPoint>

class QPainterPath;
class QRect;

// A stroke is painted on a small patch of its own, which is then stamped into every
// picture it is aimed at: the patch and the place of its top-left corner in the
// coordinates of the cell.
struct Patch
{
    QImage image;
    QPoint corner;
};

// Pen shapes.
constexpr int SquareDab = 0;
constexpr int RoundDab = 1;

// One dab of the pen centred on point: the square of side width with its corner at
// point - width / 2 (truncated), or the circle inscribed in it for a round pen wider
// than one pixel.
void addDab(QPainterPath& stroke, QPoint point, int width, int shape);
void addDabRect(QPainterPath& stroke, const QRect& rect);

// The patch of a whole pen stroke, the union of its dabs filled with colour. A path
// with no dab gives a null patch.
Patch strokePatch(const QPainterPath& stroke, const QColor& colour);

// The patch of a straight line of the given width with square ends, from and to in
// cell coordinates. The patch is large enough for the ends whatever the direction.
Patch linePatch(QPoint from, QPoint to, int width, const QColor& colour);
