#include <QFile>
#include <QJsonDocument>
#include <stdexcept>
#ifdef Q_OS_UNIX
#include <sys/resource.h>

#include <csignal>
#endif

#include "tests/support/TestSupport.h"
#include "workbench/journal/Journal.h"
#include "workbench/journal/toJson.h"

namespace testing_support {

using workbench::Journal;
using As = workbench::ThrowRule::As;

namespace {

std::string lineOfLast() {
    return Journal::line(Journal::instance().entries().constLast()).toStdString();
}

/// @return the text that came with an exception of the given kind; "nothing" if none was thrown.
std::string thrownBy(const std::function<void()>& body) {
    try {
        body();
    } catch (const char* text) {
        return std::string("literal ") + text;
    } catch (const QString& text) {
        return "QString " + text.toStdString();
    } catch (const std::runtime_error& error) {
        return std::string("std ") + error.what();
    } catch (int) {
        return "other";
    }
    return "nothing";
}

}  // namespace

TEST(Journal, NumbersEntriesFromOneAndAgainAfterClear) {
    TemporaryInstallation installation;
    Journal& journal = Journal::instance();
    journal.call("A::a");
    journal.call("A::b");
    EXPECT_EQ(journal.entries().at(1).value(QLatin1String("seq")).toInt(), 2);
    journal.clear();
    EXPECT_TRUE(journal.entries().isEmpty());
    journal.call("A::a");
    EXPECT_EQ(journal.entries().constLast().value(QLatin1String("seq")).toInt(), 1);
}

TEST(Journal, WritesTheKeysOfEveryKindInTheirFixedOrder) {
    TemporaryInstallation installation;
    Journal& journal = Journal::instance();
    const auto lineWithoutTime = [] {
        const std::string line = lineOfLast();
        return line.substr(line.find("\"kind\""));
    };
    journal.call(
        "A::a", {1, QStringLiteral("二")}, [] { return true; },
        [](bool answer) { return QJsonValue(answer); });
    EXPECT_EQ(lineWithoutTime(), R"("kind":"call","name":"A::a","args":[1,"二"],"answer":true})");
    EXPECT_EQ(lineOfLast().rfind(R"({"seq":1,"ms":)", 0), 0u);
    journal.signal(QStringLiteral("SignalCreateMB"), {4, 44, QStringLiteral("p")});
    EXPECT_EQ(lineWithoutTime(), R"("kind":"signal","name":"SignalCreateMB","args":[4,44,"p"]})");
    journal.dialogOpened(QStringLiteral("D"));
    EXPECT_EQ(lineWithoutTime(), R"("kind":"dialog","name":"D","event":"opened"})");
    journal.dialogDone(QStringLiteral("D"), 1);
    EXPECT_EQ(lineWithoutTime(), R"("kind":"dialog","name":"D","event":"done","result":1})");
    journal.box(QStringLiteral("showInformation"), QStringLiteral("提示"), QStringLiteral("文"),
                {QStringLiteral("确定")});
    EXPECT_EQ(lineWithoutTime(),
              R"("kind":"box","name":"showInformation","args":["提示","文",["确定"]]})");
    journal.exception(QStringLiteral("D::f"), QStringLiteral("D"), 7, QStringLiteral("未知异常"));
    EXPECT_EQ(lineWithoutTime(),
              R"("kind":"exception","name":"D::f","args":["D",7,"D::f","未知异常"]})");
    journal.project(QStringLiteral("/x.GCFX"));
    EXPECT_EQ(lineWithoutTime(), R"("kind":"project","name":"/x.GCFX"})");
}

TEST(Journal, AFileHoldsEveryEntryAsSoonAsItIsRecorded) {
    TemporaryInstallation installation;
    Journal& journal = Journal::instance();
    ASSERT_TRUE(journal.setFile(installation.path(QStringLiteral("journal.jsonl"))));
    journal.call("A::a", {QStringLiteral("引号\"换行\n")});
    journal.call("A::b");
    QFile file(installation.path(QStringLiteral("journal.jsonl")));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QList<QByteArray> lines = file.readAll().split('\n');
    ASSERT_EQ(lines.size(), 3);
    EXPECT_TRUE(lines.at(2).isEmpty());
    EXPECT_EQ(QJsonDocument::fromJson(lines.at(0)).object(), journal.entries().at(0));
    EXPECT_EQ(QJsonDocument::fromJson(lines.at(1)).object(), journal.entries().at(1));
    EXPECT_TRUE(journal.setFile(QString())) << "ends the writing";
    journal.call("A::c");
    EXPECT_EQ(file.size(), lines.at(0).size() + lines.at(1).size() + 2);
}

TEST(Journal, AFileThatCannotBeWrittenIsReported) {
    TemporaryInstallation installation;
    const QString path = installation.path(QStringLiteral("no/such/folder"));
    EXPECT_FALSE(Journal::instance().setFile(path));
    EXPECT_EQ(Journal::instance().fileError(),
              path + QStringLiteral(": ") + testing_support::noSuchFolder());
    Journal::instance().setFile(QString());
}

#ifdef Q_OS_UNIX

namespace {

/// No file can grow beyond a size until the end of the scope, as on a disk that is full then.
class FullDisk {
  public:
    explicit FullDisk(rlim_t bytes) : handler(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit full{bytes, before.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &full), 0);
    }
    ~FullDisk() {
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    void (*handler)(int);
    rlimit before{};
};

}  // namespace

TEST(Journal, AFullDiskIsToldByItsReasonAndLeavesWholeLines) {
    TemporaryInstallation installation;
    Journal& journal = Journal::instance();
    const QString path = installation.path(QStringLiteral("journal.jsonl"));
    ASSERT_TRUE(journal.setFile(path));
    journal.call("A::a");
    journal.call("A::b");
    QFile file(path);
    const qint64 whole = file.size();
    {
        const FullDisk disk(rlim_t(whole + 10));
        journal.call("A::c");
        EXPECT_EQ(journal.fileError(), path + QStringLiteral(": File too large"));
    }
    journal.call("A::d");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray content = file.readAll();
    EXPECT_EQ(content.size(), whole);
    EXPECT_TRUE(content.endsWith("}\n")) << content.toStdString();
    EXPECT_EQ(journal.entries().size(), 4) << "all are kept in memory";
    journal.setFile(QString());
}

#endif

TEST(Journal, ThrowsWhatTheSwitchesAskForAtTheNthCallOnly) {
    const struct {
        As as;
        const char* expected;
    } rows[] = {{As::Literal, "literal 坏"},
                {As::String, "QString 坏"},
                {As::StdException, "std 坏"},
                {As::Other, "other"}};
    for (const auto& row : rows) {
        TemporaryInstallation installation;
        throwAt("A::a", row.as, 2, QStringLiteral("坏"));
        const auto call = [] { Journal::instance().call("A::a", {5}); };
        EXPECT_EQ(thrownBy(call), "nothing");
        EXPECT_EQ(thrownBy([] { Journal::instance().call("A::b"); }), "nothing");
        EXPECT_EQ(thrownBy(call), row.expected);
        EXPECT_EQ(thrownBy(call), "nothing");
    }
}

TEST(Journal, ACallThatThrowsIsRecordedWithoutAnAnswerAndDoesNotRun) {
    TemporaryInstallation installation;
    throwAt("A::a", As::Other);
    bool ran = false;
    EXPECT_EQ(thrownBy([&] {
                  Journal::instance().call(
                      "A::a", {1}, [&] { return ran = true; },
                      [](bool answer) { return QJsonValue(answer); });
              }),
              "other");
    EXPECT_FALSE(ran);
    EXPECT_EQ(journalLines(), Lines{"call A::a(1)"});
    EXPECT_TRUE(answered("A::a").isUndefined());
}

TEST(Journal, KeepsTheTypesOfValues) {
    const QVariantMap map{{QStringLiteral("int"), -1},
                          {QStringLiteral("double"), 0.5},
                          {QStringLiteral("text"), QStringLiteral("")},
                          {QStringLiteral("list"), QVariantList{1, QStringLiteral("a")}},
                          {QStringLiteral("none"), QVariant()}};
    EXPECT_EQ(
        workbench::toJson(QVariant(map)).toObject(),
        QJsonDocument::fromJson(R"({"int":-1,"double":0.5,"text":"","list":[1,"a"],"none":null})")
            .object());
    EXPECT_EQ(workbench::toJson(QStringList{QStringLiteral("a")}), QJsonArray{QStringLiteral("a")});
    QWidget widget;
    EXPECT_EQ(workbench::toJson(&widget), QJsonValue(QStringLiteral("QWidget")));
    EXPECT_EQ(workbench::toJson(static_cast<QWidget*>(nullptr)), QJsonValue());
    EXPECT_EQ(workbench::toJson(QVariant::fromValue(TaxTemplateInfo())).toString().at(0),
              QLatin1Char('<'));
}

}  // namespace testing_support
