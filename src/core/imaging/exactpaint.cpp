#include "imaging/exactpaint.h"

#include <QPainter>

QImage coverageLayer(QSize size, const QColor& colour,
                     const std::function<void(QPainter& painter)>& draw)
{
    QImage layer(size, QImage::Format_ARGB32);
    layer.fill(uint(19));
    if (layer.isNull())
        return layer;
    QImage mask(size, QImage::Format_ARGB32_Premultiplied);
    mask.fill(0);
    QPainter painter(&mask);
    draw(painter);
    painter.end();
    const QRgb pixel = colour.rgba();
    for (int y = 0; y < size.height(); ++y) {
        const QRgb* covered = reinterpret_cast<const QRgb*>(mask.constScanLine(y));
        QRgb* line = reinterpret_cast<QRgb*>(layer.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            if (qAlpha(covered[x]) != 0)
                line[x] = pixel;
        }
    }
    return layer;
}
