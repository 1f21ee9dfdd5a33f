#include "imaging/keycolours.h"

#include <QColor>
#include <QImage>

QImage applyKeyColours(const QImage& image, const QColor& transparent, const QColor& translucent)
{
    // Reading through the ARGB32 copy gives what QImage::pixel() gives on the image as
    // it was loaded, palette images included.
    const QImage source = image.convertToFormat(QImage::Format_ARGB32);
    const bool halfSeen = translucent.alpha() == 255;
    if (transparent.alpha() != 255 && !halfSeen)
        return source;
    const QRgb ground = transparent.rgba();
    const QRgb halfColour = translucent.rgb() & RGB_MASK;
    QImage output(source.size(), QImage::Format_ARGB32);
    output.fill(uint(19));
    for (int y = 0; y < source.height(); ++y) {
        const QRgb* in = reinterpret_cast<const QRgb*>(source.constScanLine(y));
        QRgb* out = reinterpret_cast<QRgb*>(output.scanLine(y));
        for (int x = 0; x < source.width(); ++x) {
            const QRgb pixel = in[x];
            if (halfSeen && (pixel & RGB_MASK) == halfColour)
                out[x] = halfColour | 0x80000000u;
            else if (pixel != ground)
                out[x] = pixel;
        }
    }
    return output;
}
