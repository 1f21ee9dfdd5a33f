#pragma once

#include <QSize>
#include <QString>

class Character;
class QIODevice;

// Reader and writer of the .zk character file, in its old (0) and current (1)
// versions. The path forms open the file and leave a message for the user in the
// character's errorText; the device forms do the work and serve tests and fuzzing.
class CharacterFile
{
public:
    // The largest sheet side a file may declare; larger ones mark a damaged file.
    static constexpr int MaximumSide = 16384;

    static bool load(Character& character, const QString& path, quint8* version);
    // Writes through a save file, so a failed write leaves the old file whole.
    static bool save(Character& character, const QString& path, quint8 version);

    // Reads a whole file from device; path only names it in messages.
    static bool read(Character& character, QIODevice* device, const QString& path, quint8* version);
    // Writes a whole file; false when a write failed. A version other than 0 and 1
    // writes the header alone.
    static bool write(const Character& character, QIODevice* device, quint8 version);

    static bool isReadableSheetSize(QSize size);
};
