/// Short forms for host operations with a plain answer.
#pragma once

#include <QJsonArray>
#include <QJsonValue>
#include <utility>

#include "workbench/journal/Journal.h"

namespace workbench {

/// Journals a host operation that answers a boolean, a number or a text.
template <typename Operation>
auto journalled(const char* name, const QJsonArray& args, Operation&& operation) {
    return Journal::instance().call(name, args, std::forward<Operation>(operation),
                                    [](const auto& answer) { return QJsonValue(answer); });
}

/// Journals an accessor of a host object: the answer is true, or null where there is no object.
/// @return `object`.
template <typename Object>
Object* accessed(const char* name, Object* object, const QJsonArray& args = {}) {
    return Journal::instance().call(
        name, args, [object] { return object; },
        [](Object* answer) { return answer ? QJsonValue(true) : QJsonValue(); });
}

}  // namespace workbench
