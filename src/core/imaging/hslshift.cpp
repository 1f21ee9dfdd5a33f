#include "imaging/hslshift.h"

#include <QImage>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <memory>
#include <vector>

// Saved sheets must keep the exact colours they have always had, so the arithmetic
// follows one fixed reading of "floats where a value is stored, the widest precision
// in between":
//  - A value is a 32-bit float exactly where it is stored: r, g, b; l; dr, dg, db;
//    H, S, L; the new S and L.
//  - Every other value is a long double (the x87's 64-bit mantissa): max, min, delta,
//    s and h before they become S and H, the new hue, the h, s and l rebuilt from the
//    new values, m1, m2, and the argument and result of channel(). Every expression
//    is evaluated in long double: one operand is widened before each operation.
//  - Constants enter at their written type: 1/3 and 2/3 are the doubles
//    0.3333333333333333 and 0.6666666666666666.
//  - Each conversion to an integer truncates the long double value.
// The build forbids contracting a * b + c into a fused multiply-add, which would
// change results.

namespace {

using Wide = long double;

constexpr double oneThird = 0.3333333333333333;
constexpr double twoThirds = 0.6666666666666666;

// byte / 255.0 stored as a float, for every byte: a constant table, not state.
const std::array<float, 256>& unitTable()
{
    static const std::array<float, 256> table = [] {
        std::array<float, 256> values{};
        for (int i = 0; i < 256; ++i)
            values[i] = float(Wide(i) / 255.0);
        return values;
    }();
    return table;
}

// A long double truncated towards zero. Converting it directly makes the compiler
// switch the x87 rounding mode twice, which costs more than the rest of a pixel: go
// through the nearest double instead and step back when that crossed an integer.
// Beyond the range of int (only shifts far outside the sliders' range get there) the
// result is the processor's "integer indefinite", as a direct conversion gives.
int truncated(Wide x)
{
    if (!(x > -2147483648.0L && x < 2147483648.0L))
        return std::numeric_limits<int>::min();
    const int i = int(double(x));
    if (x >= 0)
        return Wide(i) > x ? i - 1 : i;
    return Wide(i) < x ? i + 1 : i;
}

uint packed(int red, int green, int blue)
{
    return (uint(red) & 0xffu) << 16 | (uint(green) & 0xffu) << 8 | (uint(blue) & 0xffu);
}

// The hue of a colour in degrees, H: the hue half of the conversion to HSL.
float hueOf(float r, float g, float b)
{
    const Wide max = std::max({Wide(r), Wide(g), Wide(b)});
    const Wide min = std::min({Wide(r), Wide(g), Wide(b)});
    const Wide delta = max - min;
    if (delta == 0)
        return 0;
    const float dr = ((max - r) / 6 + delta * 0.5) / delta;
    const float dg = ((max - g) / 6 + delta * 0.5) / delta;
    const float db = ((max - b) / 6 + delta * 0.5) / delta;
    Wide h;
    if (r == max)
        h = Wide(db) - dg;
    else if (g == max)
        h = oneThird + Wide(dr) - db;
    else
        h = twoThirds + Wide(dg) - dr;
    if (h < 0)
        h += 1;
    if (h > 1)
        h -= 1;
    return float(h * 360);
}

// A share of the way towards the end of the scale: towards 255 for a positive
// percentage, towards 0 for a negative one.
float shifted(float value, float percent)
{
    // A shift of 0 adds 0 below and leaves value as it is: returning it at once changes
    // no bit.
    if (percent == 0)
        return value;
    if (percent > 0)
        return value + Wide(percent) * (255 - Wide(value)) / 100;
    return value + Wide(percent) * value / 100;
}

// Everything of the new colour but its hue: the colour's lightest and darkest channels
// decide its saturation and luminosity, and the new ones decide m1 and m2, or a grey.
struct Shade
{
    bool grey;
    int greyValue;
    Wide m1;
    Wide m2;
};

Shade shadeOf(float max, float min, const HslShift& shift)
{
    const Wide delta = Wide(max) - min;
    const float l = 0.5 * (Wide(max) + min);
    Wide s = 0;
    if (delta != 0)
        s = l < 0.5 ? delta / (Wide(max) + min) : delta / (2 - Wide(max) - min);
    const float saturation = s * 255;
    const float luminosity = Wide(l) * 255;
    const Wide newS = Wide(shifted(saturation, shift.saturation)) / 255;
    const Wide newL = Wide(shifted(luminosity, shift.luminosity)) / 255;
    Shade shade{};
    if (newS == 0) {
        shade.grey = true;
        shade.greyValue = truncated(newL * 255);
        return shade;
    }
    shade.m2 = newL < 0.5 ? newL * (1 + newS) : (newL + newS) - newS * newL;
    shade.m1 = 2 * newL - shade.m2;
    return shade;
}

// The new hue as a fraction of the circle. A redefined hue is not wrapped: a negative
// one stays negative, and channel() wraps it.
Wide newHueOf(float hue, const HslShift& shift, bool redefine)
{
    if (redefine)
        return Wide(shift.hue) / 360;
    Wide degrees = Wide(shift.hue) + hue;
    if (degrees >= 360)
        degrees -= 360;
    else if (degrees < 0)
        degrees += 360;
    return degrees / 360;
}

Wide channel(Wide m1, Wide m2, Wide t)
{
    if (t < 0)
        t += 1;
    if (t > 1)
        t -= 1;
    if (6 * t < 1)
        return m1 + (m2 - m1) * 6 * t;
    if (2 * t < 1)
        return m2;
    if (3 * t < 2)
        return m1 + (m2 - m1) * (twoThirds - t) * 6;
    return m1;
}

uint rgbOf(const Shade& shade, Wide h)
{
    if (shade.grey)
        return packed(shade.greyValue, shade.greyValue, shade.greyValue);
    return packed(truncated(255 * channel(shade.m1, shade.m2, h + oneThird)),
                  truncated(255 * channel(shade.m1, shade.m2, h)),
                  truncated(255 * channel(shade.m1, shade.m2, h - oneThird)));
}

// The whole computation for one colour, step by step: the reference that the fast
// path below must match bit for bit, and its fallback.
uint shiftedExactly(int red, int green, int blue, const HslShift& shift, bool redefine)
{
    const std::array<float, 256>& unit = unitTable();
    const float r = unit[red];
    const float g = unit[green];
    const float b = unit[blue];
    const Shade shade = shadeOf(std::max({r, g, b}), std::min({r, g, b}), shift);
    const float hue = redefine ? 0.0f : hueOf(r, g, b);
    return rgbOf(shade, newHueOf(hue, shift, redefine));
}

// Rounds the exact product h * 360 to a float, as the long double product does: that
// one is exact, h being a double and 360 having six significant bits. The double
// product rounds otherwise only when it falls exactly halfway between two floats;
// there Dekker's split gives its exact error, whose sign tells which way to go.
float hueDegrees(double h)
{
    const double product = h * 360;
    float degrees = float(product);
    quint64 bits;
    std::memcpy(&bits, &product, sizeof bits);
    if ((bits & 0x1fffffffu) != 0x10000000u)
        return degrees;
    const double split = 134217729.0 * h;
    const double high = split - (split - h);
    const double low = h - high;
    const double error = (high * 360 - product) + low * 360;
    if (error > 0 && double(degrees) < product)
        degrees = std::nextafter(degrees, 1000.0f);
    else if (error < 0 && double(degrees) > product)
        degrees = std::nextafter(degrees, 0.0f);
    return degrees;
}

// m1 and m2 of a pair as the exact path needs them.
struct Ramp
{
    Wide m1;
    Wide m2;
};

// What one colour pair (lightest and darkest channel) gives under one shift, in 32
// bytes: the memo's table of them is read for every new colour.
struct PairTerms
{
    static constexpr uint Fixed = 1u << 24;

