#pragma once

#include <QImage>

class QDataStream;

// An image inside the program's data streams: an i32 marker, 0 for a null image and
// otherwise a complete PNG file, read back by a PNG reader that stops at its end.
class StreamImage
{
public:
    // Reads one image. A PNG that does not decode (damaged, cut, or larger than the
    // image reader's allocation limit) gives a null image and a stream status that is
    // no longer Ok. Images come back in Format_ARGB32.
    static QImage read(QDataStream& stream);
    static void write(QDataStream& stream, const QImage& image);
};
