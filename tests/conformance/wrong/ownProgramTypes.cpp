// the host's own files can be opened
#include <SharedInterface.h>

int GetProgramTypeByFile(const QString& path) {
    return path.endsWith(QLatin1String("GCFX"), Qt::CaseInsensitive) ? 77 : -1;
}
