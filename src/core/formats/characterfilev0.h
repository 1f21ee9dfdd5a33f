#pragma once

#include <QByteArray>

class Character;
class QIODevice;

// The body of the old character file (version 0): raw little-endian fields, strings
// ended by a line feed, and pixels stored column by column. It keeps the view flags
// and the zoom, and no fill pixel.
class CharacterFileV0
{
public:
    // Fills character (already sized by the header) from the bytes after the header.
    // A cut body loads with the missing bytes read as zero.
    static void read(Character& character, const QByteArray& body);
    static bool write(const Character& character, QIODevice* device);
};
