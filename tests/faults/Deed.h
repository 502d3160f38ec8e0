/// What a host does, or answers, in the middle of a flow.
#pragma once

#include "tests/faults/Case.h"

namespace workbench {
struct Stage;
}

namespace faults {

/// Does a deed that is no exception.
/// @param stage the running flow's.
void act(Deed deed, workbench::Stage& stage);

}  // namespace faults
