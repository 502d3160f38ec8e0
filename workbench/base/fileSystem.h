/// What Linux and Windows do otherwise with files.
#pragma once

#include <QFile>
#include <QString>
#include <filesystem>

#include "workbench/base/WorkbenchApi.h"

namespace workbench {

/// @return a path as the system takes it, however long it is.
WORKBENCH_API std::filesystem::path systemPath(const QString& path);

/// @return the system's folder for temporary files; empty where there is none.
WORKBENCH_API QString temporaryPlace();

/// Opens a file that somebody may just be replacing: Windows refuses it for as long as that takes.
/// @return whether it is open; else file.errorString() is the reason.
WORKBENCH_API bool openPatiently(QFile& file, QIODevice::OpenMode mode);

/// Asks for the content of an open file to be on the disk. @return whether it is.
WORKBENCH_API bool isOnDisk(const QFile& file);

/// Gives a file a name of the same folder that nobody has, in one step.
/// @return empty, or the reason; nothing has changed then.
WORKBENCH_API QString giveFreeName(const QString& file, const QString& name);

/// Gives a file or folder a name of the same folder in one step: a file that had it before is gone.
/// @return empty, or the reason; nothing has changed then.
WORKBENCH_API QString giveName(const QString& file, const QString& name);

}  // namespace workbench
