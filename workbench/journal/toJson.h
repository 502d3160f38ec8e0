/// What crosses the boundary, as JSON for the journal.
#pragma once

#include <QJsonValue>
#include <QVariant>

#include "workbench/base/WorkbenchApi.h"

class QObject;

namespace workbench {

/// @return the value with its type kept: numbers, booleans and texts as such, maps, JSON objects
/// and
///         lists with their members; null for an invalid value; a text naming the type for a value
///         that JSON cannot hold.
WORKBENCH_API QJsonValue toJson(const QVariant& value);
/// @return the value in one line of UTF-8.
WORKBENCH_API QByteArray compact(const QJsonValue& value);
/// @return the object's class name; null for no object.
WORKBENCH_API QJsonValue toJson(const QObject* object);

// A literal or a pointer would otherwise become a boolean on its way into a QVariant.
QJsonValue toJson(const char*) = delete;

}  // namespace workbench
