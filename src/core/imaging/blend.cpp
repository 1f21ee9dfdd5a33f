#include "imaging/blend.h"

#include <QImage>

// The arithmetic, pixel by pixel, with S the source and D the destination:
//   A  = aD + aS * (255 - aD) / 255.0        a double; the product is an integer
//   kD = (A - aS) / A,  kS = aS / A          long double
//   c  = trunc(D * kD + S * kS)              long double, truncated, for r, g and b
//   pixel = trunc(A) << 24 | r << 16 | g << 8 | b
// A pixel whose A is not above 0 stays bit for bit. A source of alpha 0 gives exactly
// D, and one of alpha 255 exactly S, by this arithmetic (A is then aD or 255, and the
// weights 1 and 0), so those two cases take a shortcut with the same bits.
static inline QRgb blendPixel(QRgb d, QRgb s)
{
    const int aS = qAlpha(s);
    const int aD = qAlpha(d);
    const double a = aD + aS * (255 - aD) / 255.0;
    if (!(a > 0))
        return d;
    const long double wideA = a;
    const long double kD = (wideA - aS) / wideA;
    const long double kS = aS / wideA;
    const auto channel = [&](int dc, int sc) {
        return uint(qint64(dc * kD + sc * kS)) & 0xffu;
    };
    return (uint(qint64(a)) & 0xffu) << 24 | channel(qRed(d), qRed(s)) << 16
           | channel(qGreen(d), qGreen(s)) << 8 | channel(qBlue(d), qBlue(s));
}

void blendOver(QImage& destination, int dx, int dy, const QImage& source, int sx, int sy,
               int width, int height)
{
    for (int i = 0; i < height; ++i) {
        const QRgb* s = reinterpret_cast<const QRgb*>(source.constScanLine(sy + i)) + sx;
        QRgb* d = reinterpret_cast<QRgb*>(destination.scanLine(dy + i)) + dx;
        for (int j = 0; j < width; ++j) {
            const QRgb pixel = s[j];
            const uint alpha = pixel >> 24;
            if (alpha == 0)
                continue;
            d[j] = alpha == 255 ? pixel : blendPixel(d[j], pixel);
        }
    }
}
