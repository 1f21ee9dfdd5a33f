#pragma once

#include <QRgb>

class QColor;
class QImage;
class QSize;

// Small helpers that build or test whole images, for the previews and the element
// operations. Images are read as Format_ARGB32; another format is converted first.

// Makes image a new Format_ARGB32 image of size in squares of squareSize (never 0)
// pixels: colorA where the square's column and row numbers are both even or both odd,
// colorB elsewhere. With frame, a one-pixel black rectangle edges the whole image. It
// is what the previews show behind transparent pixels.
void fillChecker(QImage& image, const QSize& size, int squareSize, bool frame, const QColor& colorA,
                 const QColor& colorB);

// True when no pixel has any alpha; colour bytes do not count.
bool isTransparent(const QImage& image);

// True when every pixel is exactly pixel, alpha included.
bool isFilledWith(const QImage& image, QRgb pixel);
