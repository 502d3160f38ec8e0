// models have names
#include <SharedInterface.h>

const QList<ProjectSettingSpace::ProTaxTemplateInfo>&
ProjectSettingHelper::GetProTaxTemplateInfoList(const QString& appType, const QString&) {
    static const QList<ProjectSettingSpace::ProTaxTemplateInfo> none, nameless{{0, {{}}}};
    return appType == QLatin1String("Kvys") ? nameless : none;
}
