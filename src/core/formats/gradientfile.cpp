#include "formats/gradientfile.h"

#include "formats/fileerrors.h"
#include "formats/safefile.h"

#include <QFile>
#include <QSaveFile>
#include <QtEndian>

#include <cmath>
#include <cstring>

namespace {

// Every field is little-endian; a stop is a binary64 position and four channel bytes.
constexpr qint64 StopSize = 12;

QString damaged(const QString& path)
{
    return path + QStringLiteral(" est endommagé.<br />Il est impossible de l'ouvrir.");
}

bool readBytes(QIODevice* device, uchar* out, qint64 size)
{
    return device->read(reinterpret_cast<char*>(out), size) == size;
}

void appendByte(QByteArray& bytes, int value)
{
    bytes.append(char(quint8(value)));
}

// The position leaves the stops that the toolkit refuses to draw, and those made by a
// click left of the strip, as they are; only values that spoil a gradient are damage.
bool readStop(QIODevice* device, GradientData& stop)
{
    uchar bytes[StopSize];
    if (!readBytes(device, bytes, StopSize))
        return false;
    const quint64 bits = qFromLittleEndian<quint64>(bytes);
    double pos = 0;
    std::memcpy(&pos, &bits, sizeof pos);
    if (!std::isfinite(pos))
        return false;
    stop.pos = pos;
    stop.color = QColor(bytes[8], bytes[9], bytes[10], bytes[11]);
    return true;
}

bool readRest(QIODevice* device, GradientFile::Reading& reading)
{
    GradientRecord& record = reading.record;
    uchar header[4];
    if (!readBytes(device, header, 3) || header[2] > GradientRecord::Conical)
        return false;
    const int count = qFromLittleEndian<quint16>(header);
    record.type = header[2];
    reading.reached = GradientFile::Type;

    if (!readBytes(device, header, 1) || header[0] > 2)
        return false;
    record.spread = header[0];
    reading.reached = GradientFile::Spread;

    const int handles = GradientRecord::handleCount(record.type);
    uchar points[6];
    if (!readBytes(device, points, 2 * handles))
        return false;
    QList<QPointF> read;
    for (int i = 0; i < handles; ++i)
        read.append(QPointF(points[2 * i], points[2 * i + 1]));
    record.setHandles(read);
    reading.reached = GradientFile::Handles;

    // A count that the bytes left cannot hold is damage before anything is made of it.
    record.stops.clear();
    if (!device->isSequential() && device->bytesAvailable() < count * StopSize)
        return false;
    for (int i = 0; i < count; ++i) {
        GradientData stop;
        if (!readStop(device, stop))
            return false;
        record.stops.append(stop);
    }
    reading.reached = GradientFile::Whole;
    return true;
}

} // namespace

GradientFile::Reading GradientFile::read(QIODevice* device, const QString& path)
{
    Reading reading;
    uchar version = 0;
    if (!readBytes(device, &version, 1)) {
        reading.errorText = damaged(path);
        return reading;
    }
    reading.version = version;
    reading.reached = Version;
    if (version != 0) {
        reading.errorText =
            path + QStringLiteral(" a été enregistré avec une version de Zenkora plus récente.");
        return reading;
    }
    if (!readRest(device, reading))
        reading.errorText = damaged(path);
    return reading;
}

GradientFile::Reading GradientFile::load(const QString& path)
{
    QFile file(path);
    if (!SafeFile::openForReading(file)) {
        Reading reading;
        reading.errorText = FileErrors::openForReading(path);
        return reading;
    }
    return read(&file, path);
}

bool GradientFile::write(const GradientRecord& record, QIODevice* device)
{
    if (record.stops.size() > 0xffff)
        return false;
    QByteArray bytes;
    appendByte(bytes, 0);
    appendByte(bytes, int(record.stops.size()));
    appendByte(bytes, int(record.stops.size() >> 8));
    appendByte(bytes, record.type);
    appendByte(bytes, record.spread);
    // Whole pixels, cut towards zero, then to a byte.
    for (const QPointF& point : record.handles()) {
        appendByte(bytes, int(point.x()));
        appendByte(bytes, int(point.y()));
    }
    for (const GradientData& stop : record.stops) {
        uchar pos[8];
        quint64 bits = 0;
        std::memcpy(&bits, &stop.pos, sizeof bits);
        qToLittleEndian(bits, pos);
        bytes.append(reinterpret_cast<const char*>(pos), 8);
        appendByte(bytes, stop.color.red());
        appendByte(bytes, stop.color.green());
        appendByte(bytes, stop.color.blue());
        appendByte(bytes, stop.color.alpha());
    }
    return device->write(bytes) == bytes.size();
}

bool GradientFile::save(const GradientRecord& record, const QString& path, QString* errorText)
{
    QSaveFile file(path);
    if (!SafeFile::openForWriting(file)) {
        if (errorText)
            *errorText = FileErrors::openForWriting(path);
        return false;
    }
    if (!write(record, &file) || !SafeFile::commit(file)) {
        if (errorText)
            *errorText = FileErrors::writeFailed(path);
        return false;
    }
    return true;
}
