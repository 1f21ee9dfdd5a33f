#include "document/kindconversion.h"

// Placeholder until the conversions land.
void KindConversion::toVX(Character&) {}
void KindConversion::toXP(Character&) {}
void KindConversion::insert(Character&, const Character&, int, bool) {}
