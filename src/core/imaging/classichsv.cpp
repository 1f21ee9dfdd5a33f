#include "imaging/classichsv.h"

#include <QtGlobal>

#include <algorithm>

namespace {

constexpr int None = 0xffff;
constexpr double Full = 65535.0;

struct Raw
{
    int alpha = 0xffff;
    int hue = None;
    int saturation = 0;
    int value = 0;
};

QColor hsvColour(const Raw& raw)
{
    return QColor(QColor::Hsv, ushort(raw.alpha), ushort(raw.hue), ushort(raw.saturation),
                  ushort(raw.value));
}

// The components of a colour made by hsvColour. Qt hands them out as floats only, but
// a 16-bit value divided and multiplied back in float is off by far less than one half.
Raw rawOf(const QColor& colour)
{
    float h = 0;
    float s = 0;
    float v = 0;
    float a = 0;
    colour.getHsvF(&h, &s, &v, &a);
    Raw raw;
    raw.hue = h < 0 ? None : qRound(h * 36000.0f);
    raw.saturation = qRound(s * 65535.0f);
    raw.value = qRound(v * 65535.0f);
    raw.alpha = qRound(a * 65535.0f);
    return raw;
}

int wide(int eightBits)
{
    return eightBits * 0x101;
}

} // namespace

QColor ClassicHsv::fromHsv(int hue, int saturation, int value, int alpha)
{
    Raw raw;
    raw.hue = hue < 0 ? None : hue % 360 * 100;
    raw.saturation = wide(std::clamp(saturation, 0, 255));
    raw.value = wide(std::clamp(value, 0, 255));
    raw.alpha = wide(std::clamp(alpha, 0, 255));
    return hsvColour(raw);
}

QColor ClassicHsv::fromHsvF(double hue, double saturation, double value, double alpha)
{
    Raw raw;
    raw.hue = hue < 0 ? None : qRound(std::min(hue, 1.0) * 36000);
    raw.saturation = qRound(std::clamp(saturation, 0.0, 1.0) * Full);
    raw.value = qRound(std::clamp(value, 0.0, 1.0) * Full);
    raw.alpha = qRound(std::clamp(alpha, 0.0, 1.0) * Full);
    return hsvColour(raw);
}

QColor ClassicHsv::toRgb(const QColor& colour)
{
    if (colour.spec() != QColor::Hsv)
        return colour.spec() == QColor::Rgb ? colour : colour.toRgb();
    const Raw raw = rawOf(colour);
    int r = raw.value;
    int g = raw.value;
    int b = raw.value;
    if (raw.saturation != 0 && raw.hue != None) {
        // The sector formula, in double, each channel rounded to 16 bits.
        const double h = raw.hue == 36000 ? 0 : raw.hue / 6000.;
        const double s = raw.saturation / Full;
        const double v = raw.value / Full;
        const int i = int(h);
        const double f = h - i;
        const double p = v * (1.0 - s);
        const double q = v * (1.0 - s * f);
        const double t = v * (1.0 - s * (1.0 - f));
        const int pv = qRound(p * Full);
        const int qv = qRound(q * Full);
        const int tv = qRound(t * Full);
        const int vv = qRound(v * Full);
        switch (i) {
        case 0:
            r = vv, g = tv, b = pv;
            break;
        case 1:
            r = qv, g = vv, b = pv;
            break;
        case 2:
            r = pv, g = vv, b = tv;
            break;
        case 3:
            r = pv, g = qv, b = vv;
            break;
        case 4:
            r = tv, g = pv, b = vv;
            break;
        default:
            r = vv, g = pv, b = qv;
            break;
        }
    }
    return QColor(r >> 8, g >> 8, b >> 8, raw.alpha >> 8);
}

ClassicHsv::Components ClassicHsv::of(const QColor& colour)
{
    Raw raw;
    if (colour.spec() == QColor::Hsv) {
        raw = rawOf(colour);
    } else {
        const QColor rgb = toRgb(colour);
        const double r = wide(rgb.red()) / Full;
        const double g = wide(rgb.green()) / Full;
        const double b = wide(rgb.blue()) / Full;
        const double max = std::max({r, g, b});
        const double min = std::min({r, g, b});
        const double delta = max - min;
        raw.value = qRound(max * Full);
        if (!qFuzzyIsNull(delta)) {
            raw.saturation = qRound(delta / max * Full);
            double hue = 0;
            if (qFuzzyCompare(r, max))
                hue = (g - b) / delta;
            else if (qFuzzyCompare(g, max))
                hue = 2.0 + (b - r) / delta;
            else
                hue = 4.0 + (r - g) / delta;
            hue *= 60.0;
            if (hue < 0.0)
                hue += 360.0;
            raw.hue = qRound(hue * 100);
        }
    }
    Components components;
    components.hue = raw.hue == None ? -1 : raw.hue / 100;
    components.saturation = raw.saturation >> 8;
    components.value = raw.value >> 8;
    components.hueF = raw.hue == None ? -1.0 : raw.hue / 36000.0;
    components.saturationF = raw.saturation / Full;
    components.valueF = raw.value / Full;
    return components;
}
