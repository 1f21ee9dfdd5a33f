// libFuzzer target: the .zkp palette reader, on a buffer in memory, for the colour
// box's grid and for the tool's whole file.
#include "formats/palettefile.h"

#include <QBuffer>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

void check(bool condition, const char* what)
{
    if (!condition) {
        std::fprintf(stderr, "%s\n", what);
        std::abort();
    }
}

PaletteFile::Contents readBytes(const QByteArray& bytes, int maxColours, bool* read)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    PaletteFile::Contents contents;
    QString error;
    *read = PaletteFile::read(&buffer, QStringLiteral("fuzz.zkp"), maxColours, contents, &error);
    check(*read || !error.isEmpty(), "a refused palette without a message");
    check(contents.colours.size() <= maxColours, "more colours than asked for");
    return contents;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    bool whole = false;
    const PaletteFile::Contents all = readBytes(bytes, 0xffff, &whole);
    bool grid = false;
    const PaletteFile::Contents box = readBytes(bytes, 120, &grid);
    // The grid's colours are the first of the whole file's.
    check(all.colours.mid(0, box.colours.size()) == box.colours, "the grid read other colours");
    if (!whole)
        return 0;
    // What was read whole writes back to the same bytes, surplus bytes left out.
    QBuffer out;
    out.open(QIODevice::WriteOnly);
    check(PaletteFile::write(all.colours, &out), "writing failed");
    check(out.data() == bytes.left(3 + 4 * all.colours.size()), "the round trip changed bytes");
    return 0;
}
