// a model's default fee mode is one that it offers
#include <SharedInterface.h>

QMap<QString, ProjectSettingSpace::PricingModelInfo> ProjectSettingHelper::GetPricingModelInfoMap(
    const QString&, const QString&) {
    throw std::runtime_error("no configuration today");
}
