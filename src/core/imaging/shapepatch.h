#pragma once

#include "imaging/gradientrecord.h"

#include <QColor>
#include <QImage>

#include <array>

class QRect;

// How a rectangle or a circle is painted: the paint and draw modes, the two colours and
// the gradient, as the tools held them at the press.
struct ShapePaint
{
    enum PaintMode
    {
        PlainColour = 0,
        Gradient = 1
    };
    enum DrawMode
    {
        Outline = 0,
        Filled = 1,
        FilledWithOutline = 2
    };

    int paintMode = PlainColour;
    int drawMode = Filled;
    // The primary colour draws the outline and a plain fill in mode 1; the secondary
    // fills the inside in mode 2.
    std::array<QColor, 2> colors = {QColor(Qt::black), QColor(Qt::white)};
    GradientRecord gradient;
};

enum class ShapeKind
{
    Ellipse,
    Rectangle
};

// The patch of a shape whose bounds, in cell coordinates, are rect (both corners
// inside). The outline is one pixel wide along the patch's edges; in mode 2 it goes
// over the fill. A radial gradient is drawn on a square and stretched to the shape,
// so that it follows the shape's proportions; the others are fitted to the patch.
QImage shapePatch(const QRect& rect, ShapeKind kind, const ShapePaint& paint);
