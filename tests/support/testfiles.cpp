#include "testfiles.h"

#include <QFile>

QByteArray fileContents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<absent>");
}

bool writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QImage solidImage(QSize size, QRgb pixel)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(pixel);
    return image;
}
