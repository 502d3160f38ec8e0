/// What a host does, or answers, in the middle of a flow.
#pragma once

#include "tests/faults/Case.h"

namespace workbench {
struct Stage;
}

namespace faults {

/// Does an action that is no exception.
/// @param stage the running flow's.
void act(Action action, workbench::Stage& stage);

}  // namespace faults
