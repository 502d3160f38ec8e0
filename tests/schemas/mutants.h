/// Small changes of a JSON value, one at a time.
#pragma once

#include <QJsonValue>
#include <QString>
#include <functional>

namespace schemas {

/// Hands out every value that differs from `value` in one place: each member dropped, renamed,
/// retyped in several ways, one added to each object and an item to each array.
/// The text put in is one that no list of words has and that is the name of a key.
/// @param see gets the changed value and what was changed.
void eachMutant(const QJsonValue& value,
                const std::function<void(const QJsonValue& mutant, const QString& change)>& see);

}  // namespace schemas