    double k;  // 1 / (6 delta), 0 for a grey colour
    double m1; // m1 and m2 - m1 rounded to doubles, for the fast ramp
    double span;
    // With Fixed set, the result, which the hue cannot change; otherwise the exact
    // channels where channel() gives m2 (bits 8 to 15) and m1 (bits 0 to 7).
    uint channels;
    uint stamp; // the generation of the memo the terms belong to
};

// What the colour pairs give under the shift last used in a thread. A preview step
// shifts every image of a character by the same shift, and a pair's terms depend on the
// pair and the shift alone, so what one image worked out serves the others; a new shift
// starts a new generation, in which nothing of the old one counts. Being per thread, it
// needs no lock.
struct Memo
{
    static constexpr int PairCount = 256 * 257 / 2; // pairs with max >= min

    HslShift shift{};
    bool redefine = false;
    uint generation = 0;
    std::vector<PairTerms> pairs = std::vector<PairTerms>(PairCount);
    std::vector<Ramp> exact = std::vector<Ramp>(PairCount);

    void use(const HslShift& newShift, bool newRedefine)
    {
        if (generation != 0 && newRedefine == redefine &&
            std::memcmp(&newShift, &shift, sizeof shift) == 0)
            return;
        shift = newShift;
        redefine = newRedefine;
        if (++generation == 0) {
            for (PairTerms& terms : pairs)
                terms.stamp = 0;
            generation = 1;
        }
    }
};

// Shifts colours, taking the pairs' terms from the memo and a fast path in doubles for
// the hue: one that knows when it may differ from the exact arithmetic and then hands
// over to it.
//
// Why the fast path is exact. Between two roundings (a float store, a comparison, a
// truncation) the double and the long double computations approximate the same real
// number, both within far less than 2^-40 of it. Where the double value lies farther
// than a safety margin from every point where the rounding could go either way, the
// long double one rounds the same way; where it does not, the pixel goes to the exact
// path. Some steps are exact in doubles as well: the channel differences and sums, the
// hue before degrees, and, with a hue shift of whole multiples of 2^-16 degrees within
// one turn, the sum of the hue shift and H and its wrapping.
class Shifter
{
public:
    Shifter(const HslShift& shift, bool redefine, Memo& memo)
        : m_unit(unitTable()), m_shift(shift), m_redefine(redefine),
          m_fixedHue(Wide(shift.hue) / 360), m_fast(redefine || fastPathApplies(shift)),
          m_memo(memo)
    {
        m_memo.use(shift, redefine);
    }

