#include "workbench/record/scenarioText.h"

#include <QJsonArray>

#include "workbench/journal/toJson.h"

namespace workbench {

namespace {

/// @return the keys as a person writes them: what a thing is comes first.
QStringList orderedKeys(const QJsonObject& object) {
    static const QStringList first{QStringLiteral("do"), QStringLiteral("kind"),
                                   QStringLiteral("name"), QStringLiteral("args")};
    QStringList keys = object.keys();
    for (auto key = first.rbegin(); key != first.rend(); ++key)
        if (keys.removeOne(*key)) keys.prepend(*key);
    return keys;
}

/// @return the value in one line, with blanks.
QByteArray line(const QJsonValue& value) {
    QByteArrayList parts;
    if (value.isArray()) {
        const QJsonArray array = value.toArray();
        for (const QJsonValue& each : array) parts.append(line(each));
        return '[' + parts.join(", ") + ']';
    }
    if (!value.isObject()) return compact(value);
    const QJsonObject object = value.toObject();
    for (const QString& key : orderedKeys(object))
        parts.append(compact(key) + ": " + line(object.value(key)));
    return '{' + parts.join(", ") + '}';
}

QByteArray lines(const QVector<QJsonObject>& objects, const QByteArray& indent) {
    if (objects.isEmpty()) return "[]";
    QByteArrayList parts;
    for (const QJsonObject& each : objects) parts.append('\n' + indent + "  " + line(each));
    return '[' + parts.join(',') + '\n' + indent + ']';
}

QByteArray expectText(const Expectations& expect) {
    QByteArrayList parts;
    if (!expect.inOrder.isEmpty()) parts.append("\"inOrder\": " + lines(expect.inOrder, "    "));
    if (!expect.never.isEmpty()) parts.append("\"never\": " + lines(expect.never, "    "));
    if (expect.hasOnly) {
        QByteArrayList only;
        if (expect.onlyNames)
            only.append("\"names\": " + line(QJsonArray::fromStringList(*expect.onlyNames)));
        only.append("\"list\": " + lines(expect.onlyList, "      "));
        parts.append("\"only\": {\n      " + only.join(",\n      ") + "\n    }");
    }
    return "{\n    " + parts.join(",\n    ") + "\n  }";
}

}  // namespace

QByteArray scenarioText(const Scenario& scenario) {
    QVector<QJsonObject> steps;
    for (const Step& step : scenario.steps) {
        QJsonObject object = step.args;
        object.insert(QStringLiteral("do"), step.verb);
        steps.append(object);
    }
    QByteArrayList members{"\"title\": " + line(scenario.title)};
    if (!scenario.installation.isEmpty())
        members.append("\"installation\": " + line(scenario.installation));
    if (!scenario.host.isEmpty()) members.append("\"host\": " + line(scenario.host));
    members.append("\"steps\": " + lines(steps, "  "));
    members.append("\"expect\": " + expectText(scenario.expect));
    return "{\n  " + members.join(",\n  ") + "\n}\n";
}

}  // namespace workbench
