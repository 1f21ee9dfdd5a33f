#include "formats/characterfile.h"

#include "document/character.h"
#include "formats/characterfilev0.h"
#include "formats/characterfilev1.h"
#include "formats/fileerrors.h"
#include "formats/safefile.h"

#include <QDataStream>
#include <QFile>
#include <QSaveFile>

namespace {

QString damaged(const QString& path)
{
    return path + QStringLiteral(" est endommagé.<br />Il est impossible de l'ouvrir.");
}

bool readBody(Character& character, QIODevice* device, quint8 version)
{
    if (version == 0) {
        CharacterFileV0::read(character, device->readAll());
        return true;
    }
    QDataStream in(device);
    in.setVersion(QDataStream::Qt_4_5);
    return CharacterFileV1::read(character, in);
}

} // namespace

bool CharacterFile::isReadableSheetSize(QSize size)
{
    return size.width() > 0 && size.height() > 0 && size.width() <= MaximumSide &&
           size.height() <= MaximumSide;
}

bool CharacterFile::read(Character& character, QIODevice* device, const QString& path,
                         quint8* version)
{
    // The header is three raw bytes; like the rest of an old file, missing ones read
    // as zero (an empty file then fails on its sheet size).
    uchar header[3] = {0, 0, 0};
    device->read(reinterpret_cast<char*>(header), 3);
    if (version)
        *version = header[0];
    character.setKind(header[1]);
    character.resetElements(header[2]);
    if (header[0] >= 2) {
        character.setErrorText(
            path + QStringLiteral(" a été enregistré avec une version de Zenkora plus récente."));
        return false;
    }
    if (!readBody(character, device, header[0]) || !isReadableSheetSize(character.sheetSize())) {
        character.setErrorText(damaged(path));
        return false;
    }
    return true;
}

bool CharacterFile::write(const Character& character, QIODevice* device, quint8 version)
{
    const char header[3] = {char(version), char(character.kind()), char(character.elementCount())};
    if (device->write(header, 3) != 3)
        return false;
    if (version == 0)
        return CharacterFileV0::write(character, device);
    if (version != 1)
        return true;
    QDataStream out(device);
    out.setVersion(QDataStream::Qt_4_5);
    CharacterFileV1::write(character, out);
    return out.status() == QDataStream::Ok;
}

bool CharacterFile::load(Character& character, const QString& path, quint8* version)
{
    QFile file(path);
    if (!SafeFile::openForReading(file)) {
        character.setErrorText(FileErrors::openForReading(path));
        return false;
    }
    return read(character, &file, path, version);
}

bool CharacterFile::save(Character& character, const QString& path, quint8 version)
{
    QSaveFile file(path);
    if (!SafeFile::openForWriting(file)) {
        character.setErrorText(FileErrors::openForWriting(path));
        return false;
    }
    if (!write(character, &file, version) || !SafeFile::commit(file)) {
        character.setErrorText(FileErrors::writeFailed(path));
        return false;
    }
    return true;
}
