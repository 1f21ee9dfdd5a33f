// libFuzzer target: the .zkd reader on a buffer in memory. Whatever it accepts must
// write back as the very bytes it read.
#include "formats/gradientfile.h"

#include <QBuffer>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), qsizetype(size));
    QBuffer input;
    input.setData(bytes);
    input.open(QIODevice::ReadOnly);
    const GradientFile::Reading reading = GradientFile::read(&input, QStringLiteral("fuzz.zkd"));
    if (reading.ok() != reading.errorText.isEmpty()) {
        std::fprintf(stderr, "a failed read without a message, or the reverse\n");
        std::abort();
    }
    if (!reading.ok())
        return 0;
    QBuffer output;
    output.open(QIODevice::WriteOnly);
    if (!GradientFile::write(reading.record, &output) || output.data() != bytes.left(input.pos())) {
        std::fprintf(stderr, "the gradient does not write back as read\n");
        std::abort();
    }
    return 0;
}
