#include "imaging/shapepatch.h"

#include "imaging/blend.h"
#include "imaging/exactpaint.h"
#include "imaging/gradientbrushes.h"

#include <QPainter>
#include <QPainterPath>

namespace {

QPainterPath ellipseIn(QSize size)
{
    QPainterPath path;
    path.addEllipse(QRectF(0, 0, size.width(), size.height()));
    return path;
}

// The outline's box, one pixel in from the patch's far edges and never below one
// pixel: the one-pixel pen then covers the patch's edge pixels.
QRect outlineBox(QSize size)
{
    return QRect(QPoint(0, 0),
                 QPoint(qMax(size.width() - 1, 1) - 1, qMax(size.height() - 1, 1) - 1));
}

void drawOutline(QImage& patch, ShapeKind kind, const QColor& colour)
{
    const QRect box = outlineBox(patch.size());
    const QImage outline = coverageLayer(patch.size(), colour, [&](QPainter& painter) {
        painter.setPen(QPen(QBrush(Qt::white), 1, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
        if (kind == ShapeKind::Rectangle)
            painter.drawRects(&box, 1);
        else
            painter.drawEllipse(box);
    });
    blendOver(patch, 0, 0, outline, 0, 0, patch.width(), patch.height());
}

// Mode 2 leaves the outer ring of a rectangle to the outline; an ellipse and mode 1
// fill the whole patch.
QRect fillArea(QSize size, ShapeKind kind, int drawMode)
{
    if (kind == ShapeKind::Rectangle && drawMode == ShapePaint::FilledWithOutline)
        return QRect(1, 1, size.width() - 2, size.height() - 2);
    return QRect(QPoint(0, 0), size);
}

QImage plainFill(QSize size, ShapeKind kind, const ShapePaint& paint)
{
    const QColor& colour = paint.colors[paint.drawMode == ShapePaint::FilledWithOutline ? 1 : 0];
    const QRect area = fillArea(size, kind, paint.drawMode);
    return coverageLayer(size, colour, [&](QPainter& painter) {
        // The painter would fill a rectangle of negative width the other way round.
        if (kind == ShapeKind::Rectangle && !area.isEmpty())
            painter.fillRect(area, Qt::white);
        else if (kind == ShapeKind::Ellipse)
            painter.fillPath(ellipseIn(size), QBrush(Qt::white));
    });
}

// A radial gradient drawn round on a square of the larger side, then stretched to the
// target, so that it follows the target's proportions.
void radialFill(QImage& patch, ShapeKind kind, const ShapePaint& paint)
{
    const QSize size = patch.size();
    const int side = qMax(size.width(), size.height());
    QImage square(side, side, QImage::Format_ARGB32);
    square.fill(uint(19));
    const QBrush brush(makeRadialBrush(paint.gradient, QSize(side, side)));
    QPainter squarePainter(&square);
    if (kind == ShapeKind::Rectangle)
        squarePainter.fillRect(square.rect(), brush);
    else
        squarePainter.fillPath(ellipseIn(square.size()), brush);
    squarePainter.end();
    const bool inset = paint.drawMode == ShapePaint::FilledWithOutline;
    const QSize target = inset ? size - QSize(2, 2) : size;
    if (target.isEmpty())
        return;
    const QImage stretched = square.scaled(target, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    QPainter painter(&patch);
    painter.drawImage(inset ? QPoint(1, 1) : QPoint(0, 0), stretched);
}

void gradientFill(QImage& patch, ShapeKind kind, const ShapePaint& paint)
{
    // A radial gradient of radius 0 shows nothing, but the toolkit's painter would
    // clear the pixels under it.
    if (paint.gradient.paintsNothing())
        return;
    if (paint.gradient.type == GradientRecord::Radial) {
        radialFill(patch, kind, paint);
        return;
    }
    const QSize size = patch.size();
    const QBrush brush = makeGradientBrush(paint.gradient, size);
    const QRect area = fillArea(size, kind, paint.drawMode);
    QPainter painter(&patch);
    if (kind == ShapeKind::Rectangle && !area.isEmpty())
        painter.fillRect(area, brush);
    else if (kind == ShapeKind::Ellipse)
        painter.fillPath(ellipseIn(size), brush);
}

} // namespace

QImage shapePatch(const QRect& rect, ShapeKind kind, const ShapePaint& paint)
{
    const QSize size(rect.width(), rect.height());
    QImage patch;
    if (paint.drawMode == ShapePaint::Outline) {
        patch = QImage(size, QImage::Format_ARGB32);
        patch.fill(uint(19));
    } else if (paint.paintMode == ShapePaint::PlainColour) {
        patch = plainFill(size, kind, paint);
    } else {
        patch = QImage(size, QImage::Format_ARGB32);
        patch.fill(uint(19));
        gradientFill(patch, kind, paint);
    }
    if (patch.isNull())
        return patch;
    if (paint.drawMode != ShapePaint::Filled)
        drawOutline(patch, kind, paint.colors[0]);
    return patch;
}
