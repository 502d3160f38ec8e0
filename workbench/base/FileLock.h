/// A lock between processes that ends with its holder, however that one ends.
#pragma once

#include <QFile>
#include <QString>

#include "workbench/base/WorkbenchApi.h"

namespace workbench {

/// Held by the system with an open file, so that a killed holder leaves no lock behind, and nobody
/// has to judge by age or process number whether one is stale. The file itself goes with the lock;
/// one that a killed holder left is used again.
class WORKBENCH_API FileLock {
  public:
    /// @param path the lock's file, in a folder that exists.
    explicit FileLock(const QString& path) : file(path) {}
    /// Ends the lock and removes its file.
    ~FileLock();
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;

    /// @param patience milliseconds to wait for another holder. @return whether the lock is held.
    bool lock(int patience);
    /// @return why it is not.
    QString error() const { return problem; }

  private:
    QFile file;
    QString problem;
};

}  // namespace workbench
