/// Makes a failing scenario small.
#pragma once

#include <QJsonObject>
#include <functional>

namespace monkey {

using Fails = std::function<bool(const QJsonObject&)>;

/// Takes away whatever the failure does not need: steps, settings, throw rules, members and
/// elements at any depth, in ever smaller portions.
/// @param fails whether a content still fails in the same way; it is asked again and again and must
///        answer false for what is no scenario.
/// @return content that fails, from which no single member or element can be taken any more.
QJsonObject shrunk(const QJsonObject& content, const Fails& fails);

}  // namespace monkey
