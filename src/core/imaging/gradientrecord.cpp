#include "imaging/gradientrecord.h"

#include <QGradient>
#include <QLineF>

#include <cmath>

void GradientRecord::resetPoints()
{
    const GradientRecord defaults;
    linearStart = defaults.linearStart;
    linearEnd = defaults.linearEnd;
    radialCenter = defaults.radialCenter;
    radialRadius = defaults.radialRadius;
    radialFocal = defaults.radialFocal;
    conicalCenter = defaults.conicalCenter;
    conicalAngle = defaults.conicalAngle;
}

const QPointF* GradientRecord::handle(int index) const
{
    const QPointF* const linear[] = {&linearStart, &linearEnd};
    const QPointF* const radial[] = {&radialCenter, &radialRadius, &radialFocal};
    const QPointF* const conical[] = {&conicalCenter, &conicalAngle};
    if (index < 0 || index >= handleCount(type))
        return nullptr;
    switch (type) {
    case Radial:
        return radial[index];
    case Conical:
        return conical[index];
    default:
        return linear[index];
    }
}

QList<QPointF> GradientRecord::handles() const
{
    QList<QPointF> points;
    for (int i = 0; i < handleCount(type); ++i)
        points.append(*handle(i));
    return points;
}

void GradientRecord::setHandles(const QList<QPointF>& points)
{
    for (int i = 0; i < points.size(); ++i) {
        if (QPointF* point = handle(i))
            *point = points.at(i);
    }
}

double GradientRecord::radius() const
{
    return QLineF(radialCenter, radialRadius).length();
}

QPointF GradientRecord::paintedFocal() const
{
    // Compared in single precision, as the lengths were always kept.
    const float focalDistance = float(QLineF(radialCenter, radialFocal).length());
    const float circle = float(radius());
    if (!(0.75f * circle < focalDistance))
        return radialFocal;
    const double dx = radialFocal.x() - radialCenter.x();
    const double dy = radialCenter.y() - radialFocal.y();
    const double angle = std::atan2(dy, dx);
    return QPointF(radialCenter.x() + 0.75 * circle * std::cos(angle),
                   radialCenter.y() - 0.75 * circle * std::sin(angle));
}

double GradientRecord::conicalAngleDegrees() const
{
    return QLineF(conicalCenter, conicalAngle).angle();
}

void GradientRecord::applyStops(QGradient& gradient, const QList<GradientData>& stops)
{
    for (const GradientData& stop : stops) {
        if (stop.pos >= 0.0 && stop.pos <= 1.0)
            gradient.setColorAt(stop.pos, stop.color);
    }
}

bool operator==(const GradientRecord& a, const GradientRecord& b)
{
    return a.type == b.type && a.spread == b.spread && a.stops == b.stops &&
           a.linearStart == b.linearStart && a.linearEnd == b.linearEnd &&
           a.radialCenter == b.radialCenter && a.radialRadius == b.radialRadius &&
           a.radialFocal == b.radialFocal && a.conicalCenter == b.conicalCenter &&
           a.conicalAngle == b.conicalAngle;
}
