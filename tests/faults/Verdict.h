/// What must hold whatever a host does in the middle of a flow.
#pragma once

#include "tests/faults/Play.h"

namespace faults {

/// @param reference the same flow without a fault.
/// @return what does not hold, a line each; empty if all does.
QStringList judge(const Case& wanted, const Outcome& outcome, const Outcome& reference);

}  // namespace faults
