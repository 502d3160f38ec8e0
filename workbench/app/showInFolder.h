/// The way from a file to the system's own window of files.
#pragma once

#include <QString>
#include <functional>

namespace workbench {

/// Opens the folder of a file in the system's file manager, with the file selected where the file
/// manager can do that; of a folder, the folder itself.
/// @param failed called with the folder where no program is found that opens it; maybe later.
void showInFolder(const QString& path, const std::function<void(const QString&)>& failed);

}  // namespace workbench
