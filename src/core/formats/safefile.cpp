#include "formats/safefile.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QSaveFile>

bool SafeFile::isRegularFile(const QString& path)
{
    return !path.isEmpty() && QFileInfo(path).isFile();
}

bool SafeFile::openForReading(QFile& file, QIODevice::OpenMode mode)
{
    return isRegularFile(file.fileName()) && file.open(mode);
}

QImage SafeFile::readImage(const QString& path)
{
    if (!isRegularFile(path))
        return QImage();
    QImageReader reader(path);
    reader.setDecideFormatFromContent(true);
    return reader.read();
}

bool SafeFile::openForWriting(QSaveFile& file)
{
    file.setDirectWriteFallback(true);
    return file.open(QIODevice::WriteOnly);
}

bool SafeFile::commit(QSaveFile& file)
{
    if (file.error() != QFileDevice::NoError || !file.flush()) {
        file.cancelWriting();
        // cancelWriting() only marks the file; commit() then drops the temporary.
        file.commit();
        return false;
    }
    return file.commit();
}
