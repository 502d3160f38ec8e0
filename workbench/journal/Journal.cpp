#include "workbench/journal/Journal.h"

#include "workbench/base/wholeFile.h"
#include "workbench/journal/toJson.h"

namespace workbench {

Journal::Journal() {
    clock.start();
}

Journal& Journal::instance() {
    static Journal journal;
    return journal;
}

bool Journal::setFile(const QString& path) {
    file.close();
    problem.clear();
    wholeLines = 0;
    file.setFileName(path);
    if (path.isEmpty()) return true;
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Unbuffered)) return true;
    fail();
    return false;
}

void Journal::clear() {
    list.clear();
    // Numbers run on in a file, whatever is forgotten of it here.
    if (!file.isOpen()) lastSeq = 0;
    Q_EMIT cleared();
}

QByteArray Journal::line(const QJsonObject& entry) {
    static const QLatin1String order[] = {QLatin1String("seq"),   QLatin1String("ms"),
                                          QLatin1String("kind"),  QLatin1String("name"),
                                          QLatin1String("args"),  QLatin1String("answer"),
                                          QLatin1String("event"), QLatin1String("result")};
    QByteArray text;
    for (const QLatin1String key : order) {
        const auto found = entry.constFind(key);
        if (found == entry.constEnd()) continue;
        text += text.isEmpty() ? '{' : ',';
        text += compact(QJsonValue(key)) + ':' + compact(*found);
    }
    return text + '}';
}

void Journal::record(const QString& kind, const QString& name, const QJsonObject& fields) {
    QJsonObject entry = fields;
    entry.insert(QStringLiteral("seq"), ++lastSeq);
    entry.insert(QStringLiteral("ms"), clock.elapsed());
    entry.insert(QStringLiteral("kind"), kind);
    entry.insert(QStringLiteral("name"), name);
    list.append(entry);
    if (file.isOpen()) write(entry);
    Q_EMIT recorded(entry);
}

void Journal::write(const QJsonObject& entry) {
    const QByteArray text = line(entry) + '\n';
    if (writeAll(file, text)) {
        wholeLines += text.size();
        return;
    }
    fail();
    // What a full disk has still taken of the line is taken back.
    file.resize(wholeLines);
    file.close();
}

void Journal::fail() {
    problem = file.fileName() + QStringLiteral(": ") + file.errorString();
}

void Journal::signal(const QString& name, const QJsonArray& args) {
    record(QStringLiteral("signal"), name, {{QStringLiteral("args"), args}});
}

void Journal::dialogOpened(const QString& className) {
    record(QStringLiteral("dialog"), className,
           {{QStringLiteral("event"), QStringLiteral("opened")}});
}

void Journal::dialogDone(const QString& className, int result) {
    record(QStringLiteral("dialog"), className,
           {{QStringLiteral("event"), QStringLiteral("done")}, {QStringLiteral("result"), result}});
}

void Journal::box(const QString& name, const QString& title, const QString& text,
                  const QStringList& buttons) {
    record(
        QStringLiteral("box"), name,
        {{QStringLiteral("args"), QJsonArray{title, text, QJsonArray::fromStringList(buttons)}}});
}

void Journal::exception(const QString& function, const QString& source, int line,
                        const QString& text) {
    record(QStringLiteral("exception"), function,
           {{QStringLiteral("args"), QJsonArray{source, line, function, text}}});
}

void Journal::project(const QString& file) {
    record(QStringLiteral("project"), file, {});
}

void Journal::call(const char* name, const QJsonArray& args) {
    throwIfAsked(name, args);
    record(QStringLiteral("call"), QString::fromUtf8(name), {{QStringLiteral("args"), args}});
}

void Journal::recordAnswer(const char* name, const QJsonArray& args, const QJsonValue& answer) {
    record(QStringLiteral("call"), QString::fromUtf8(name),
           {{QStringLiteral("args"), args}, {QStringLiteral("answer"), answer}});
}

}  // namespace workbench
