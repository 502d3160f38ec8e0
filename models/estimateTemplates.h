/// The preliminary-estimate templates of the installation.
#pragma once

#include "core/part.h"
#include "zBaseControl.h"

namespace newpro {

/// Refills a combo box with the base names of the installation's preliminary-estimate templates, in
/// name order. The user's default template becomes current, else "通用概算模板", else the combo
/// box keeps its own current entry.
/// @param combo null does nothing.
void fillEstimateTemplates(const Part<zBaseCombox>& combo);

}  // namespace newpro
