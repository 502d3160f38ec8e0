/// Browsing for a project file on local folders and cloud disks.
#pragma once

#include "core/creationDialog.h"
#include "files/filePages.h"

namespace newpro {

/// Opens the host's file dialog and puts the chosen path into the page's file combo box. A
/// cancelled dialog and a path without a file change nothing, and neither does a suffix that the
/// page refuses, which is told with one message. Exceptions of the host pass through.
/// @param dialog may be deleted by the host while the file dialog is open.
void browseForFile(CreationDialog& dialog, const FilePages& pages, FileFlow flow);

}  // namespace newpro
