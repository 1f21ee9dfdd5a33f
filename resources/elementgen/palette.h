#pragma once

#include "sprite.h"

// The colours of the library. Skin appears only in bodies and each hair colour only in
// its hair; every garment has a hue of its own, never a grey, so that the editor's hue
// shift gives it another colour.
namespace Palette {

Ramp skin();
QRgb eyeDark();
QRgb eyeIris();
QRgb eyeLight();
QRgb lips();
Ramp underwear();

} // namespace Palette
