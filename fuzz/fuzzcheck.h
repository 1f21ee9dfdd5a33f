#pragma once

#include "document/character.h"
#include "formats/characterfile.h"

#include <QBuffer>

#include <cstdio>
#include <cstdlib>

// Checks shared by the fuzz targets: whatever a reader accepts must survive the
// writer and the composition without fault.
class FuzzCheck
{
public:
    static QBuffer* readOnly(QBuffer& buffer, const QByteArray& bytes)
    {
        buffer.setData(bytes);
        buffer.open(QIODevice::ReadOnly);
        return &buffer;
    }

    static QByteArray written(const Character& character, quint8 version)
    {
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        if (!CharacterFile::write(character, &buffer, version)) {
            std::fprintf(stderr, "writing version %d failed\n", version);
            std::abort();
        }
        return buffer.data();
    }

    // Composition of sheets small enough to stay fast; positions that far out are no
    // business of the readers.
    static void compose(const Character& character)
    {
        const QSize size = character.sheetSize();
        if (size.width() * qint64(size.height()) > 256 * 256)
            return;
        for (const QList<QPoint>& points : character.cellPositions()) {
            for (const QPoint& p : points) {
                if (qAbs(qint64(p.x())) > (1 << 24) || qAbs(qint64(p.y())) > (1 << 24))
                    return;
            }
        }
        character.compose();
    }

    // A loaded character saves in both versions and loads again; the current version
    // gives the same bytes once it has been through its own reader.
    static void roundTrip(const Character& character)
    {
        const QByteArray current = written(character, 1);
        Character again;
        QBuffer buffer;
        if (!CharacterFile::read(again, readOnly(buffer, current), QStringLiteral("again.zk"),
                                 nullptr) ||
            written(again, 1) != current) {
            std::fprintf(stderr, "version 1 round trip failed\n");
            std::abort();
        }
        const QByteArray old = written(character, 0);
        Character oldAgain;
        QBuffer oldBuffer;
        if (!CharacterFile::read(oldAgain, readOnly(oldBuffer, old), QStringLiteral("old.zk"),
                                 nullptr)) {
            std::fprintf(stderr, "version 0 round trip failed\n");
            std::abort();
        }
        compose(character);
    }
};
