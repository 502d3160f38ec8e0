/// How the models of a pricing catalogue are taxed.
#pragma once

namespace newpro {

/// Tax modes, as the configuration numbers them.
enum TaxMode { GeneralTax = 0, SimpleTax = 1, BusinessTax = 2, taxModeCount = 3 };

}  // namespace newpro
