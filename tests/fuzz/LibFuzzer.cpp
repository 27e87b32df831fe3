// What libFuzzer calls (https://llvm.org/docs/LibFuzzer.html). It brings the main() itself.
#include "Fuzz.h"

#include <QCoreApplication>

#include <cstdint>

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    static const QCoreApplication application(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    quillmere::fuzz::feed(QByteArray(reinterpret_cast<const char *>(data), qsizetype(size)));
    return 0;
}