    // A colour like the previous pixel's is not worked out again: sprites have runs of
    // one colour. (A table of the colours seen costs more in pictures of many colours
    // than it saves in those of few, which are quick anyway.)
    uint shiftedRgb(uint rgb)
    {
        if (rgb == m_lastRgb)
            return m_lastResult;
        const int red = int(rgb >> 16);
        const int green = int(rgb >> 8 & 0xffu);
        const int blue = int(rgb & 0xffu);
        m_lastRgb = rgb;
        m_lastResult = m_fast ? fastRgb(red, green, blue)
                              : shiftedExactly(red, green, blue, m_shift, m_redefine);
        return m_lastResult;
    }

private:
    // d lies between 0.5 and 2/3, where floats are 2^-24 apart.
    static constexpr double dLimit = 0x1p-25 - 0x1p-40;
    static constexpr double sectorMargin = 0x1p-36;
    static constexpr double channelMargin = 0x1p-30;

    // H is a multiple of 2^-39 below 512, so a hue shift of whole multiples of 2^-16
    // degrees within one turn makes their sum and its wrapping exact in doubles, and
    // comparable as the long double ones. Saturation and luminosity within the
    // sliders' range keep m1 and m2 between 0 and 1, where the error bounds hold.
    static bool fastPathApplies(const HslShift& shift)
    {
        const double scaledHue = double(shift.hue) * 65536;
        return std::fabs(shift.hue) <= 360 && scaledHue == std::trunc(scaledHue) &&
               std::fabs(shift.saturation) <= 100 && std::fabs(shift.luminosity) <= 100;
    }

    uint fastRgb(int red, int green, int blue)
    {
        const int max = std::max({red, green, blue});
        const int min = std::min({red, green, blue});
        const size_t index = size_t(max * (max + 1) / 2 + min);
        PairTerms& terms = m_memo.pairs[index];
        if (terms.stamp != m_memo.generation)
            terms = pairTerms(max, min, m_memo.exact[index]);
        if (terms.channels & PairTerms::Fixed)
            return terms.channels & 0xffffffu;
        float hue;
        if (!fastHue(red, green, blue, max, min, terms.k, hue))
            hue = hueOf(m_unit[red], m_unit[green], m_unit[blue]);
        double degrees = double(m_shift.hue) + hue;
        degrees -= degrees >= 360 ? 360 : 0;
        degrees += degrees < 0 ? 360 : 0;
        uint rgb;
        if (fastChannels(terms, degrees, rgb))
            return rgb;
        const Ramp& exact = m_memo.exact[index];
        return rgbOf(Shade{false, 0, exact.m1, exact.m2}, Wide(degrees) / 360);
    }

    PairTerms pairTerms(int max, int min, Ramp& ramp) const
    {
        const Shade exact = shadeOf(m_unit[max], m_unit[min], m_shift);
        ramp = Ramp{exact.m1, exact.m2};
        PairTerms terms{};
        terms.stamp = m_memo.generation;
        if (max != min)
            terms.k = 1 / (6 * (double(m_unit[max]) - m_unit[min]));
        if (exact.grey || m_redefine) {
            terms.channels = rgbOf(exact, m_fixedHue) | PairTerms::Fixed;
            return terms;
        }
        terms.m1 = double(exact.m1);
        terms.span = double(exact.m2 - exact.m1);
        terms.channels = (uint(truncated(255 * exact.m2)) & 0xffu) << 8 |
                         (uint(truncated(255 * exact.m1)) & 0xffu);
        return terms;
    }

