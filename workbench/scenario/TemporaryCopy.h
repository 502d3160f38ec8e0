/// Copies of an installation, so that nothing that is done in them reaches the original.
#pragma once

#include <QString>
#include <QTemporaryDir>

namespace workbench {

/// Copies a folder with everything below it, modification times kept.
/// @return empty, or why the copy could not be made.
QString copyFolder(const QString& source, const QString& target);

class TemporaryCopy {
  public:
    explicit TemporaryCopy(const QString& source);

    /// @return empty, or why the copy could not be made.
    QString error() const { return problem; }
    /// @return the copy's folder, absolute and without trailing separator.
    QString folder() const;

  private:
    QTemporaryDir directory;
    QString problem;
};

}  // namespace workbench
