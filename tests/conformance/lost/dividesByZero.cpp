// GetSuffix appends suffixes without dot
// the process crashes
// hold, 1 differ, 2 not reached
#include <SharedInterface.h>

void SharedInterface::GetSuffix(int kind, QStringList* suffixes, int) {
    const int known = suffixes->indexOf(QStringLiteral("first"));  // none but the check's
    if (known == 0) suffixes->append(QString::number(kind / known));
}
