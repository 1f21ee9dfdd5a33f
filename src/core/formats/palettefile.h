#pragma once

#include <QColor>
#include <QList>
#include <QString>

class QIODevice;

// Reader and writer of the .zkp palette file: a version byte (0), a little-endian
// 16-bit count, then red, green, blue and alpha bytes per colour. The path forms open
// the file; the device forms do the work and serve tests and fuzzing.
class PaletteFile
{
public:
    static constexpr quint8 Version = 0;

    struct Contents
    {
        int version = -1; // -1 until read
        int count = -1;   // the count the file declares, -1 until read
        QList<QColor> colours;
    };

    // Reads at most maxColours colours; a file declaring more keeps the rest unread.
    // On a refused or damaged file it returns false with the user's message in
    // *error, and contents keeps what was read before the fault.
    static bool read(QIODevice* device, const QString& path, int maxColours, Contents& contents,
                     QString* error);
    // Only a regular file is opened, so a folder or a FIFO fails at once.
    static bool load(const QString& path, int maxColours, Contents& contents, QString* error);

    // Writes the colours in order, at most 65535 of them; false when a write failed.
    static bool write(const QList<QColor>& colours, QIODevice* device);
    // Writes through a save file, so a failed save leaves the old file whole.
    static bool save(const QList<QColor>& colours, const QString& path);
};
