#include "tests/contract/Contract.h"

#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <stdexcept>

#include "tests/schemas/Schema.h"

namespace contract {

namespace {

const QString folder = QStringLiteral("docs/contract/");
const QString suffix = QStringLiteral(".schema.json");

}  // namespace

QString Message::file() const {
    return folder + schema + suffix;
}

bool Message::isNamedBy(const QJsonObject& line) const {
    return line.value(QLatin1String("kind")) == kind && line.value(QLatin1String("name")) == name;
}

const QVector<Message>& messages() {
    static const QVector<Message> all = [] {
        const QString signal = QStringLiteral("signal");
        const QString call = QStringLiteral("call");
        QVector<Message> table = {
            {QStringLiteral("signal-95"), signal, QStringLiteral("SignalCreatePro")},
            {QStringLiteral("signal-44"), signal, QStringLiteral("SignalCreateMB")},
            {QStringLiteral("signal-cjz-int"), signal, QStringLiteral("SignalCreateCJZInt")},
            {QStringLiteral("signal-cjz-string"), signal, QStringLiteral("SignalCreateCJZString")},
            {QStringLiteral("message-44"), call, QStringLiteral("Communication::SendMsg")}};
        for (const char* code : {"0", "100", "102", "103-budget", "103-contracting", "104", "105",
                                 "107", "108", "114"})
            table.append({QLatin1String("plugin-") + QLatin1String(code), call,
                          QStringLiteral("Communication::SendMsgToPlugin")});
        return table;
    }();
    return all;
}

QStringList schemaFiles() {
    QStringList files;
    for (const QString& name : QDir(QStringLiteral(REPOSITORY "/") + folder)
                                   .entryList({QLatin1Char('*') + suffix}, QDir::Files))
        files.append(folder + name);
    return files;
}

QJsonValue argument(const Message& message, int index) {
    return schemas::contents(message.file())[QStringLiteral("prefixItems")][index];
}

QString table() {
    QFile file(QStringLiteral(REPOSITORY "/") + folder + QStringLiteral("README.md"));
    if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("the table is missing");
    return QString::fromUtf8(file.readAll());
}

QStringList scenarios() {
    QStringList names;
    for (const QFileInfo& file : QDir(QStringLiteral(REPOSITORY "/tests/scenarios"))
                                     .entryInfoList({QStringLiteral("*.json")}, QDir::Files))
        names.append(file.completeBaseName());
    return names;
}

QVector<QJsonObject> journalOf(const QString& scenario) {
    QFile file(QStringLiteral(JOURNALS "/%1.jsonl").arg(scenario));
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("ctest -R ^scenario writes it: " + file.fileName().toStdString());
    QVector<QJsonObject> lines;
    while (!file.atEnd()) {
        const QByteArray line = file.readLine();
        const QJsonDocument read = QJsonDocument::fromJson(line);
        if (!read.isObject())
            throw std::runtime_error("no line of a journal: " + line.toStdString());
        lines.append(read.object());
    }
    return lines;
}

}  // namespace contract
