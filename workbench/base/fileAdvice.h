/// What a person can do about a file that cannot be read or written.
#pragma once

#include <QString>

#include "workbench/base/WorkbenchApi.h"

namespace workbench {

/// The reason where the system has none: it does not look at such a name.
WORKBENCH_API QString nulReason();
/// @return a path with a visible character in the place of each NUL, to be shown.
WORKBENCH_API QString withoutNul(QString path);

/// @param reason the system's, as a file operation gave it; may stand in a longer text.
/// @return the cause in a person's words and what to do, in Chinese UTF-8; empty where nothing more
///         is known than the reason says.
WORKBENCH_API const char* fileAdvice(const QString& reason);

}  // namespace workbench
