/// The verbs of scenario steps.
#pragma once

#include "workbench/base/Schema.h"

namespace workbench {

struct Plan;
struct Stage;

struct Verb {
    QString name;
    Fields fields;  ///< Members of its step, beside "do".
    /// @param args as `fields` let through, with placeholders filled in.
    Plan (*plan)(Stage& stage, const QJsonObject& args);
};

/// Verbs that use the dialog's pages, and those for any window.
const QVector<Verb>& dialogVerbs();
const QVector<Verb>& windowVerbs();

/// @return null for an unknown name.
const Verb* verbNamed(const QString& name);

}  // namespace workbench
