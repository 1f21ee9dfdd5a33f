#include "formats/streamimage.h"

#include "formats/pngwriter.h"

#include <QDataStream>
#include <QImageReader>

QImage StreamImage::read(QDataStream& stream)
{
    qint32 marker = 0;
    stream >> marker;
    if (stream.status() != QDataStream::Ok || marker == 0)
        return QImage();
    // Only PNG was ever written here; guessing other formats from damaged bytes would
    // open the file to every image decoder for nothing.
    QImageReader reader(stream.device(), "png");
    reader.setAutoDetectImageFormat(false);
    QImage image = reader.read();
    if (image.isNull()) {
        stream.setStatus(QDataStream::ReadPastEnd);
        return image;
    }
    if (image.format() != QImage::Format_ARGB32)
        image = image.convertToFormat(QImage::Format_ARGB32);
    return image;
}

void StreamImage::write(QDataStream& stream, const QImage& image)
{
    if (image.isNull()) {
        stream << qint32(0);
        return;
    }
    stream << qint32(1);
    if (stream.status() == QDataStream::Ok && !PngWriter::write(image, stream.device()))
        stream.setStatus(QDataStream::WriteFailed);
}
