// a model's default fee mode is one that it offers
#include <SharedInterface.h>

ProjectSettingSpace::PricingModelInfoMap ProjectSettingHelper::GetPricingModelInfoMap(
    const QString&, const QString&) {
    throw std::runtime_error("no configuration today");
}
