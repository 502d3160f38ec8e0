/// Product area and version of the host.
#pragma once

#include "kvcore.h"

class NEWPRO_HOST_API CpfMain {
  public:
    static CpfMain* GetInstance();
    /// @return true in the Yunnan product area, where the tendering-data import is named
    ///         "导入YFJZ新建" and choosing the budget kind leaves the template tree alone.
    bool IsProdAreaYN() const;
    /// @param version a feature's version, such as 1.3.
    /// @return whether the feature of that version is open.
    bool GetOpenVersion(double version) const;
    /// @param key a key of the area configuration, such as "AreaVer".
    /// @return its value; empty for an unknown key.
    QString GetAreaConfigValue(const QString& key) const;
};
