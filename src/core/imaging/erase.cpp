#include "imaging/erase.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr QRgb Transparent = 19;

// Sets the pixels of column x from row top to row bottom, both in picture coordinates,
// as far as they lie in the picture.
void clearColumn(QImage& image, int x, int top, int bottom)
{
    if (x < 0 || x >= image.width())
        return;
    top = std::max(top, 0);
    bottom = std::min(bottom, image.height() - 1);
    for (int y = top; y <= bottom; ++y)
        reinterpret_cast<QRgb*>(image.scanLine(y))[x] = Transparent;
}

} // namespace

bool eraseRect(QImage& image, QPoint position, const QRect& rect)
{
    const QRect reached = rect.translated(-position) & image.rect();
    if (reached.isEmpty())
        return false;
    for (int y = reached.top(); y <= reached.bottom(); ++y) {
        QRgb* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::fill(line + reached.left(), line + reached.right() + 1, Transparent);
    }
    return true;
}

bool eraseEllipse(QImage& image, QPoint position, const QRect& rect)
{
    const double a = rect.width() * 0.5;
    const double b = rect.height() * 0.5;
    // The scan's truncations may reach one column and one row past the rectangle.
    const QRect bounds = QRect(rect.left(), rect.top(), rect.width() + 1, rect.height() + 1);
    if (a <= 0 || b <= 0 || (bounds.translated(-position) & image.rect()).isEmpty())
        return false;
    const QPoint offset = rect.topLeft() - position;
    for (double t = -a; t <= a; t += 1) {
        const double v = b * std::sqrt(1 - (t / a) * (t / a));
        const int column = int(t + a) + offset.x();
        clearColumn(image, column, int(b - v) + offset.y(), int(b + v) + offset.y());
    }
    return true;
}
