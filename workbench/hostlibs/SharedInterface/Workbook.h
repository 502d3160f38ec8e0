/// Whether a file is a workbook that opens.
#pragma once

#include <QPair>
#include <QString>
#include <QVector>

#include "workbench/base/WorkbenchApi.h"

namespace workbench {

/// Opens a workbook as far as its list of sheets. No sheet is touched, so that time and memory do
/// not grow with the sheets.
/// @param path a file of any name: the content decides, but for the lock files "~$…".
/// @return true for a readable, unencrypted workbook in the binary or in the package format.
WORKBENCH_API bool isWorkbook(const QString& path);

/// @return names and versions of the libraries that read workbooks.
WORKBENCH_API QVector<QPair<QString, QString>> workbookReaderVersions();

}  // namespace workbench
