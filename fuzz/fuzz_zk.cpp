// libFuzzer target: the .zk reader, both versions, on a buffer in memory.
#include "fuzzcheck.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    QBuffer buffer;
    FuzzCheck::readOnly(buffer, QByteArray(reinterpret_cast<const char*>(data), qsizetype(size)));
    Character character;
    quint8 version = 0;
    if (CharacterFile::read(character, &buffer, QStringLiteral("fuzz.zk"), &version))
        FuzzCheck::roundTrip(character);
    return 0;
}
