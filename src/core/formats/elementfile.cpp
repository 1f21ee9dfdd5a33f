#include "formats/elementfile.h"

// Placeholder until the reader and writer land.
bool ElementFile::write(const QString&, const QList<QImage>&, int, int, QString*) { return false; }
std::optional<ElementFile::Pair> ElementFile::load(const QString&, QString*) { return {}; }
Character ElementFile::merged(const Pair& pair) { return pair.first; }
