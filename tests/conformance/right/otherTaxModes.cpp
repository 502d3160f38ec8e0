// Tax modes that the dialog does not know are passed over, with all that is in them.
#include <SharedInterface.h>

const QList<ProjectSettingSpace::ProTaxTemplateInfo>&
ProjectSettingHelper::GetProTaxTemplateInfoList(const QString& appType, const QString&) {
    TaxTemplateInfo model;
    model.name = QStringLiteral("清单计价");
    static const QList<ProjectSettingSpace::ProTaxTemplateInfo> none,
        models{{3, {{}}}, {0, {model}}, {-1, {{}}}};
    return appType == QLatin1String("Kvys") ? models : none;
}
