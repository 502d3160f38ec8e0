/// Nodes of a cloud disk, as its service answers with them.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <optional>

namespace files_tests {

inline QJsonObject node(const QString& name, bool folder, const QJsonArray& children = {}) {
    return {{QStringLiteral("wjjmc"), name},
            {QStringLiteral("wjlx"), folder ? QStringLiteral("1") : QStringLiteral("2")},
            {QStringLiteral("xjdata"), children},
            {QStringLiteral("xzlj"), QStringLiteral("link of ") + name}};
}

inline QJsonArray childrenOf(const QJsonObject& folder) {
    return folder.value(QLatin1String("xjdata")).toArray();
}

inline std::optional<QJsonArray> storedIn(const QJsonObject& folder) {
    return childrenOf(folder);
}

}  // namespace files_tests
