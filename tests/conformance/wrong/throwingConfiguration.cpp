// a choice of fee modes has a default among them
#include <SharedInterface.h>

#include <stdexcept>

ProjectSettingSpace::PricingModelInfoMap ProjectSettingHelper::GetPricingModelInfoMap(
    const QString&, const QString&) {
    throw std::runtime_error("no configuration today");
}
