// One fee mode is no choice, and needs no default.
#include <SharedInterface.h>

ProjectSettingSpace::PricingModelInfoMap ProjectSettingHelper::GetPricingModelInfoMap(
    const QString&, const QString&) {
    ProjectSettingSpace::PricingModelInfo model;
    model.key = QStringLiteral("qdjj");
    model.feeModes = QStringList{QStringLiteral("整体计费")};
    return {{QStringLiteral("清单计价"), model}};
}
