/// Whether a file is a workbook that opens.
#pragma once

#include <QString>

#include "workbench/hostlibs/common/WorkbenchApi.h"

namespace workbench {

/// Opens a workbook as far as its list of sheets. Of a package no sheet is touched, so that time
/// and memory do not grow with its sheets. Of a binary workbook FreeXL steps over every record
/// without keeping any: memory stays flat, time grows with the file (some 0.1 s for 50 MB).
/// @param path a file of any name: the content decides, but for the lock files "~$…".
/// @return true for a readable, unencrypted workbook in the binary or in the package format.
WORKBENCH_API bool isWorkbook(const QString& path);

}  // namespace workbench
