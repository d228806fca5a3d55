// Any bytes, read as a binary drawing: the mark of the format is put before them.

#include "support/DrawingFuzz.h"

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const QByteArray head =
        QByteArray::fromHex("4175746f4341442042696e617279204458460d0a1a00");
    QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    if (!bytes.startsWith(head))
        bytes.prepend(head);
    drawing_fuzz::exercise(bytes);
    return 0;
}
