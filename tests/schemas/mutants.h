/// Small changes of a JSON value, one at a time.
#pragma once

#include <QJsonObject>
#include <QJsonValue>
#include <QString>
#include <QVector>
#include <functional>

namespace schemas {

/// What is put into a value.
struct Vocabulary {
    QVector<QJsonValue> values;  ///< In the place of each value.
    QJsonObject members;         ///< Added to each object; their keys also rename its members.
};

/// @return values of every type, with a text that no list of words has and one that is the name of
///         a key; and a member that nothing has.
Vocabulary anyWords();

/// Hands out every value that differs from `value` in one place: each member dropped, renamed and
/// replaced, members added to each object, an item added to each array and each item dropped.
/// @param see gets the changed value and what was changed, such as "/2/type = 1", "/2/type
/// dropped",
///        "/2/type renamed path", "/2 + path" or "/2 longer".
void eachMutant(const QJsonValue& value, const Vocabulary& words,
                const std::function<void(const QJsonValue& mutant, const QString& change)>& see);

}  // namespace schemas
