/// Copies of an installation, so that nothing that is done in them reaches the original, and other
/// folders for a while.
#pragma once

#include <QString>

#include "workbench/base/FileLock.h"

namespace workbench {

/// Copies a folder so that the target stands whole or not at all, whenever the copying is killed.
/// Of several that copy to one target the first does it.
/// @return empty, or why the copy could not be made.
QString copyFolderWhole(const QString& source, const QString& target);

/// A folder below the system's temporary one, from here to the end of the scope. Beside it lies a
/// file that is locked for as long: a killed process leaves the two behind, and no lock.
class TemporaryFolder {
  public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// @return empty, or why the folder could not be made.
    QString error() const { return problem; }
    /// @return absolute and without trailing separator.
    QString path() const;

  private:
    const QString place;
    FileLock lock;
    QString problem;
    bool made = false;
};

/// A copy in such a folder.
class TemporaryCopy {
  public:
    explicit TemporaryCopy(const QString& source);

    /// @return empty, or why the copy could not be made.
    QString error() const { return problem; }
    /// @return the copy's folder, absolute and without trailing separator.
    QString folder() const { return place.path(); }

  private:
    const TemporaryFolder place;
    const QString problem;
};

/// Removes the temporary folders of processes that have been killed. A folder without such a file
/// beside it is not one of ours, and one whose file is locked is in use.
void removeAbandonedCopies();

}  // namespace workbench
