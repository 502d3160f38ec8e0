/// The commands that play scenarios.
#pragma once

#include "workbench/app/CommandLine.h"

namespace workbench {

/// Prints a line to the standard error. A text that holds a NUL is printed beyond it.
void complain(const QString& line);

/// Plays the files one after the other and prints what differs.
/// @return 0: all as expected; 1: something differs or a scenario ended early; 2: a file is wrong.
int playFiles(const CommandLine& line);

/// Plays the tour and prints every journal entry. @return as playFiles.
int playTour(const CommandLine& line);

}  // namespace workbench
