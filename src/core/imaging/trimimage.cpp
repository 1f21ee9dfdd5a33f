#include "imaging/trimimage.h"

#include <QImage>
#include <QPoint>

#include <algorithm>

namespace {

bool rowHasAlpha(const QImage& image, int y)
{
    const QRgb* line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
    for (int x = 0; x < image.width(); ++x) {
        if (qAlpha(line[x]) != 0)
            return true;
    }
    return false;
}

bool columnHasAlpha(const QImage& image, int x)
{
    for (int y = 0; y < image.height(); ++y) {
        if (qAlpha(reinterpret_cast<const QRgb*>(image.constScanLine(y))[x]) != 0)
            return true;
    }
    return false;
}

} // namespace

void trimImage(QImage& image, QPoint& offset)
{
    if (image.format() != QImage::Format_ARGB32)
        image = image.convertToFormat(QImage::Format_ARGB32);
    const int width = image.width();
    const int height = image.height();

    int top = 0;
    while (top < height && !rowHasAlpha(image, top))
        ++top;
    if (top >= height - 1) {
        offset = QPoint(0, 0);
        return;
    }
    int bottom = top + 2;
    for (int y = height - 1; y > top; --y) {
        if (rowHasAlpha(image, y)) {
            bottom = y + 1;
            break;
        }
    }
    int left = 0;
    while (left < width && !columnHasAlpha(image, left))
        ++left;
    int right = left + 2;
    for (int x = width - 1; x > left; --x) {
        if (columnHasAlpha(image, x)) {
            right = x + 1;
            break;
        }
    }
    if (right - left == width && bottom - top == height)
        return;

    QImage box(right - left, bottom - top, QImage::Format_ARGB32);
    box.fill(uint(19));
    const int copiedWidth = std::min(right, width) - left;
    const int lastRow = std::min(bottom, height);
    for (int y = top; y < lastRow; ++y) {
        const QRgb* from = reinterpret_cast<const QRgb*>(image.constScanLine(y)) + left;
        QRgb* to = reinterpret_cast<QRgb*>(box.scanLine(y - top));
        std::copy(from, from + copiedWidth, to);
    }
    image = box;
    offset = QPoint(left, top);
}
