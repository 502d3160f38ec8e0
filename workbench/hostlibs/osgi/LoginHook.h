/// The place where the program hangs up its log-in window.
#pragma once

#include <functional>

#include "workbench/base/WorkbenchApi.h"

namespace workbench {

/// Sets what the first page shows when it is asked for the log-in and a person is to answer.
/// @param window shows the window modally and answers whether the account was accepted; empty for
///        no window, which counts as cancelled.
WORKBENCH_API void setLoginWindow(std::function<bool()> window);

/// Logs the cloud account in as the switches have it: at once, not at all, or by the window.
/// @return whether the account is logged in now.
WORKBENCH_API bool logIn();

}  // namespace workbench
