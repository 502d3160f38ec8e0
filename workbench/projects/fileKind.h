/// What the workbench's host knows of a project file, by looking into it.
#pragma once

#include <QString>

#include "workbench/base/WorkbenchApi.h"

namespace workbench {

/// @return the name of the kind of project file, such as "预算工程"; empty for no such kind.
WORKBENCH_API QString kindOfProgramType(int programType);
/// @return the suffix of new files of that kind, without dot; empty for no such kind.
WORKBENCH_API QString suffixOfProgramType(int programType);

/// The names of the cloud disks, with which every path on one begins.
extern WORKBENCH_API const QString personalDisk;
extern WORKBENCH_API const QString companyDisk;

/// @return whether the first component of a path is one of the two cloud disks.
WORKBENCH_API bool isCloudPath(const QString& path);

/// @param path a local path, judged by the file's content, or a cloud path, judged by its suffix.
/// @return the program type; NoProgram for a file that is no project file.
WORKBENCH_API int programTypeOfFile(const QString& path);

/// Four descriptive strings of a project file.
struct FileInfo {
    QString name;
    QString kind;
    QString suffix;  ///< In upper case.
    QString detail;  ///< What the project was made from.
};

/// @return all empty for a file that is no project file. A file that is not there keeps the suffix
///         of its path, so that a history list goes on offering it where it did before.
WORKBENCH_API FileInfo fileInfoOf(const QString& path);

}  // namespace workbench
