#pragma once

#include <QString>

class Character;

// Reader and writer of the .zk character file (versions 0 and 1).
class CharacterFile
{
public:
    static bool load(Character& character, const QString& path, quint8* version);
    static bool save(Character& character, const QString& path, quint8 version);
};
