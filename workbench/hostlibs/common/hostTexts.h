/// The texts of the host's own windows.
#pragma once

#include <QString>

#include "workbench/base/WorkbenchApi.h"

namespace workbench {

/// @return a text of a window, as it is to be said now. By itself it is Chinese, as the dialog that
///         most of these windows are opened by.
WORKBENCH_API QString hostText(const QString& chinese);

/// While it lives, texts are said so: for whoever opens a window for itself.
class WORKBENCH_API HostTexts {
  public:
    using Say = QString (*)(const QString& chinese);
    explicit HostTexts(Say say);
    ~HostTexts();
    HostTexts(const HostTexts&) = delete;
    HostTexts& operator=(const HostTexts&) = delete;

  private:
    const Say before;
};

}  // namespace workbench
