#pragma once

class Character;
class QDataStream;

// The body of the current character file (version 1): a big-endian data stream at
// version 11 holding the sheet size, the fill pixel, the strings as UTF-16 and each
// cell image as a PNG. It keeps no zoom and no view flags.
class CharacterFileV1
{
public:
    // Fills character (already sized by the header); false when the stream failed.
    static bool read(Character& character, QDataStream& in);
    static void write(const Character& character, QDataStream& out);
};
