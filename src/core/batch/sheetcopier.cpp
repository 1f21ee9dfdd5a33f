#include "batch/sheetcopier.h"

#include <QList>

QImage SheetCopier::normalised(const QImage& image)
{
    return image.format() == QImage::Format_ARGB32 ? image
                                                   : image.convertToFormat(QImage::Format_ARGB32);
}

// Both copies run over the destination rows that exist, and read each source pixel
// only where the source has one.
template <typename Transform>
static void copyWith(QImage& destination, const QImage& source, QPoint to, QPoint from, QSize size,
                     Transform transform)
{
    const int firstX = std::max(0, -to.x());
    const int lastX = std::min(size.width(), destination.width() - to.x());
    for (int y = std::max(0, -to.y()); y < size.height(); ++y) {
        const int dy = to.y() + y;
        if (dy >= destination.height())
            break;
        QRgb* line = reinterpret_cast<QRgb*>(destination.scanLine(dy));
        const int sy = from.y() + y;
        const bool rowInside = sy >= 0 && sy < source.height();
        const QRgb* sourceLine =
            rowInside ? reinterpret_cast<const QRgb*>(source.constScanLine(sy)) : nullptr;
        for (int x = firstX; x < lastX; ++x) {
            const int sx = from.x() + x;
            const QRgb pixel = rowInside && sx >= 0 && sx < source.width()
                                   ? sourceLine[sx]
                                   : SheetCopier::OutsidePixel;
            line[to.x() + x] = transform(pixel);
        }
    }
}

void SheetCopier::copyBlock(QImage& destination, const QImage& source, QPoint to, QPoint from,
                            QSize size)
{
    copyWith(destination, source, to, from, size, [](QRgb pixel) { return pixel; });
}

void SheetCopier::copyBlockWithKey(QImage& destination, const QImage& source, QPoint to,
                                   QPoint from, QSize size)
{
    copyWith(destination, source, to, from, size, &SheetCopier::keyed);
}

QRgb SheetCopier::keyed(QRgb pixel)
{
    if (qAlpha(pixel) == 0)
        return KeyColour;
    if ((pixel & 0x00ffffff) == (KeyColour & 0x00ffffff))
        return KeyLookalike;
    return pixel | 0xff000000;
}

namespace {

// The toolkit scales 1- and 8-bit palette images by its own transformation code and
// every other format through its painter: the two pick other pixels (576 columns to
// 288 take the odd ones in the first, the even ones in the second).
bool scalesAsPalette(QImage::Format format)
{
    return format == QImage::Format_Mono || format == QImage::Format_MonoLSB ||
           format == QImage::Format_Indexed8;
}

QList<int> paletteIndexes(int from, int to)
{
    // A palette strip holds 256 values, so the index goes in two passes, a byte each.
    QList<QRgb> greys(256);
    for (int k = 0; k < 256; ++k)
        greys[k] = qRgb(k, k, k);
    QList<int> indexes(to, 0);
    for (int pass = 0; pass < 2; ++pass) {
        QImage strip(from, 1, QImage::Format_Indexed8);
        strip.setColorTable(greys);
        uchar* line = strip.scanLine(0);
        for (int i = 0; i < from; ++i)
            line[i] = uchar(pass == 0 ? i & 0xff : i >> 8);
        const QImage scaled = strip.scaled(to, 1, Qt::IgnoreAspectRatio, Qt::FastTransformation);
        const uchar* picked = scaled.constScanLine(0);
        for (int i = 0; i < to; ++i)
            indexes[i] |= int(picked[i]) << (8 * pass);
    }
    return indexes;
}

QList<int> paintedIndexes(int from, int to)
{
    QImage strip(from, 1, QImage::Format_RGB32);
    QRgb* line = reinterpret_cast<QRgb*>(strip.scanLine(0));
    for (int i = 0; i < from; ++i)
        line[i] = 0xff000000 | QRgb(i);
    const QImage scaled = strip.scaled(to, 1, Qt::IgnoreAspectRatio, Qt::FastTransformation)
                              .convertToFormat(QImage::Format_RGB32);
    const QRgb* picked = reinterpret_cast<const QRgb*>(scaled.constScanLine(0));
    QList<int> indexes(to);
    for (int i = 0; i < to; ++i)
        indexes[i] = int(picked[i] & 0x00ffffff);
    return indexes;
}

} // namespace

QList<int> SheetCopier::pickedIndexes(int from, int to, QImage::Format format)
{
    // A strip whose pixels hold their own index, scaled by the toolkit in the rule of
    // the source's format: what lands where says which source pixel is picked. The
    // scaling is separable, so one strip per axis tells the whole picture.
    return scalesAsPalette(format) ? paletteIndexes(from, to) : paintedIndexes(from, to);
}

QImage SheetCopier::scaledExactly(const QImage& image, QSize size)
{
    if (image.isNull())
        return image;
    const QImage source = normalised(image);
    if (image.size() == size)
        return source;
    const QList<int> columns = pickedIndexes(source.width(), size.width(), image.format());
    const QList<int> rows = pickedIndexes(source.height(), size.height(), image.format());
    QImage result(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y) {
        const QRgb* sourceLine = reinterpret_cast<const QRgb*>(source.constScanLine(rows[y]));
        QRgb* line = reinterpret_cast<QRgb*>(result.scanLine(y));
        for (int x = 0; x < size.width(); ++x)
            line[x] = sourceLine[columns[x]];
    }
    return result;
}

QImage SheetCopier::whiteCanvas(QSize size)
{
    QImage image(size, QImage::Format_ARGB32);
    image.fill(0xffffffffu);
    return image;
}

QImage SheetCopier::keySheet()
{
    QImage sheet(288, 256, QImage::Format_RGB32);
    sheet.fill(KeyColour);
    return sheet;
}
