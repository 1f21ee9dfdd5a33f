#pragma once

class QImage;
class QPoint;

// Cuts the transparent margins off an element's cell image and says where the kept
// box starts. offset is left as the caller set it unless the image is cut, except
// that an image with no visible pixel above its last row resets it to (0, 0) and is
// left whole. The box is one row (or column) taller (wider) than a single row
// (column) of visible pixels; where that extra line lies past the image, it holds the
// raw transparent pixel 19.
void trimImage(QImage& image, QPoint& offset);
