/// Judges a journal against the expectations of a scenario.
#pragma once

#include <QStringList>

#include "workbench/scenario/Scenario.h"

namespace workbench {

/// @return empty if `value` is as `wanted` says: objects by the members that `wanted` names, arrays
///         by length and every element, everything else by equality, but that "{day}" in a wanted
///         text stands for any eight digits; else the first difference, as
///         "args[1]: 44, expected 95".
QString difference(const QJsonValue& value, const QJsonValue& wanted);

/// @param folder stands for "{installation}" in the expectations.
/// @return one readable difference for each expectation that is not met; empty if all are.
QStringList differences(const QVector<QJsonObject>& journal, const Expectations& expect,
                        const QString& folder);

}  // namespace workbench
