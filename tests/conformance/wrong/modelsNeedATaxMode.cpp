// models are the same whatever the tax mode asked for
#include <SharedInterface.h>

const QList<ProjectSettingSpace::ProTaxTemplateInfo>&
ProjectSettingHelper::GetProTaxTemplateInfoList(const QString& appType, const QString& taxMode) {
    TaxTemplateInfo model;
    model.name = QStringLiteral("清单计价");
    static const QList<ProjectSettingSpace::ProTaxTemplateInfo> none, models{{0, {model}}};
    return appType == QLatin1String("Kvys") && !taxMode.isEmpty() ? models : none;
}
