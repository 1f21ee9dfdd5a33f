#pragma once

#include <QColor>

// HSV colours computed as the program's first toolkit computed them. A colour set
// from HSV keeps 16-bit components (hue in hundredths of a degree, 0xffff for none;
// the others 0 to 65535); it becomes RGB through the sector formula in double, each
// channel rounded to 16 bits and then cut to 8 by ">> 8". Qt 6 works in float and
// rounds to 8 bits, so about two colours in five of the default palette, and the
// saturation shown for a fifth of RGB colours, would come out one step apart.
//
// Colours made here are HSV QColors holding those exact components, so a
// hue survives a grey on its way between the wheel, the sliders and their boxes. Never
// read their channels through QColor itself: toRgb gives the channels, of the HSV
// components.
class ClassicHsv
{
public:
    // Whole numbers: hue in degrees (-1 for none), the others 0 to 255.
    static QColor fromHsv(int hue, int saturation, int value, int alpha = 255);
    // Fractions of 0 to 1 (hue -1 for none); values outside are bounded.
    static QColor fromHsvF(double hue, double saturation, double value, double alpha = 1.0);

    // An Rgb colour: an Hsv one converted by the old arithmetic, any other as it is.
    static QColor toRgb(const QColor& colour);

    struct Components
    {
        int hue = -1; // degrees, -1 for a grey
        int saturation = 0;
        int value = 0;
        double hueF = -1.0;
        double saturationF = 0.0;
        double valueF = 0.0;
    };
    // The HSV components: an Hsv colour's own, those of any other worked out from its
    // RGB channels by the old arithmetic.
    static Components of(const QColor& colour);
};
