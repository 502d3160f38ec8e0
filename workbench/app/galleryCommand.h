/// The command that pictures every page in every skin.
#pragma once

#include "workbench/app/CommandLine.h"

namespace workbench {

/// Plays the scenario gallery.json in every skin that the host has, at three scales, and draws what
/// it pictured on one sheet for each skin: gallery-SKIN.png in the folder of the pictures. A row of
/// a sheet is a page, a column a scale; all are drawn at one size, so that they look alike.
/// @return 0: all sheets are written; 1: a play differs or a sheet cannot be written; 2: there is
///         no such scenario.
int makeGallery(const CommandLine& line);

}  // namespace workbench
