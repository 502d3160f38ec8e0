/// What a host does, or answers, in the middle of a flow.
#pragma once

#include "tests/faults/Case.h"

namespace workbench {
struct Stage;
}

namespace faults {

/// @param stage the running flow's.
/// @return whether an action that is no exception finds what it needs: a dialog, cards, pages.
bool canAct(Action action, const workbench::Stage& stage);

/// Does an action that is no exception and that can be done.
/// @param stage the running flow's.
void act(Action action, workbench::Stage& stage);

}  // namespace faults
