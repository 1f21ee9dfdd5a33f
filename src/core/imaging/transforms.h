#pragma once

#include <QImage>
#include <QPoint>

// The geometric retouches of one cell's picture. Each takes the picture and the place
// of its top-left corner in the cell, and gives both back: a transform never touches
// the cell, only what the element shows in it. A null picture (a side cut to 0 by an
// earlier resize) comes back as it is.
struct PlacedImage
{
    QImage image;
    QPoint position;
};

// Scales each side by its factor, truncating. With recenter the middle of the picture
// stays where it was; otherwise its top-left corner does. Nothing is trimmed.
PlacedImage resizedImage(const PlacedImage& source, double widthFactor, double heightFactor,
                         bool recenter, bool smooth);

// Turns the picture by degrees, clockwise on screen, then trims the margins the turn
// made. The corner moves by half the change of width on both axes.
PlacedImage rotatedImage(const PlacedImage& source, double degrees, bool smooth);

// Mirrors the picture inside its own box: the position does not change.
QImage flippedImage(const QImage& image, bool horizontal, bool vertical);
