#pragma once

#include <QIODevice>
#include <QImage>
#include <QString>

class QFile;
class QSaveFile;

// The two rules every file of the user obeys. Reading: only a regular file is opened,
// since opening a FIFO or a device blocks until someone writes to it. Writing: a save
// file is committed only when all its bytes reached the disk, since QSaveFile::commit()
// renames the temporary file over the old one even when its own last flush failed (a
// full disk, a file-size limit), which would leave a cut file behind a success.
class SafeFile
{
public:
    // True when path names a regular file, links resolved.
    static bool isRegularFile(const QString& path);
    // Opens file for reading when its path is a regular file; false otherwise.
    static bool openForReading(QFile& file, QIODevice::OpenMode mode = QIODevice::ReadOnly);
    // The picture in a regular file, its format taken from the bytes rather than the
    // name (a PNG named ".gif" is read); null when it cannot be read.
    static QImage readImage(const QString& path);
    // Opens a save file; a writable file in a folder that refuses new files is then
    // written in place.
    static bool openForWriting(QSaveFile& file);
    // Flushes, then commits; on a failed flush or an earlier write error the temporary
    // file is dropped and the old file stays whole.
    static bool commit(QSaveFile& file);
};
