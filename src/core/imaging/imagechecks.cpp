#include "imaging/imagechecks.h"

#include <QColor>
#include <QImage>
#include <QPainter>

#include <algorithm>

namespace {

QImage asArgb32(const QImage& image)
{
    return image.format() == QImage::Format_ARGB32 ? image
                                                   : image.convertToFormat(QImage::Format_ARGB32);
}

} // namespace

void fillChecker(QImage& image, const QSize& size, int squareSize, bool frame, const QColor& colorA,
                 const QColor& colorB)
{
    image = QImage(size, QImage::Format_ARGB32);
    // The squares go in directly rather than through a painter, which would round the
    // channels of a see-through colour.
    const QRgb a = colorA.rgba();
    const QRgb b = colorB.rgba();
    for (int y = 0; y < image.height(); ++y) {
        QRgb* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        const int rowParity = (y / squareSize) & 1;
        for (int x = 0; x < image.width(); ++x)
            line[x] = (((x / squareSize) & 1) + rowParity) % 2 == 1 ? b : a;
    }
    if (frame && !image.isNull()) {
        QPainter painter(&image);
        painter.drawRect(QRect(QPoint(0, 0), QPoint(image.width() - 2, image.height() - 2)));
    }
}

bool isTransparent(const QImage& image)
{
    const QImage argb = asArgb32(image);
    for (int y = 0; y < argb.height(); ++y) {
        const QRgb* line = reinterpret_cast<const QRgb*>(argb.constScanLine(y));
        const QRgb* end = line + argb.width();
        if (std::any_of(line, end, [](QRgb pixel) { return qAlpha(pixel) != 0; }))
            return false;
    }
    return true;
}

bool isFilledWith(const QImage& image, QRgb pixel)
{
    const QImage argb = asArgb32(image);
    for (int y = 0; y < argb.height(); ++y) {
        const QRgb* line = reinterpret_cast<const QRgb*>(argb.constScanLine(y));
        const QRgb* end = line + argb.width();
        if (std::any_of(line, end, [pixel](QRgb other) { return other != pixel; }))
            return false;
    }
    return true;
}
