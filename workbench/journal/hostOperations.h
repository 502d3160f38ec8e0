/// The host operations by name.
#pragma once

#include <QStringList>

#include "workbench/base/WorkbenchApi.h"

namespace workbench {

/// @return the operations as declared, every one that can be asked to throw.
WORKBENCH_API QStringList hostOperations();

}  // namespace workbench
