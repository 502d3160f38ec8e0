/// The look of text fields in the workbench's own windows.
#pragma once

#include <QString>

namespace workbench {

/// @return a style sheet for the window that holds the fields, in the current skin and scale.
QString fieldSheet();

}  // namespace workbench
