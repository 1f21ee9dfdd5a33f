#include "formats/characterfilev0.h"

#include "document/character.h"
#include "formats/rawcursor.h"

#include <QDataStream>
#include <QIODevice>

#include <cmath>

namespace {

// The canvas never shows a zoom outside 0.5 to 16; an old file may hold any double,
// and a wild one would make the view allocate without bound.
double readableZoom(double zoom)
{
    if (!std::isfinite(zoom))
        return 1.0;
    return qBound(0.5, zoom, 16.0);
}

QImage readImage(RawCursor& in)
{
    const int width = in.int16();
    const int height = in.int16();
    if (width <= 0 || height <= 0)
        return QImage();
    // Check what the file still holds before allocating what its header claims.
    const uchar* pixels = in.take(qint64(width) * height * 4);
    if (!pixels)
        return QImage();
    QImage image(width, height, QImage::Format_ARGB32);
    if (image.isNull())
        return image;
    for (int x = 0; x < width; ++x) {
        for (int y = 0; y < height; ++y) {
            const uchar* p = pixels + (qint64(x) * height + y) * 4;
            reinterpret_cast<QRgb*>(image.scanLine(y))[x] = qRgba(p[0], p[1], p[2], p[3]);
        }
    }
    return image;
}

// Strings are C strings in this format: a zero byte ends them, a line feed follows.
void writeLine(QDataStream& out, const QByteArray& text)
{
    const qsizetype zero = text.indexOf('\0');
    const qsizetype length = zero < 0 ? text.size() : zero;
    out.writeRawData(text.constData(), int(length));
    out << quint8('\n');
}

// Values wider than 16 bits are cut to their low 16 bits, as the format always did.
qint16 cut16(int value)
{
    return qint16(quint16(value));
}

void writeImage(QDataStream& out, const QImage& source)
{
    if (source.isNull()) {
        out << qint16(0) << qint16(0);
        return;
    }
    const QImage image = source.format() == QImage::Format_ARGB32
                             ? source
                             : source.convertToFormat(QImage::Format_ARGB32);
    const int width = image.width();
    const int height = image.height();
    out << cut16(width) << cut16(height);
    QByteArray pixels(qsizetype(width) * height * 4, Qt::Uninitialized);
    uchar* p = reinterpret_cast<uchar*>(pixels.data());
    for (int x = 0; x < width; ++x) {
        for (int y = 0; y < height; ++y) {
            const QRgb pixel = reinterpret_cast<const QRgb*>(image.constScanLine(y))[x];
            *p++ = uchar(qRed(pixel));
            *p++ = uchar(qGreen(pixel));
            *p++ = uchar(qBlue(pixel));
            *p++ = uchar(qAlpha(pixel));
        }
    }
    out.writeRawData(pixels.constData(), int(pixels.size()));
}

} // namespace

void CharacterFileV0::read(Character& character, const QByteArray& body)
{
    RawCursor in(body);
    const int width = in.int16();
    const int height = in.int16();
    character.setSheetSize(QSize(width, height));
    character.setShowGrid(in.byte() != 0);
    character.setOverflowCells(in.byte() != 0);
    character.setSelectionOnly(in.byte() != 0);
    character.setZoom(readableZoom(in.float64()));
    const int count = character.elementCount();
    const int cells = character.cellCount();
    for (int e = 0; e < count; ++e)
        character.setElementSource(e, in.line());
    for (int e = 0; e < count; ++e)
        character.setElementName(e, in.line());
    for (int e = 0; e < count; ++e)
        character.setVisible(e, in.byte() != 0);
    for (int e = 0; e < count; ++e) {
        for (int c = 0; c < cells; ++c) {
            const int x = in.int16();
            character.setCellPosition(e, c, QPoint(x, in.int16()));
        }
    }
    for (int e = 0; e < count; ++e) {
        for (int c = 0; c < cells; ++c)
            character.setCellImage(e, c, readImage(in));
    }
}

bool CharacterFileV0::write(const Character& character, QIODevice* device)
{
    QDataStream out(device);
    out.setByteOrder(QDataStream::LittleEndian);
    const QSize size = character.sheetSize();
    out << cut16(size.width()) << cut16(size.height());
    out << quint8(character.showGrid()) << quint8(character.overflowCells())
        << quint8(character.selectionOnly()) << character.zoom();
    const int count = character.elementCount();
    const int cells = character.cellCount();
    for (int e = 0; e < count; ++e)
        writeLine(out, character.elementSource(e));
    for (int e = 0; e < count; ++e)
        writeLine(out, character.elementName(e));
    for (int e = 0; e < count; ++e)
        out << quint8(character.isVisible(e));
    for (int e = 0; e < count; ++e) {
        for (int c = 0; c < cells; ++c) {
            const QPoint p = character.cellPosition(e, c);
            out << cut16(p.x()) << cut16(p.y());
        }
    }
    for (int e = 0; e < count; ++e) {
        for (int c = 0; c < cells; ++c)
            writeImage(out, character.cellImage(e, c));
    }
    return out.status() == QDataStream::Ok;
}
