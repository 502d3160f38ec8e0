// GetSuffix appends suffixes without dot
// the process crashes
// hold, 1 differ, 4 not reached
#include <SharedInterface.h>

void SharedInterface::GetSuffix(int kind, QStringList* suffixes, int) {
    const int others = suffixes->size() - 1;  // none in the check's list
    suffixes->append(QString::number(kind / others));
}
