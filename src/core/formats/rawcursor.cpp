#include "formats/rawcursor.h"

#include <QtEndian>

#include <algorithm>
#include <cstring>

void RawCursor::read(void* to, int count)
{
    const qint64 available = std::min<qint64>(count, remaining());
    std::memset(to, 0, size_t(count));
    if (available > 0)
        std::memcpy(to, m_data.constData() + m_position, size_t(available));
    m_position += available;
}

quint8 RawCursor::byte()
{
    quint8 value;
    read(&value, 1);
    return value;
}

qint16 RawCursor::int16()
{
    uchar bytes[2];
    read(bytes, 2);
    return qFromLittleEndian<qint16>(bytes);
}

double RawCursor::float64()
{
    uchar bytes[8];
    read(bytes, 8);
    const quint64 bits = qFromLittleEndian<quint64>(bytes);
    double value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

QByteArray RawCursor::line()
{
    const qint64 end = m_data.indexOf('\n', m_position);
    const qint64 stop = end < 0 ? m_data.size() : end;
    const QByteArray text = m_data.mid(m_position, stop - m_position);
    m_position = end < 0 ? stop : stop + 1;
    return text;
}

const uchar* RawCursor::take(qint64 count)
{
    if (count > remaining()) {
        m_position = m_data.size();
        return nullptr;
    }
    const uchar* bytes = reinterpret_cast<const uchar*>(m_data.constData()) + m_position;
    m_position += count;
    return bytes;
}
