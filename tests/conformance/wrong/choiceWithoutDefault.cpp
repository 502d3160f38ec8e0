// a choice of fee modes has a default among them
#include <SharedInterface.h>

ProjectSettingSpace::PricingModelInfoMap ProjectSettingHelper::GetPricingModelInfoMap(
    const QString&, const QString&) {
    ProjectSettingSpace::PricingModelInfo model;
    model.feeModes = QStringList{QStringLiteral("整体计费"), QStringLiteral("单独计费")};
    return {{QStringLiteral("清单计价"), model}};
}
