#include "formats/characterfilev1.h"

#include "document/character.h"
#include "formats/streamimage.h"

#include <QDataStream>
#include <QString>

namespace {

// Model strings are Latin-1 bytes; the stream holds them as UTF-16 (characters above
// U+00FF, which only a foreign writer could put there, come back as '?').
QByteArray readString(QDataStream& in)
{
    QString text;
    in >> text;
    return text.toLatin1();
}

// Written by hand rather than through QString so that an empty string is stored as
// empty (length 0), never as a null string; a zero byte ends the string, as it always
// did when the 8-bit text was widened.
void writeString(QDataStream& out, const QByteArray& text)
{
    const qsizetype zero = text.indexOf('\0');
    const qsizetype length = zero < 0 ? text.size() : zero;
    QByteArray units(length * 2, '\0');
    for (qsizetype i = 0; i < length; ++i)
        units[2 * i + 1] = text.at(i);
    out << quint32(units.size());
    out.writeRawData(units.constData(), int(units.size()));
}

bool readElements(Character& character, QDataStream& in)
{
    const int count = character.elementCount();
    for (int e = 0; e < count; ++e)
        character.setElementSource(e, readString(in));
    for (int e = 0; e < count; ++e)
        character.setElementName(e, readString(in));
    for (int e = 0; e < count; ++e) {
        bool visible = false;
        in >> visible;
        character.setVisible(e, visible);
    }
    return in.status() == QDataStream::Ok;
}

} // namespace

bool CharacterFileV1::read(Character& character, QDataStream& in)
{
    QSize size;
    qint32 fillPixel = 0;
    in >> size >> fillPixel;
    character.setSheetSize(size);
    character.setFillPixel(fillPixel);
    if (!readElements(character, in))
        return false;
    const int count = character.elementCount();
    const int cells = character.cellCount();
    for (int e = 0; e < count; ++e) {
        for (int c = 0; c < cells; ++c) {
            QPoint point;
            in >> point;
            character.setCellPosition(e, c, point);
        }
    }
    // Stop at the first image that fails: the file is damaged whatever follows.
    for (int e = 0; e < count && in.status() == QDataStream::Ok; ++e) {
        for (int c = 0; c < cells && in.status() == QDataStream::Ok; ++c)
            character.setCellImage(e, c, StreamImage::read(in));
    }
    return in.status() == QDataStream::Ok;
}

void CharacterFileV1::write(const Character& character, QDataStream& out)
{
    out << character.sheetSize() << qint32(character.fillPixel());
    const int count = character.elementCount();
    const int cells = character.cellCount();
    for (int e = 0; e < count; ++e)
        writeString(out, character.elementSource(e));
    for (int e = 0; e < count; ++e)
        writeString(out, character.elementName(e));
    for (int e = 0; e < count; ++e)
        out << character.isVisible(e);
    for (int e = 0; e < count; ++e) {
        for (int c = 0; c < cells; ++c)
            out << character.cellPosition(e, c);
    }
    for (int e = 0; e < count && out.status() == QDataStream::Ok; ++e) {
        for (int c = 0; c < cells; ++c)
            StreamImage::write(out, character.cellImage(e, c));
    }
}
