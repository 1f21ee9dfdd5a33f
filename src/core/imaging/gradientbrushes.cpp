#include "imaging/gradientbrushes.h"

#include "imaging/gradientrecord.h"

#include <QLineF>

namespace {

// Point of the preview to point of the patch, or to itself for the preview.
using Fit = QPointF (*)(QPointF point, QSize size);

QPointF fitted(QPointF point, QSize size)
{
    return QPointF(point.x() / 199.0 * size.width(), point.y() / 199.0 * size.height());
}

QPointF unfitted(QPointF point, QSize)
{
    return point;
}

void finish(QGradient& gradient, const GradientRecord& record)
{
    GradientRecord::applyStops(gradient, record.stops);
    gradient.setSpread(QGradient::Spread(record.spread));
}

QLinearGradient linear(const GradientRecord& record, QSize size, Fit fit)
{
    QLinearGradient gradient(fit(record.linearStart, size), fit(record.linearEnd, size));
    finish(gradient, record);
    return gradient;
}

QConicalGradient conical(const GradientRecord& record, QSize size, Fit fit)
{
    QConicalGradient gradient(fit(record.conicalCenter, size), record.conicalAngleDegrees());
    finish(gradient, record);
    return gradient;
}

QRadialGradient radial(const GradientRecord& record, QSize size, Fit fit)
{
    const QPointF center = fit(record.radialCenter, size);
    const double radius = QLineF(center, fit(record.radialRadius, size)).length();
    QRadialGradient gradient(center, radius, fit(record.paintedFocal(), size));
    finish(gradient, record);
    return gradient;
}

QBrush brush(const GradientRecord& record, QSize size, Fit fit)
{
    switch (record.type) {
    case GradientRecord::Radial:
        return QBrush(radial(record, size, fit));
    case GradientRecord::Conical:
        return QBrush(conical(record, size, fit));
    default:
        return QBrush(linear(record, size, fit));
    }
}

} // namespace

QLinearGradient makeLinearBrush(const GradientRecord& record, QSize size)
{
    return linear(record, size, fitted);
}

QConicalGradient makeConicalBrush(const GradientRecord& record, QSize size)
{
    return conical(record, size, fitted);
}

QRadialGradient makeRadialBrush(const GradientRecord& record, QSize size)
{
    return radial(record, size, fitted);
}

QBrush makeGradientBrush(const GradientRecord& record, QSize size)
{
    return brush(record, size, fitted);
}

QBrush makePreviewBrush(const GradientRecord& record)
{
    return brush(record, QSize(), unfitted);
}
