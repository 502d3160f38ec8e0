/// Any bytes as a history entry, as a file's suffix and as a cloud path.
#include <cstddef>
#include <cstdint>

#include "files/fileChoice.h"
#include "files/historyEntry.h"
#include "files/projectFileType.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(bytes), int(size));
    newpro::parseHistoryEntry(text);
    newpro::projectFileType(text);
    newpro::cloudComponents(text);
    return 0;
}
