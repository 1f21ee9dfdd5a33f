#pragma once

#include <QByteArray>

// Walks the little-endian fields of an old (version 0) character file held in memory.
// Bytes past the end read as zero: that format has always loaded a cut file without a
// word, with whatever its buffers held.
class RawCursor
{
public:
    explicit RawCursor(const QByteArray& data) : m_data(data) {}

    quint8 byte();
    qint16 int16();
    double float64();
    // The bytes up to the next 0x0A (which is consumed), or to the end of the data.
    QByteArray line();

    qint64 remaining() const { return m_data.size() - m_position; }
    // count bytes in place, or nullptr (and the cursor at the end) if fewer remain:
    // a caller checks what the file holds before it allocates for it.
    const uchar* take(qint64 count);

private:
    void read(void* to, int count);

    QByteArray m_data;
    qint64 m_position = 0;
};
