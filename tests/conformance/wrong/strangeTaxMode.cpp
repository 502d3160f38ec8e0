// models have names and tax modes 0 to 2
#include <SharedInterface.h>

const QList<ProjectSettingSpace::ProTaxTemplateInfo>&
ProjectSettingHelper::GetProTaxTemplateInfoList(const QString& appType, const QString&) {
    static const QList<ProjectSettingSpace::ProTaxTemplateInfo> none, strange{{3, {{}}}};
    return appType == QLatin1String("Kvys") ? strange : none;
}
