/// Starting a project from an existing project file, or from a page's template.
#pragma once

#include "core/creationDialog.h"
#include "files/filePages.h"

namespace newpro {

/// Checks what the page of a flow holds, closes the dialog and asks for the project: through the
/// dialog's createFromPage, for general contracting with a message to its plug-in. A refused file
/// is told with one message and leaves the dialog open; a missing first-page service or a log-in
/// that the user gave up ends it silently. Exceptions of the host pass through.
/// @param dialog may be deleted on the way by the host; it is then not touched any more.
void newFromFile(CreationDialog& dialog, const FilePages& pages, FileFlow flow);

}  // namespace newpro
