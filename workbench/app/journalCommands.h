/// The commands that compare journals and record scenarios.
#pragma once

#include "workbench/app/CommandLine.h"

namespace workbench {

/// Prints what differs between the two journals of the command line.
/// @return 0: nothing; 1: something differs; 2: a file is no journal.
int diffJournals(const CommandLine& line);

/// Records the scenario of the command line, and tells whether a play of it gives the same journal.
/// @return as `recordScenario` of recordCommand.h.
int recordFile(const CommandLine& line);

}  // namespace workbench
