// models are the same whatever the tax mode asked for
// the Excel import can be cancelled
#include <SharedInterface.h>

#include <stdexcept>

const QList<ProjectSettingSpace::ProTaxTemplateInfo>&
ProjectSettingHelper::GetProTaxTemplateInfoList(const QString& appType, const QString& taxMode) {
    static const QList<ProjectSettingSpace::ProTaxTemplateInfo> none;
    if (appType == QLatin1String("Kvys") && taxMode.isEmpty()) throw std::out_of_range("no mode");
    return none;
}
