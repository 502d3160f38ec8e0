// unknown keys answer the fallback
#include <SharedInterface.h>

QString TranMiUtilAction::JudageValue(const QString&, const QString&) {
    return QString();
}
