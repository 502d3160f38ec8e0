/// The command that pictures every page in every skin.
#pragma once

#include "workbench/app/CommandLine.h"

namespace workbench {

/// Plays the scenario gallery.json in every skin that the host has, at three scales, and writes
/// into the folder of the pictures: SKIN/PAGE.png, what it pictured at 100 % and the windows that
/// no scenario shows; gallery-SKIN.png, all of these on one sheet; scales-SKIN.png, a part of the
/// first page as each scale draws it.
/// @return 0: all are written; 1: a play differs or a picture cannot be written; 2: there is no
///         such scenario.
int makeGallery(const CommandLine& line);

}  // namespace workbench
