// an unknown application type has no models
#include <SharedInterface.h>

const QList<ProjectSettingSpace::ProTaxTemplateInfo>&
ProjectSettingHelper::GetProTaxTemplateInfoList(const QString&, const QString&) {
    static const QList<ProjectSettingSpace::ProTaxTemplateInfo> always{{0, {{}}}};
    return always;
}
