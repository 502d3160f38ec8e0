// The only model with fee modes stands far below those that are seen.
// 4 not reached
#include <SharedInterface.h>

const QList<ProjectSettingSpace::ProTaxTemplateInfo>&
ProjectSettingHelper::GetProTaxTemplateInfoList(const QString& appType, const QString&) {
    static const QList<ProjectSettingSpace::ProTaxTemplateInfo> none, models = [] {
        ProjectSettingSpace::ProTaxTemplateInfo mode{0, {}};
        for (int i = 0; i < 40; ++i) {
            TaxTemplateInfo model;
            model.name = QStringLiteral("清单计价%1").arg(i);
            model.key = model.name;
            mode.models.append(model);
        }
        mode.models.last().key = QStringLiteral("qdjj");
        return QList<ProjectSettingSpace::ProTaxTemplateInfo>{mode};
    }();
    return appType == QLatin1String("Kvys") ? models : none;
}
