/// Scenarios as files.
#pragma once

#include "workbench/scenario/Scenario.h"

namespace workbench {

/// @return the file of a scenario, in the layout of those written by hand: a line for each step and
///         for each entry that is expected. How the host makes the dialog is left out.
QByteArray scenarioText(const Scenario& scenario);

}  // namespace workbench
