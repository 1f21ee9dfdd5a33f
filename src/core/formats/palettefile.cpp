#include "formats/palettefile.h"

#include "formats/fileerrors.h"
#include "formats/safefile.h"
#include "imaging/classichsv.h"

#include <QFile>
#include <QSaveFile>

#include <algorithm>

namespace {

constexpr int MaximumCount = 0xffff;

QString damaged(const QString& path)
{
    return path + QStringLiteral(" est endommagé.<br />Il est impossible de l'ouvrir.");
}

// Reads exactly size bytes; a short read is a damaged file.
bool readBytes(QIODevice* device, uchar* bytes, qint64 size)
{
    return device->read(reinterpret_cast<char*>(bytes), size) == size;
}

bool fail(QString* error, const QString& message)
{
    if (error)
        *error = message;
    return false;
}

} // namespace

bool PaletteFile::read(QIODevice* device, const QString& path, int maxColours, Contents& contents,
                       QString* error)
{
    uchar version = 0;
    if (!readBytes(device, &version, 1))
        return fail(error, damaged(path));
    contents.version = version;
    if (version != Version) {
        return fail(error, path + QStringLiteral(" a été enregistré avec une version de Zenkora "
                                                 "plus récente."));
    }
    uchar count[2] = {0, 0};
    if (!readBytes(device, count, 2))
        return fail(error, damaged(path));
    contents.count = count[0] | count[1] << 8;
    const int wanted = std::max(std::min(contents.count, maxColours), 0);
    // A count promises colours that a short file does not hold: room is made only for
    // the bytes there are.
    if (!device->isSequential())
        contents.colours.reserve(
            std::clamp<qint64>((device->size() - device->pos()) / 4, 0, wanted));
    for (int i = 0; i < wanted; ++i) {
        uchar rgba[4];
        if (!readBytes(device, rgba, 4))
            return fail(error, damaged(path));
        contents.colours.append(QColor(rgba[0], rgba[1], rgba[2], rgba[3]));
    }
    return true;
}

bool PaletteFile::load(const QString& path, int maxColours, Contents& contents, QString* error)
{
    QFile file(path);
    if (!SafeFile::openForReading(file))
        return fail(error, FileErrors::openForReading(path));
    return read(&file, path, maxColours, contents, error);
}

bool PaletteFile::write(const QList<QColor>& colours, QIODevice* device)
{
    const int count = int(std::min<qsizetype>(colours.size(), MaximumCount));
    QByteArray bytes;
    bytes.reserve(3 + 4 * count);
    bytes.append(char(Version));
    bytes.append(char(count & 0xff));
    bytes.append(char(count >> 8));
    for (int i = 0; i < count; ++i) {
        const QColor rgb = ClassicHsv::toRgb(colours.at(i));
        bytes.append(char(rgb.red()));
        bytes.append(char(rgb.green()));
        bytes.append(char(rgb.blue()));
        bytes.append(char(rgb.alpha()));
    }
    return device->write(bytes) == bytes.size();
}

bool PaletteFile::save(const QList<QColor>& colours, const QString& path)
{
    QSaveFile file(path);
    if (!SafeFile::openForWriting(file))
        return false;
    if (!write(colours, &file)) {
        file.cancelWriting();
        file.commit();
        return false;
    }
    return SafeFile::commit(file);
}
