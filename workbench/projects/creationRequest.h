/// The creation requests that the module makes: what each means for a project file.
#pragma once

#include <QJsonObject>
#include <QString>
#include <QVariant>
#include <optional>

#include "workbench/base/WorkbenchApi.h"
#include "workbench/projects/ProgramType.h"

namespace workbench {

/// A request as it crossed the boundary.
struct CreationRequest {
    QString channel;         ///< "SignalCreatePro", "SignalCreateMB" or "SendMsgToPlugin".
    int client = NoProgram;  ///< Program type of a signal, or plug-in of a message.
    int code = 0;
    QVariant payload;
};

/// What a request asks for.
struct CreationPlan {
    int programType = NoProgram;  ///< Program type of the file to make.
    QString suffix;               ///< Its suffix, without dot.
    QString title;                ///< What the project is named after; may be empty.
    QString source;               ///< File or folder to start from; empty for none.
};

/// @return what to make; nothing for a code that is no creation, an unknown program type, or a
///         request that lacks the file that it must start from.
WORKBENCH_API std::optional<CreationPlan> planOf(const CreationRequest& request);

/// @return the request as it is kept in the project file.
WORKBENCH_API QJsonObject toJson(const CreationRequest& request);

/// @param request and source as kept in a project file. @return one line in the user's words.
WORKBENCH_API QString summaryOf(const QJsonObject& request, const QJsonObject& source);

}  // namespace workbench
