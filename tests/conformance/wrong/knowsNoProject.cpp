// the host's own files can be opened
#include <SharedInterface.h>

int GetProgramTypeByFile(const QString&) {
    return -1;
}
