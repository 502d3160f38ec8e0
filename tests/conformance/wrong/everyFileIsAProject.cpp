// what is no project file has the type -1
#include <SharedInterface.h>

int GetProgramTypeByFile(const QString&) {
    return 4;
}
