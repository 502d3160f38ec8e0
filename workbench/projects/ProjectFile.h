/// A project file of the workbench: who asked for what, when, and from which source.
#pragma once

#include <QDateTime>
#include <QJsonObject>
#include <QString>
#include <optional>

#include "workbench/base/WorkbenchApi.h"
#include "workbench/projects/ProgramType.h"

namespace workbench {

/// The content of a project file. On disk it is JSON with the key "workbenchProject".
struct WORKBENCH_API ProjectFile {
    int programType = NoProgram;  ///< What GetProgramTypeByFile answers for the file.
    QString name;                 ///< Readable name of the project.
    QDateTime created;
    /// The creation request: "channel", "client", "code", "payload" as they crossed the boundary.
    QJsonObject request;
    /// The file or folder that the project was made from: "path", "bytes", "sha256". Empty if none;
    /// a folder or a file on a cloud disk has its path alone.
    QJsonObject source;

    /// @param error if given, set to a text for the user when the file is no project file or is
    ///        damaged.
    static std::optional<ProjectFile> read(const QString& path, QString* error = nullptr);

    /// Writes a new file, which is whole as soon as its name is there. @return false with `error`
    /// set when there is a file of that name already,
    ///         or it cannot be written.
    bool writeNew(const QString& path, QString& error) const;

    /// @return the kind in the user's words, such as "预算工程".
    QString kind() const;
    /// @return one line for the user: what the project was made from.
    QString summary() const;
};

}  // namespace workbench
