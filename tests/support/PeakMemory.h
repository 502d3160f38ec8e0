/// How much memory a piece of work needs at its peak.
#pragma once

#include <QtGlobal>

namespace testing_support {

/// Measures from its construction on.
class PeakMemory {
  public:
    PeakMemory();
    /// @return bytes by which the process, under a sanitizer what it has in use, has grown at the
    ///         most, whether or not they were given back; 0 where the system does not tell.
    qint64 growth() const;

  private:
    qint64 before;
};

}  // namespace testing_support
