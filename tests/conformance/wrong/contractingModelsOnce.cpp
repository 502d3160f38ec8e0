// the ribbon goes to general contracting and back
#include <SharedInterface.h>

#include <stdexcept>

const QList<ProjectSettingSpace::ProTaxTemplateInfo>&
ProjectSettingHelper::GetProTaxTemplateInfoList(const QString& appType, const QString&) {
    static const QList<ProjectSettingSpace::ProTaxTemplateInfo> none;
    static int asked = 0;
    if (appType == QLatin1String("Kvzcb") && ++asked > 1) throw std::logic_error("asked again");
    return none;
}
