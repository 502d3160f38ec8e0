/// The "host" part of a scenario and its "host" steps, set on the workbench's host.
#pragma once

#include "workbench/base/Schema.h"

namespace workbench {

/// Members of a scenario's "host" and of its "host" steps.
const Fields& hostFields();

/// @param number a factor from 1 to 3, or a percentage from 100 to 300.
/// @return the factor; 0 for any other number.
double scaleFactor(double number);

/// Sets what `settings` names over the loaded installation's own settings; the rest stays.
/// @param settings as `hostFields` let through. @param folder the installation, against which
///        relative paths of file-dialog answers are resolved.
void applyHostSettings(const QJsonObject& settings, const QString& folder);

}  // namespace workbench
