/// Journal entries as lines for people.
#pragma once

#include <QJsonObject>
#include <QString>

namespace workbench {

/// @return a value as compact JSON; "nothing" for a missing one.
QString valueText(const QJsonValue& value);
/// @return what an entry says, without number and kind:
///         `SharedInterface::UseFunc(13015, "")`, `NewProCfgDialog done → 1`.
QString entryText(const QJsonObject& entry);
/// @return an expected entry, of which any member may be missing.
QString patternText(const QJsonObject& pattern);
/// @return number, kind and entry in columns, for a terminal.
QString entryLine(const QJsonObject& entry);
/// @return the kind of an entry in Chinese, such as "调用".
QString kindText(const QString& kind);

}  // namespace workbench
