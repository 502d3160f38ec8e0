// GetSuffix appends suffixes without dot
#include <SharedInterface.h>

void SharedInterface::GetSuffix(int, QStringList* suffixes, int) {
    suffixes->append(QStringLiteral(".GCFX"));
}
