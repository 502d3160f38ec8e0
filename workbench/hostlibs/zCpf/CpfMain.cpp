#include "zCpf.h"

#include "workbench/hostlibs/common/Host.h"
#include "workbench/journal/Journal.h"

using workbench::Host;
using workbench::journalled;

CpfMain* CpfMain::GetInstance() {
    static CpfMain main;
    return workbench::accessed("CpfMain::GetInstance", &main);
}

bool CpfMain::IsProdAreaYN() const {
    return journalled("CpfMain::IsProdAreaYN", {},
                      [] { return Host::instance().switches().prodAreaYN; });
}

bool CpfMain::GetOpenVersion(double version) const {
    return journalled("CpfMain::GetOpenVersion", {version},
                      [&] { return version <= Host::instance().switches().openVersion; });
}

QString CpfMain::GetAreaConfigValue(const QString& key) const {
    return journalled("CpfMain::GetAreaConfigValue", {key},
                      [&] { return Host::instance().switches().areaConfig.value(key); });
}
