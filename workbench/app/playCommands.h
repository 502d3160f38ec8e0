/// The commands that play scenarios.
#pragma once

#include "workbench/app/CommandLine.h"

namespace workbench {

/// Prints a line to the standard output or error. A text that holds a NUL is printed beyond it.
void print(const QString& line);
void complain(const QString& line);

/// Plays the files, or the tour, and prints what differs; of the tour, every journal entry as well.
/// @return 0: all as expected; 1: something differs or a scenario ended early; 2: a file is wrong.
int playScenarios(CommandLine line);

}  // namespace workbench
