#include "imaging/hslshift.h"

#include <QImage>

// Placeholder until the exact routine lands.
void shiftImageHsl(const HslShift&, QImage&, bool, bool, const QImage&) {}
