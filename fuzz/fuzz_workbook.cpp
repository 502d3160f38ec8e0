/// Any bytes as a workbook.
#include <QTemporaryFile>
#include <cstddef>
#include <cstdint>

#include "SharedInterface.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
    QTemporaryFile file;
    if (!file.open()) return 0;
    file.write(reinterpret_cast<const char*>(bytes), qint64(size));
    file.flush();
    LibXLExcel::Open(file.fileName());
    return 0;
}
