#pragma once

#include "imaging/gradientdata.h"

#include <QList>
#include <QPointF>

class QGradient;

// A drawing gradient as the editor hands it over: type, spread, stops, and the points
// of all three types in the coordinates of the editor's 200 by 200 preview, so that
// switching the type back and forth loses no geometry. The brushes and the .zkd file
// are made from it.
struct GradientRecord
{
    enum Type : quint8
    {
        Linear = 0,
        Radial = 1,
        Conical = 2
    };

    quint8 type = Linear;
    quint8 spread = 0; // the values of QGradient::Spread: 0 pad, 1 reflect, 2 repeat
    QList<GradientData> stops = {GradientData{0.0, QColor(Qt::black)},
                                 GradientData{1.0, QColor(Qt::white)}};

    // radialRadius is a point on the circle; conicalAngle gives the angle of the line
    // from conicalCenter to it.
    QPointF linearStart{0, 100};
    QPointF linearEnd{200, 100};
    QPointF radialCenter{100, 100};
    QPointF radialRadius{100, 0};
    QPointF radialFocal{100, 50};
    QPointF conicalCenter{100, 100};
    QPointF conicalAngle{100, 0};

    void resetPoints();

    // The points that define the active type, in the file's order: start and end;
    // centre, radius point and focal point; centre and angle point.
    static int handleCount(quint8 type) { return type == Radial ? 3 : 2; }
    QList<QPointF> handles() const;
    // Sets the active type's points from the first of points.
    void setHandles(const QList<QPointF>& points);
    // The active type's point at index, null outside them.
    const QPointF* handle(int index) const;
    QPointF* handle(int index)
    {
        return const_cast<QPointF*>(static_cast<const GradientRecord*>(this)->handle(index));
    }

    double radius() const;
    // A radial gradient of radius 0 covers nothing, yet the toolkit's painter clears
    // what lies under it: such a fill is better left out.
    bool paintsNothing() const { return type == Radial && radius() == 0.0; }
    // The focal point that is painted: the user's, unless it lies farther from the
    // centre than three quarters of the radius, where the toolkit's radial gradient
    // turns ugly; it is then drawn in along its direction to that distance.
    QPointF paintedFocal() const;
    // Degrees counter-clockwise from the x axis (y grows downwards), 0 for a null line.
    double conicalAngleDegrees() const;

    // Gives gradient the stops in vector order. Positions outside 0 to 1 stay in the
    // record but are left out here: the toolkit refuses them with a warning.
    static void applyStops(QGradient& gradient, const QList<GradientData>& stops);

    friend bool operator==(const GradientRecord& a, const GradientRecord& b);
    friend bool operator!=(const GradientRecord& a, const GradientRecord& b) { return !(a == b); }
};
