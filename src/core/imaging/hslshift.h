#pragma once

class QImage;

// A change of hue, saturation and luminosity: the hue in degrees (an offset, or the
// hue itself when redefined), saturation and luminosity in percent, -100 to 100.
struct HslShift
{
    float hue = 0;
    float saturation = 0;
    float luminosity = 0;
};

// Changes the hue, saturation and luminosity of every pixel of image whose source
// pixel is not fully transparent. With fromSource, colours are read from source (of
// the same size) and written to image; otherwise image is read and written.
void shiftImageHsl(const HslShift& shift, QImage& image, bool redefine, bool fromSource,
                   const QImage& source);
