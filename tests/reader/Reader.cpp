#include "tests/reader/Reader.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTimer>

namespace reader_tests {

namespace {

constexpr int patience = 60000;  ///< Milliseconds until a reader that is silent has failed.

QSet<QString> wordsOf(const QJsonValue& list) {
    const QStringList words = list.toVariant().toStringList();
    return {words.begin(), words.end()};
}

Told toldBy(const QJsonObject& thing) {
    const QJsonArray place = thing[u"place"].toArray();
    return {thing[u"depth"].toInt(),
            thing[u"role"].toString(),
            thing[u"name"].toString(),
            thing[u"description"].toString(),
            thing[u"text"].toString(),
            wordsOf(thing[u"states"]),
            {place[0].toInt(), place[1].toInt(), place[2].toInt(), place[3].toInt()}};
}

/// Answers whatever the reader asks, until it has said or done something. QtTest's own way of
/// waiting sleeps between two answers. @return false where nothing came for a minute.
template <typename Signal>
bool answer(QProcess& reader, Signal until) {
    QEventLoop answering;
    QObject::connect(&reader, until, &answering, &QEventLoop::quit);
    QObject::connect(&reader, &QProcess::errorOccurred, &answering, &QEventLoop::quit);
    QTimer::singleShot(patience, &answering, [&answering] { answering.exit(1); });
    return answering.exec() == 0;
}

void start(QProcess& reader, const char* command) {
    reader.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    reader.start(QStringLiteral(READER),
                 {QLatin1String(command), QString::number(QCoreApplication::applicationPid())});
}

}  // namespace

QVector<Told> whatIsTold() {
    QProcess reader;
    start(reader, "walk");
    EXPECT_TRUE(answer(reader, qOverload<int, QProcess::ExitStatus>(&QProcess::finished)));
    EXPECT_EQ(reader.exitCode(), 0) << reader.errorString().toStdString();
    QVector<Told> found;
    const QJsonDocument document = QJsonDocument::fromJson(reader.readAllStandardOutput());
    const QJsonArray told = document.array();
    for (const QJsonValue& thing : told) found.append(toldBy(thing.toObject()));
    return found;
}

Listener::Listener() {
    start(reader, "focus");
    EXPECT_EQ(next(), QString());
}

Listener::~Listener() {
    reader.kill();
    reader.waitForFinished();
}

QString Listener::next() {
    while (!reader.canReadLine() && answer(reader, &QProcess::readyReadStandardOutput)) continue;
    EXPECT_TRUE(reader.canReadLine());
    return QString::fromUtf8(reader.readLine()).trimmed();
}

}  // namespace reader_tests
