// The file of a recording and what is told of it: nothing is lost, and nothing untrue is said.
#include <QScopeGuard>
#include <csignal>

#include "tests/workbench/RecordFixture.h"
#include "tests/workbench/TemporaryFolders.h"
#include "workbench/scenario/Player.h"
#include "workbench/scenario/TemporaryCopy.h"
#include "workbench/scenario/judge.h"

namespace testing_support {

namespace {

const char* const budgetModel = "清单计价【国标2013规范，四川2020定额】（税率9%）";

/// The file's folder, which goes meanwhile, and the system's temporary one.
struct Folders {
    explicit Folders(const QString& below)
        : gone(below + QStringLiteral("/gone")), temporary(below + QStringLiteral("/temporary")) {
        EXPECT_TRUE(QDir().mkdir(gone) && QDir().mkdir(temporary));
    }
    QString file() const { return gone + QStringLiteral("/recorded.json"); }
    /// @return the names of the files that the recording has left in the temporary folder.
    QStringList kept() const {
        return QDir(temporary).entryList({QStringLiteral("recorded-*")}, QDir::Files);
    }

    const QString gone;
    const QString temporary;
    const TemporaryFolders place{temporary};
};

class RecordFileTest : public RecordTest {
  protected:
    int recordOneProject() {
        return record([this] {
            inDialog([this](auto*) { click(workbench::newButtonOf(model(budgetModel))); });
        });
    }
    /// Opens the dialog and lets `happen` happen before it is closed by key.
    int recordAround(const std::function<void()>& happen) {
        return record([&] {
            inDialog([&](NewProCfgDialog* shown) {
                ribbon("审核工程");
                happen();
                QTest::keyClick(shown, Qt::Key_Escape);
            });
        });
    }
    QStringList reported() const { return report.split(QLatin1Char('\n')); }
    /// A program that runs the real one and ends as it likes.
    QString wrapped(const QByteArray& ending) {
        QFile script(folder.filePath(QStringLiteral("wrapped")));
        EXPECT_TRUE(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\n\"" + QByteArray(PROGRAM) + "\" \"$@\"\n" + ending + "\n");
        script.setPermissions(script.permissions() | QFile::ExeOwner);
        return script.fileName();
    }
};

TEST_F(RecordFileTest, TheExpectationHasEveryEntryWithAllButTheDay) {
    ASSERT_EQ(recordOneProject(), 0) << report.toStdString();
    const QString day = QDate::currentDate().toString(QStringLiteral("-yyyyMMdd-"));
    EXPECT_FALSE(text().contains(day)) << "the file is to play on other days, too";
    workbench::Scenario scenario;
    QString error;
    ASSERT_TRUE(workbench::readScenario(options.file, scenario, error)) << error.toStdString();
    const workbench::PlayResult played =
        workbench::play(scenario, {QStringLiteral(SAMPLE_INSTALLATION), {}, {}});
    EXPECT_TRUE(played.asExpected());
    const QVector<QJsonObject>& list = scenario.expect.onlyList;
    ASSERT_EQ(list.size(), played.journal.size());
    int days = 0;
    for (int i = 0; i < list.size(); ++i) {
        QStringList keys = played.journal[i].keys();
        keys.removeAll(QStringLiteral("seq"));
        keys.removeAll(QStringLiteral("ms"));
        EXPECT_EQ(list[i].keys(), keys) << i;
        const QByteArray line = workbench::Journal::line(list[i]);
        days += line.contains("-{day}-001.GCFX");
    }
    EXPECT_GE(days, 1);
}

TEST_F(RecordFileTest, TheExpectationIsClosed) {
    ASSERT_EQ(recordOneProject(), 0) << report.toStdString();
    workbench::Scenario scenario;
    QString error;
    ASSERT_TRUE(workbench::readScenario(options.file, scenario, error)) << error.toStdString();
    const workbench::PlayResult played =
        workbench::play(scenario, {QStringLiteral(SAMPLE_INSTALLATION), {}, {}});
    const auto differs = [&](const QVector<QJsonObject>& journal) {
        return !workbench::differences(journal, scenario.expect, played.folder).isEmpty();
    };
    ASSERT_FALSE(differs(played.journal));
    for (const char* kind : {"call", "signal", "dialog", "box", "exception", "project"}) {
        QVector<QJsonObject> more = played.journal;
        more.insert(more.size() / 2, {{QStringLiteral("kind"), QLatin1String(kind)},
                                      {QStringLiteral("name"), QStringLiteral("of no recording")}});
        EXPECT_TRUE(differs(more)) << kind;
    }
    for (int i = 0; i < played.journal.size(); ++i) {
        QVector<QJsonObject> fewer = played.journal;
        fewer.removeAt(i);
        EXPECT_TRUE(differs(fewer)) << i;
        QVector<QJsonObject> other = played.journal;
        other[i].insert(QStringLiteral("name"), QStringLiteral("another"));
        EXPECT_TRUE(differs(other)) << i;
    }
}

TEST_F(RecordFileTest, AStepIsThereBeforeItTakesEffect) {
    Lines atTheBox;
    const int code = record([&] {
        inDialog([&](NewProCfgDialog* shown) {
            ribbon("审核工程");
            {
                const ModalDriver driver(
                    "MessageBox",
                    [](QWidget* box) { return box->inherits("workbench::MessageBox"); },
                    [&](QWidget* box) {
                        atTheBox = steps();
                        click(child<QWidget>(box, "button0"));
                    });
                create();
            }
            QTest::keyClick(shown, Qt::Key_Escape);
        });
    });
    EXPECT_EQ(code, 0) << report.toStdString();
    EXPECT_EQ(atTheBox, (Lines{"open", "ribbon 审核工程", "create"}));
}

#ifdef Q_OS_UNIX
TEST_F(RecordFileTest, AKilledProgramLeavesAScenarioThatPlays) {
    // The process that is killed runs this test, too, up to here.
    const char* const variable = "NEWPRO_RECORDED";
    if (!qEnvironmentVariableIsSet(variable)) qputenv(variable, options.file.toUtf8());
    options.file = qEnvironmentVariable(variable);
    const auto cleared = qScopeGuard([variable] { qunsetenv(variable); });
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    EXPECT_EXIT(recordAround([this] {
                    EXPECT_TRUE(QTest::qWaitFor([this] {
                        return text().count(QStringLiteral("\"kind\"")) ==
                               workbench::Journal::instance().entries().size();
                    }));
                    std::raise(SIGTERM);
                }),
                testing::KilledBySignal(SIGTERM), "");
    EXPECT_EQ(steps(), (Lines{"open", "ribbon 审核工程"}));
    EXPECT_EQ(recorded().value(QStringLiteral("title")).toString(),
              QStringLiteral("Recorded: recorded"));
    const workbench_test::Ran ran =
        workbench_test::runProgram({QStringLiteral("play"), options.file});
    EXPECT_EQ(ran.code, 0) << ran.out.toStdString() << ran.err.toStdString();
}
#endif

TEST_F(RecordFileTest, WithoutItsFolderItStandsInTheTemporaryOneAndSaysWhere) {
    const Folders folders(folder.path());
    options.file = folders.file();
    QStringList told;
    options.tell = [&told](const QString& notice) { told.append(notice); };
    const int code = recordAround([&] {
        EXPECT_TRUE(QFileInfo::exists(options.file));
        ASSERT_TRUE(QDir(folders.gone).removeRecursively());
    });
    EXPECT_EQ(code, 2);
    const QStringList kept = folders.kept();
    ASSERT_EQ(kept.size(), 1);
    ASSERT_TRUE(kept.first().endsWith(QStringLiteral(".json")));
    const QString keptIn = folders.temporary + QLatin1Char('/') + kept.first();
    const QString notice = QStringLiteral("%1: %2; the recording stands in %3")
                               .arg(options.file, noSuchFolder(), keptIn);
    EXPECT_EQ(told, QStringList{notice});
    EXPECT_EQ(
        reported(),
        (QStringList{notice, keptIn + QStringLiteral(": a play of it gives the same journal")}));
}

TEST_F(RecordFileTest, AFolderThatIsThereAgainHasTheWholeRecordingAtLast) {
    const Folders folders(folder.path());
    options.file = folders.file();
    const int code = recordAround([&] {
        ASSERT_TRUE(QDir(folders.gone).removeRecursively());
        ribbon("预算工程");
        ASSERT_TRUE(QDir().mkdir(folders.gone));
    });
    EXPECT_EQ(code, 0) << report.toStdString();
    EXPECT_EQ(steps(), (Lines{"open", "ribbon 审核工程", "ribbon 预算工程", "key Esc"}));
    EXPECT_EQ(folders.kept(), QStringList());
}

TEST_F(RecordFileTest, WhereNothingCanBeWrittenTheRecordingIsPrinted) {
    const Folders folders(folder.path());
    options.file = folders.file();
    const int code = recordAround([&] {
        ASSERT_TRUE(QDir(folders.gone).removeRecursively());
        TemporaryFolders::set(folders.gone);
    });
    EXPECT_EQ(code, 2);
    EXPECT_EQ(reported().first(),
              QStringLiteral("%1: %2; nor can the system's temporary folder take it")
                  .arg(options.file, noSuchFolder()));
    EXPECT_TRUE(report.contains(utf(R"({"do": "ribbon", "entry": "审核工程"})")))
        << report.toStdString();
}

TEST_F(RecordFileTest, AFileThatIsThereStaysUntilTheFirstStep) {
    QFile there(options.file);
    ASSERT_TRUE(there.open(QIODevice::WriteOnly));
    there.write("{}");
    there.close();
    EXPECT_EQ(record([] {}), 0);
    EXPECT_EQ(text(), QStringLiteral("{}"));
    EXPECT_EQ(recordAround([] {}), 0) << report.toStdString();
    EXPECT_EQ(steps().size(), 3u);
}

#ifdef Q_OS_UNIX
TEST_F(RecordFileTest, EqualJournalsAndAnotherExitCodeAreToldAsWhatTheyAre) {
    options.program = wrapped("echo the end >&2; exit 3");
    EXPECT_EQ(recordAround([] {}), 1);
    EXPECT_EQ(reported(),
              (QStringList{
                  options.file + QStringLiteral(": a play of it gives the same journal, but "
                                                "ends with 3"),
                  QStringLiteral("as expected  Recorded: recorded"), QStringLiteral("the end")}));
    options.program = wrapped("kill -9 $$");
    EXPECT_EQ(recordAround([] {}), 1);
    EXPECT_EQ(reported().first(), options.file + QStringLiteral(": a play of it gives the same "
                                                                "journal, and crashes"));
}
#endif

TEST_F(RecordFileTest, APlayThatCannotStartIsToldWithItsReason) {
    options.program = folder.filePath(QStringLiteral("none"));
    EXPECT_EQ(recordAround([] {}), 1);
    ASSERT_EQ(reported().size(), 2);
    EXPECT_EQ(reported().first(), options.file + QStringLiteral(": it could not be played"));
    EXPECT_TRUE(reported().last().startsWith(options.program + QStringLiteral(": ")))
        << report.toStdString();
}

TEST_F(RecordFileTest, AnInstallationThatIsGoneByThenIsToldWithItsPlace) {
    const QString own = folder.filePath(QStringLiteral("own"));
    ASSERT_EQ(workbench::copyFolderWhole(QStringLiteral(SAMPLE_INSTALLATION), own), QString());
    options.installation = own;
    options.isSample = false;
    EXPECT_EQ(recordAround([&own] { ASSERT_TRUE(QDir(own).removeRecursively()); }), 1);
    EXPECT_EQ(reported(),
              (QStringList{options.file + QStringLiteral(": it could not be played"),
                           QStringLiteral("%1: %2: no such folder").arg(options.file, own)}));
}

}  // namespace

}  // namespace testing_support
