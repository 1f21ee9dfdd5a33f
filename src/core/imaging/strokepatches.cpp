#include "imaging/strokepatches.h"

#include "imaging/exactpaint.h"

#include <QPainter>
#include <QPainterPath>

#include <cstdlib>

void addDab(QPainterPath& stroke, QPoint point, int width, int shape)
{
    const int half = width / 2;
    const QRect square(point.x() - half, point.y() - half, width, width);
    if (shape == RoundDab && width != 1)
        stroke.addEllipse(QRectF(square));
    else
        addDabRect(stroke, square);
}

void addDabRect(QPainterPath& stroke, const QRect& rect)
{
    stroke.addRect(QRectF(rect));
}

// The dabs lie on whole pixels, so the bounds of the control points are exact: the
// curves of a round dab keep their control points on the sides of its square.
Patch strokePatch(const QPainterPath& stroke, const QColor& colour)
{
    const QRectF bounds = stroke.controlPointRect();
    const QPoint corner(int(bounds.left()), int(bounds.top()));
    QPainterPath shape = stroke.translated(-corner);
    // Overlapping dabs must not cancel out.
    shape.setFillRule(Qt::WindingFill);
    const QSize size(int(bounds.width()), int(bounds.height()));
    if (size.isEmpty())
        return {QImage(), corner};
    const QImage image = coverageLayer(
        size, colour, [&](QPainter& painter) { painter.fillPath(shape, QBrush(Qt::white)); });
    return {image, corner};
}

Patch linePatch(QPoint from, QPoint to, int width, const QColor& colour)
{
    const int half = width / 2;
    const QPoint least(qMin(from.x(), to.x()), qMin(from.y(), to.y()));
    const QSize size(std::abs(to.x() - from.x()) + 1 + width,
                     std::abs(to.y() - from.y()) + 1 + width);
    const QPoint offset = QPoint(half, half) - least;
    const QLine line(from + offset, to + offset);
    const QImage image = coverageLayer(size, colour, [&](QPainter& painter) {
        painter.setPen(QPen(QBrush(Qt::white), width, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
        painter.drawLines(&line, 1);
    });
    return {image, least - QPoint(half, half)};
}
