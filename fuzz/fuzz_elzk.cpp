// libFuzzer target: the .elzk reader on a buffer in memory, then the pair merged as
// the editor opens it.
#include "formats/elementfile.h"
#include "fuzzcheck.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    QBuffer buffer;
    FuzzCheck::readOnly(buffer, QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    QString error;
    const std::optional<ElementFile::Pair> pair =
        ElementFile::read(&buffer, QStringLiteral("fuzz.elzk"), &error);
    if (!pair) {
        if (error.isEmpty())
            std::abort();
        return 0;
    }
    const Character merged = ElementFile::merged(*pair);
    if (merged.elementCount() != pair->first.elementCount() + pair->second.elementCount())
        std::abort();
    FuzzCheck::roundTrip(merged);
    return 0;
}
