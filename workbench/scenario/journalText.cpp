#include "workbench/scenario/journalText.h"

#include <QHash>
#include <QJsonArray>

#include "workbench/journal/Journal.h"
#include "workbench/journal/toJson.h"

namespace workbench {

namespace {

QString member(const QJsonObject& entry, const char* key) {
    return entry.value(QLatin1String(key)).toString();
}

QString argsText(const QJsonArray& args) {
    QStringList texts;
    for (const QJsonValue& arg : args) texts.append(valueText(arg));
    return texts.join(QStringLiteral(", "));
}

}  // namespace

QString valueText(const QJsonValue& value) {
    if (value.isUndefined()) return QStringLiteral("nothing");
    return QString::fromUtf8(compact(value));
}

QString entryText(const QJsonObject& entry) {
    const QString kind = member(entry, "kind");
    const QString name = member(entry, "name");
    const QJsonArray args = entry.value(QLatin1String("args")).toArray();
    if (kind == QLatin1String("exception"))
        return QStringLiteral("%1: %2").arg(name, args.at(3).toString());
    if (kind == QLatin1String("project")) return name;
    const bool dialog = kind == QLatin1String("dialog");
    const QString text = dialog ? name + QLatin1Char(' ') + member(entry, "event")
                                : QStringLiteral("%1(%2)").arg(name, argsText(args));
    const QJsonValue answer = entry.value(QLatin1String(dialog ? "result" : "answer"));
    return answer.isUndefined() ? text : text + QStringLiteral(" → ") + valueText(answer);
}

QString patternText(const QJsonObject& pattern) {
    return QString::fromUtf8(Journal::line(pattern));
}

QString entryLine(const QJsonObject& entry) {
    return QStringLiteral("%1  %2 %3")
        .arg(entry.value(QLatin1String("seq")).toInt(), 4)
        .arg(member(entry, "kind"), -9)
        .arg(entryText(entry));
}

QString kindText(const QString& kind) {
    static const QHash<QString, QString> texts = {
        {QStringLiteral("call"), QStringLiteral("调用")},
        {QStringLiteral("signal"), QStringLiteral("信号")},
        {QStringLiteral("dialog"), QStringLiteral("窗口")},
        {QStringLiteral("box"), QStringLiteral("消息框")},
        {QStringLiteral("exception"), QStringLiteral("异常")},
        {QStringLiteral("project"), QStringLiteral("工程")}};
    return texts.value(kind, kind);
}

}  // namespace workbench
