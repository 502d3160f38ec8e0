#include "SharedInterface.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/journal/journalled.h"

TranMiUtilAction* TranMiUtilAction::Instance() {
    static TranMiUtilAction action;
    return workbench::accessed("TranMiUtilAction::Instance", &action);
}

QString TranMiUtilAction::JudageValue(const QString& key, const QString& fallback) {
    return workbench::journalled("TranMiUtilAction::JudageValue", {key, fallback}, [&] {
        return workbench::Host::instance().switches().transactions.value(key, fallback);
    });
}
