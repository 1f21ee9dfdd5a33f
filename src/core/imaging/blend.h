#pragma once

class QImage;

// The one alpha blend of the program: draws the rectangle (sx, sy, width, height) of
// source over destination at (dx, dy). Both images are Format_ARGB32, not
// premultiplied. Nothing checks the rectangle: callers clip it first.
void blendOver(QImage& destination, int dx, int dy, const QImage& source, int sx, int sy,
               int width, int height);
