// settings are answered as they were set
#include <SharedInterface.h>

void ProjectSettingHelper::SetSysSettingInfo(const ProjectSettingSpace::SysSettingInfo&,
                                             ProjectSettingSpace::ProjectSettingIsTb) {}
