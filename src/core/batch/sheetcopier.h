#pragma once

#include <QImage>
#include <QList>
#include <QPoint>
#include <QSize>

// The pixel work of the sheet converter: block copies between layouts, the maps of
// columns and rows between the engines, and a nearest-pixel scaling that keeps every
// pixel's bytes. All images handled are 32-bit (Format_ARGB32 or Format_RGB32).
class SheetCopier
{
public:
    // What QImage::pixel gives outside an image; a copy writes it where its source
    // block leaves the source, as the converter always has.
    static constexpr QRgb OutsidePixel = 12345;
    static constexpr QRgb KeyColour = 0xff209c00;    // (32, 156, 0), RPG Maker 2003
    static constexpr QRgb KeyLookalike = 0xff209c01; // an opaque pixel of the key's colour

    // Maps: entry i is the source column or row of destination column or row i.
    static constexpr int ColumnsThreeToFour[4] = {1, 0, 1, 2};
    static constexpr int ColumnsFourToThree[3] = {1, 0, 3};
    static constexpr int RowsFrom2003[4] = {2, 3, 1, 0};
    static constexpr int RowsTo2003[4] = {3, 2, 0, 1};

    // The source as Format_ARGB32, whatever it was read as.
    static QImage normalised(const QImage& image);

    // Copies a block as it is, colour and alpha. A destination outside its image is
    // skipped; a source outside its image gives OutsidePixel.
    static void copyBlock(QImage& destination, const QImage& source, QPoint to, QPoint from,
                          QSize size);
    // Copies a block into an RPG Maker 2003 sheet (Format_RGB32): a transparent pixel
    // becomes the key colour, an opaque pixel of the key's colour its lookalike, and
    // every other pixel its own colour, opaque, without blending.
    static void copyBlockWithKey(QImage& destination, const QImage& source, QPoint to, QPoint from,
                                 QSize size);
    static QRgb keyed(QRgb pixel);

    // Scales to size picking the source pixels that the toolkit's fast scaling of the
    // image as it was read picks, but copying them whole: its ARGB32 path would round
    // see-through colours. Give the image in the format it was read in: the toolkit
    // scales palette images by another rule than 32-bit ones, and picks other pixels.
    // The result is Format_ARGB32.
    static QImage scaledExactly(const QImage& image, QSize size);

    // A new XP or VX destination: opaque white where no block lands.
    static QImage whiteCanvas(QSize size);
    // A new RPG Maker 2003 sheet of 288 by 256 filled with the key colour.
    static QImage keySheet();

private:
    static QList<int> pickedIndexes(int from, int to, QImage::Format format);
};
