#include "imaging/blend.h"

#include <QImage>

#include <vector>

// The arithmetic, pixel by pixel, with S the source and D the destination:
//   A  = aD + aS * (255 - aD) / 255.0        a double; the product is an integer
//   kD = (A - aS) / A,  kS = aS / A          long double
//   c  = trunc(D * kD + S * kS)              long double, truncated, for r, g and b
//   pixel = trunc(A) << 24 | r << 16 | g << 8 | b
// A pixel whose A is not above 0 stays bit for bit. A source of alpha 0 gives exactly
// D, and one of alpha 255 exactly S, by this arithmetic (A is then aD or 255, and the
// weights 1 and 0), so those two cases take a shortcut with the same bits.
namespace {

// The weights depend on the two alphas only, so they are worked out once for every
// pair, with exactly the arithmetic above: blending is then multiplications alone.
struct Weights
{
    long double kD = 0;
    long double kS = 0;
    uint alpha = 0;
    bool keep = true; // A is not above 0: the destination pixel stays
};

// Indexed by the destination's alpha first: in a composition most destinations are
// already opaque, so the entries in use lie together.
const Weights& weightsOf(int aS, int aD)
{
    static const std::vector<Weights> table = [] {
        std::vector<Weights> weights(256 * 256);
        for (int destination = 0; destination < 256; ++destination) {
            for (int source = 0; source < 256; ++source) {
                const double a = destination + source * (255 - destination) / 255.0;
                Weights& w = weights[size_t(destination * 256 + source)];
                w.keep = !(a > 0);
                if (w.keep)
                    continue;
                const long double wideA = a;
                w.kD = (wideA - source) / wideA;
                w.kS = source / wideA;
                w.alpha = uint(a) & 0xffu;
            }
        }
        return weights;
    }();
    return table[size_t(aD * 256 + aS)];
}

// trunc(D * kD + S * kS) for one channel, which is never negative. A direct conversion
// of a long double makes the compiler switch the x87 rounding mode twice, which costs
// more than the blend itself; the nearest double, stepped back when it rounded up to
// the next integer, gives the same value.
inline uint channel(const Weights& w, int dc, int sc)
{
    const long double exact = dc * w.kD + sc * w.kS;
    const int i = int(double(exact));
    return uint(static_cast<long double>(i) > exact ? i - 1 : i) & 0xffu;
}

inline QRgb blendPixel(QRgb d, QRgb s)
{
    const Weights& w = weightsOf(qAlpha(s), qAlpha(d));
    if (w.keep)
        return d;
    return w.alpha << 24 | channel(w, qRed(d), qRed(s)) << 16 |
           channel(w, qGreen(d), qGreen(s)) << 8 | channel(w, qBlue(d), qBlue(s));
}

// One pixel. Sprites are mostly fully transparent or fully opaque pixels, in no
// predictable order along an edge: those two are chosen between by a mask rather than
// a branch the processor would mispredict, and only the see-through ones branch to
// the arithmetic.
inline QRgb blendOne(QRgb d, QRgb s)
{
    const uint alpha = s >> 24;
    if (alpha - 1u < 254u)
        return blendPixel(d, s);
    const uint opaque = 0u - uint(alpha != 0);
    return (s & opaque) | (d & ~opaque);
}

} // namespace

void blendOver(QImage& destination, int dx, int dy, const QImage& source, int sx, int sy,
               int width, int height)
{
    for (int i = 0; i < height; ++i) {
        const QRgb* s = reinterpret_cast<const QRgb*>(source.constScanLine(sy + i)) + sx;
        QRgb* d = reinterpret_cast<QRgb*>(destination.scanLine(dy + i)) + dx;
        for (int j = 0; j < width; ++j)
            d[j] = blendOne(d[j], s[j]);
    }
}
