#pragma once

#include <QImage>

// The colour table of an RPG Maker 2003 sheet. That engine reads 256-colour sheets and
// draws palette index 0 as transparent, so the key colour goes at index 0, on exactly
// the pixels that hold it. A sheet of up to 256 colours, key included, keeps every
// pixel; a richer one has its other colours reduced to at most 255 picked from the
// sheet itself, each pixel taking the nearest, without dithering: dithered pixel art
// is noise.
class SheetPalette
{
public:
    // The sheet as Format_Indexed8 with opaque colours, the key first; null when the
    // quantiser fails. Alpha is ignored: a 2003 sheet is opaque.
    static QImage indexed(const QImage& sheet);
};
