#pragma once

#include <QColor>

// One stop of a colour gradient: its place from 0.0 to 1.0 (-1.0 for no stop) and its
// colour, alpha included.
struct GradientData
{
    double pos = -1.0;
    QColor color;

    friend bool operator==(const GradientData& a, const GradientData& b)
    {
        return a.pos == b.pos && a.color == b.color;
    }
    friend bool operator!=(const GradientData& a, const GradientData& b) { return !(a == b); }
};
