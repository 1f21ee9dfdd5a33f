#include "palette.h"

namespace Palette {

Ramp skin()
{
    return Ramp::of(24, 62, 34, 64, 75, 84);
}

QRgb eyeDark()
{
    return hslColour(20, 45, 16);
}

QRgb eyeIris()
{
    return hslColour(205, 45, 38);
}

QRgb eyeLight()
{
    return hslColour(205, 40, 92);
}

QRgb lips()
{
    return hslColour(8, 55, 55);
}

Ramp underwear()
{
    return Ramp::of(215, 38, 24, 42, 55, 68);
}

} // namespace Palette
