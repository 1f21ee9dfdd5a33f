#pragma once

#include "imaging/gradientrecord.h"

#include <QString>

class QIODevice;

// Reader and writer of the .zkd gradient file. A read that fails part way says how far
// it got, since the editor keeps what was read before the damage: the type as soon as
// it is read, the spread after it, the handles once all are read, the stops only from
// a whole file. The path forms open the file; the device forms do the work and serve
// tests and fuzzing.
class GradientFile
{
public:
    // Each stage includes those before it.
    enum Stage
    {
        Nothing,
        Version,
        Type,
        Spread,
        Handles,
        Whole
    };

    struct Reading
    {
        // Fields past the stage reached keep their defaults; the stops hold those read
        // before the damage.
        GradientRecord record;
        quint8 version = 0;
        Stage reached = Nothing;
        QString errorText; // for the user, empty after a whole read
        bool ok() const { return reached == Whole; }
    };

    static Reading load(const QString& path);
    // Reads a whole file from device; path only names it in messages.
    static Reading read(QIODevice* device, const QString& path);

    // Writes through a save file, so a failed write leaves the old file whole.
    static bool save(const GradientRecord& record, const QString& path,
                     QString* errorText = nullptr);
    // False when a write failed or the stops do not fit the file's 16-bit count.
    static bool write(const GradientRecord& record, QIODevice* device);
};
