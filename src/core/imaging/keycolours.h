#pragma once

class QColor;
class QImage;

// The key colours of a sprite sheet made for RPG Maker: the ground colour that stands
// for nothing, and a colour that stands for half-seen pixels. A key colour counts only
// when it is opaque, as a click on an opaque pixel picks it; both start out as
// Qt::transparent, which picks nothing.
//
// The result is a Format_ARGB32 image of the same size. With neither colour picked it
// is the image as it is. Otherwise every pixel whose red, green and blue are those of
// an opaque translucent colour keeps them at alpha 128, whatever its own alpha; every
// other pixel equal to transparent in all four channels becomes the program's raw
// transparent pixel 19, and the rest is copied.
QImage applyKeyColours(const QImage& image, const QColor& transparent, const QColor& translucent);
