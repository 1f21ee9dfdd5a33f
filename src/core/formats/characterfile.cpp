#include "formats/characterfile.h"

// Placeholder until the reader and writer land.
bool CharacterFile::load(Character&, const QString&, quint8*) { return false; }
bool CharacterFile::save(Character&, const QString&, quint8) { return false; }
