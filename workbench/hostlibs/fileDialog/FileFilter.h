/// Which files the file dialog shows.
#pragma once

#include <QSet>
#include <QStringList>

#include "workbench/base/WorkbenchApi.h"

namespace workbench {

/// Suffixes, compared without regard to letter case. Without suffixes every file is accepted.
struct WORKBENCH_API FileFilter {
    QString description;
    QStringList suffixes;  ///< As given, without dots.

    /// @param entries suffixes; a first entry that is not made of Latin letters and digits alone is
    ///        the description. "*.x" and ".x" mean "x"; "*.*" accepts every file.
    static FileFilter fromList(const QStringList& entries);

    bool accepts(const QString& fileName) const;
    /// @return the text of the drop-down list: description and patterns.
    QString text() const;

  private:
    QSet<QString> folded;
};

}  // namespace workbench
