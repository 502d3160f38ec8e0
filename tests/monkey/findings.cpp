#include "tests/monkey/findings.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>
#include <QTemporaryDir>

#include "tests/monkey/performance.h"
#include "tests/monkey/sequence.h"
#include "tests/monkey/shrink.h"
#include "tests/monkey/words.h"

namespace monkey {

namespace {

bool write(const QString& file, const QJsonObject& content) {
    QFile written(file);
    return written.open(QIODevice::WriteOnly) && written.write(QJsonDocument(content).toJson()) > 0;
}

int stepsOf(const QJsonObject& content, const char* verb = nullptr) {
    int count = 0;
    const QJsonArray steps = content.value(key("steps")).toArray();
    for (const QJsonValue& step : steps)
        if (!verb || step[key("do")] == QLatin1String(verb)) ++count;
    return count;
}

/// @return what a scenario must expect to show the fault when it is played; empty where it cannot.
QJsonObject expectation(const QJsonObject& content, const QString& fault) {
    const QString kind = fault.section(QLatin1Char(':'), 0, 0);
    const auto never = [](const char* member, const QString& value) {
        return QJsonObject{{key("never"), QJsonArray{QJsonObject{{key(member), value}}}}};
    };
    if (kind == key("exception")) return never("kind", kind);
    if (kind == key("never")) return never("name", fault.section(QLatin1String(": "), 1));
    if (kind != key("creations") || stepsOf(content, "open") != 1) return {};
    return {{key("only"),
             QJsonObject{{key("names"), QJsonArray{key("SignalCreatePro"), key("SignalCreateMB"),
                                                   key("Communication::SendMsgToPlugin")}},
                         {key("list"), QJsonArray{QJsonObject()}}}}};
}

}  // namespace

QString kindOf(const QString& fault) {
    return fault.section(QLatin1String(": "), 0, 1);
}

QString keepShrunk(const Failure& failure, const Traps& traps, const QString& folder) {
    const QTemporaryDir candidates;
    const QString candidate = candidates.filePath(key("candidate.json"));
    int tried = 0;
    const auto fails = [&](const QJsonObject& content) {
        workbench::Scenario scenario;
        if (!readScenario(content, scenario) || !write(candidate, content)) return false;
        ++tried;
        return kindOf(faultOf(candidate, traps)) == kindOf(failure.fault);
    };
    QJsonObject content = sequence(failure.seed);
    if (!fails(content)) return QStringLiteral("  played alone, it does not fail in the same way");
    content = shrunk(content, fails);
    const QDir target(folder);
    const QString file = target.absoluteFilePath(QString::number(failure.seed) + key(".json"));
    content.insert(key("title"), failure.fault);
    content.insert(key("installation"),
                   target.relativeFilePath(QStringLiteral(MONKEY_INSTALLATION)));
    const QJsonObject expect = expectation(content, failure.fault);
    if (!expect.isEmpty()) content.insert(key("expect"), expect);
    if (!QDir().mkpath(folder) || !write(file, content))
        return QStringLiteral("  %1: cannot be written").arg(file);
    const QStringList again = judgeArguments(file, traps);
    return QStringLiteral("  shrunk to %1 steps by %2 trials: %3 %4")
        .arg(stepsOf(content))
        .arg(tried)
        .arg(QCoreApplication::applicationFilePath(), again.join(QLatin1Char(' ')));
}

QString summary(const Herd& herd, qint64 ms) {
    const Tally& tally = herd.tally();
    QSet<quint32> failed;
    for (const Failure& failure : herd.failures()) failed.insert(failure.seed);
    QStringList counts;
    for (auto it = tally.counts.constBegin(); it != tally.counts.constEnd(); ++it)
        counts.append(QStringLiteral("%1 %2").arg(it.value()).arg(it.key()));
    return QStringLiteral("%1 sequences, %2 failed, %3 s (%4)")
        .arg(tally.sequences)
        .arg(failed.size())
        .arg(double(ms) / 1000, 0, 'f', 1)
        .arg(counts.join(QStringLiteral(", ")));
}

}  // namespace monkey