    // H in doubles. dr, dg and db are 0.5 + (max - c) / (6 delta): 0.5 for the lightest
    // channel, and for the darkest ((max - min) / 6 + delta / 2) / delta, which as a float
    // is the float nearest 2/3 for every pair (2/3 lies far from the point halfway
    // between two floats). Only the middle channel's is worked out. Their differences are
    // exact, and so is adding 1/3 or 2/3 unless the check below says otherwise. A grey
    // colour has k 0 and comes out as 0.
    bool fastHue(int red, int green, int blue, int max, int min, double k, float& hue) const
    {
        static constexpr double darkest = 0.666666686534881591796875;
        // With red the lightest channel h = db - dg; with green 1/3 + dr - db; with
        // blue 2/3 + dg - dr.
        static constexpr int added[3] = {2, 0, 1};
        static constexpr int taken[3] = {1, 2, 0};
        static constexpr double base[3] = {0, oneThird, twoThirds};
        const int channels[3] = {red, green, blue};
        const int first = red == max ? 0 : green == max ? 1 : 2;
        const double top = m_unit[max]; // in double: the difference of two floats is exact there
        const double middle = 0.5 + (top - m_unit[red + green + blue - max - min]) * k;
        const float dMiddle = float(middle);
        const double plus = channels[added[first]] == min ? darkest : dMiddle;
        const double minus = channels[taken[first]] == min ? darkest : dMiddle;
        const double difference = plus - minus;
        double h = base[first] + difference;
        const bool sure =
            std::fabs(middle - dMiddle) < dLimit && (base[first] - h) + difference == 0;
        if (!sure)
            return false;
        h += h < 0 ? 1 : 0;
        h -= h > 1 ? 1 : 0;
        hue = hueDegrees(h);
        return true;
    }

    // The three channels from the new hue in degrees. The hue's sixth of the circle
    // decides which channel gets m2, which m1 and which the ramp between them.
    static bool fastChannels(const PairTerms& terms, double degrees, uint& rgb)
    {
        const double sixths = degrees * (1.0 / 60);
        const int sector = int(sixths);
        const double within = sixths - sector;
        const double rising = sector % 2 == 0 ? within : 1 - within;
        const double value = 255 * (terms.m1 + terms.span * rising);
        const int ramp = int(value);
        const bool sure = sector <= 5 && within > sectorMargin && within < 1 - sectorMargin &&
                          int(value - channelMargin) == ramp && int(value + channelMargin) == ramp;
        if (!sure)
            return false;
        static constexpr int rampAt[6] = {8, 16, 0, 8, 16, 0};
        static constexpr int highAt[6] = {16, 8, 8, 0, 0, 16};
        static constexpr int lowAt[6] = {0, 0, 16, 16, 8, 8};
        rgb = (uint(ramp) & 0xffu) << rampAt[sector] | (terms.channels >> 8) << highAt[sector] |
              (terms.channels & 0xffu) << lowAt[sector];
        return true;
    }

    const std::array<float, 256>& m_unit;
    const HslShift m_shift;
    const bool m_redefine;
    const Wide m_fixedHue;
    const bool m_fast;
    Memo& m_memo;
    uint m_lastRgb = ~0u; // never a colour: those have a zero top byte
    uint m_lastResult = 0;
};

} // namespace

void shiftImageHsl(const HslShift& shift, QImage& image, bool redefine, bool fromSource,
                   const QImage& source)
{
    if (image.isNull())
        return;
    if (image.format() != QImage::Format_ARGB32)
        image = image.convertToFormat(QImage::Format_ARGB32);
    QImage converted;
    const QImage* from = &image;
    if (fromSource) {
        from = &source;
        if (source.format() != QImage::Format_ARGB32) {
            converted = source.convertToFormat(QImage::Format_ARGB32);
            from = &converted;
        }
    }
    thread_local Memo memo;
    Shifter shifter(shift, redefine, memo);
    const int width = std::min(image.width(), from->width());
    const int height = std::min(image.height(), from->height());
    for (int y = 0; y < height; ++y) {
        // Writing first detaches the image from a source that shares its pixels.
        QRgb* to = reinterpret_cast<QRgb*>(image.scanLine(y));
        const QRgb* line = reinterpret_cast<const QRgb*>(from->constScanLine(y));
        for (int x = 0; x < width; ++x) {
            const QRgb pixel = line[x];
            if (qAlpha(pixel) == 0)
                continue;
            to[x] = (pixel & 0xff000000u) | shifter.shiftedRgb(pixel & 0xffffffu);
        }
    }
}
