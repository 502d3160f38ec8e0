/// One target as a libFuzzer program.
#include <QtGlobal>
#include <cstddef>
#include <cstdint>

#include "fuzz/targets.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    // What Qt says of hostile input would hide what libFuzzer says.
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
    static const fuzzing::FuzzOne fuzzOne = fuzzing::targetNamed(FUZZ_TARGET);
    fuzzOne(QByteArray(reinterpret_cast<const char*>(bytes), int(size)));
    return 0;
}
