#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QTemporaryDir>

#include "tests/support/TestSupport.h"

namespace {

struct Ran {
    int code = -1;
    QString out;
};

Ran runProgram(const char* program, const QStringList& arguments) {
    QProcess process;
    process.start(QLatin1String(program), arguments);
    EXPECT_TRUE(process.waitForFinished(110000)) << process.errorString().toStdString();
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    return {process.exitCode(), testing_support::outputText(process.readAllStandardOutput())};
}

class MonkeyTest : public testing::Test {
  protected:
    /// Lets monkeys play, two of a portion, with a fault made on purpose.
    Ran play(int seed, int sequences, const QStringList& trap) {
        return runProgram(
            MONKEY, QStringList{QStringLiteral("--faults"), folder.path(), QStringLiteral("--seed"),
                                QString::number(seed), QStringLiteral("--sequences"),
                                QString::number(sequences)} +
                        trap);
    }
    /// @return the scenario that a run of monkeys has left; empty if none or several.
    QString kept() const {
        const QStringList files = QDir(folder.path()).entryList({QStringLiteral("*.json")});
        return files.size() == 1 ? folder.filePath(files.first()) : QString();
    }
    QJsonObject content() const {
        QFile file(kept());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return QJsonDocument::fromJson(file.readAll()).object();
    }
    std::string steps() const {
        return QJsonDocument(content().value(QStringLiteral("steps")).toArray())
            .toJson(QJsonDocument::Compact)
            .toStdString();
    }

    /// @return the file of a scenario with one throw rule.
    QString written(const QString& rule, const char* steps) const {
        const QString path = folder.filePath(QStringLiteral("written.scenario"));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        const QString content =
            QStringLiteral(R"({"title": "t", "installation": "%1", "host": {"throw": [%2]},
                               "steps": [%3]})");
        file.write(content
                       .arg(QStringLiteral(REPOSITORY "/tests/monkey/installation"), rule,
                            QString::fromUtf8(steps))
                       .toUtf8());
        return path;
    }

    QTemporaryDir folder;
};

TEST_F(MonkeyTest, AFaultIsShrunkToTheStepsThatItNeeds) {
    const Ran ran = play(1, 12, {QStringLiteral("--never"), QStringLiteral("importExcelSelFile")});
    EXPECT_EQ(ran.code, 1);
    EXPECT_TRUE(ran.out.contains(QStringLiteral("never: importExcelSelFile")))
        << ran.out.toStdString();
    EXPECT_EQ(steps(), R"([{"do":"open"},{"do":"ribbon","entry":"导入Excel新建"}])");
    EXPECT_FALSE(content().contains(QStringLiteral("host")));
    EXPECT_EQ(content().value(QStringLiteral("title")).toString(),
              QStringLiteral("never: importExcelSelFile"));
}

TEST_F(MonkeyTest, AShrunkScenarioShowsItsFaultWhenItIsPlayed) {
    play(1, 12, {QStringLiteral("--never"), QStringLiteral("SignalCreatePro")});
    const Ran played = runProgram(PROGRAM, {QStringLiteral("play"), kept()});
    EXPECT_EQ(played.code, 1);
    EXPECT_TRUE(
        played.out.contains(QStringLiteral("DIFFERS      never: SignalCreatePro\n"
                                           "  never[0]: found")))
        << played.out.toStdString();
}

TEST_F(MonkeyTest, OneThrowRuleIsLeftOfAHostThatThrows) {
    const Ran ran =
        play(1, 40, {QStringLiteral("--never"), QStringLiteral("NewProCfgDialog::CreateUI")});
    EXPECT_EQ(ran.code, 1);
    const QString text = QString::fromUtf8(QJsonDocument(content()).toJson());
    EXPECT_EQ(text.count(QStringLiteral("\"throw\"")), 1) << text.toStdString();
    EXPECT_EQ(text.count(QStringLiteral("\"call\"")), 1) << text.toStdString();
    EXPECT_EQ(text.count(QStringLiteral("\"do\": \"open\"")), 1) << text.toStdString();
}

#ifdef MONKEY_HAS_PLACES

TEST_F(MonkeyTest, AThrowAtAPlaceIsShrunkAndTheCommandThatIsToldShowsItAgain) {
    const QStringList trap{QStringLiteral("--never"), QStringLiteral("zBaseLabel::setControlType")};
    const Ran ran = play(41, 12, trap);
    EXPECT_EQ(ran.code, 1);
    const QString text = QString::fromUtf8(QJsonDocument(content()).toJson());
    EXPECT_EQ(text.count(QStringLiteral("\"throw\"")), 1) << text.toStdString();
    EXPECT_EQ(text.count(QStringLiteral("\"call\": \"zBaseLabel::setControlType\"")), 1)
        << text.toStdString();
    const QStringList again{QStringLiteral("--judge"), kept()};
    EXPECT_TRUE(ran.out.contains((again + trap).join(QLatin1Char(' ')))) << ran.out.toStdString();
    const Ran judged = runProgram(MONKEY, again + trap);
    EXPECT_EQ(judged.code, 1);
    EXPECT_EQ(judged.out.toStdString(), "never: zBaseLabel::setControlType\n");
    // The module has survived it: without the trap nothing is wrong.
    EXPECT_EQ(runProgram(MONKEY, again).code, 0);
}

TEST_F(MonkeyTest, AnExceptionOfAWindowsBaseGoesBackToTheHost) {
    const struct {
        const char* base;
        const char* step;
    } windows[] = {{"zBaseModal::zBaseModal", R"({"do": "open"})"},
                   {"zTitleModal::zTitleModal", R"({"do": "open", "dialog": "xzGcLxDialog"})"}};
    for (const auto& window : windows) {
        const QString rule = QStringLiteral(R"({"call": "%1", "as": "other"})");
        const QStringList judge{QStringLiteral("--judge"),
                                written(rule.arg(QLatin1String(window.base)), window.step)};
        const Ran ran = runProgram(MONKEY, judge);
        EXPECT_EQ(ran.code, 0) << ran.out.toStdString();
        const QStringList trap{QStringLiteral("--never"), QLatin1String(window.base)};
        EXPECT_EQ(runProgram(MONKEY, judge + trap).out.toStdString(),
                  std::string("never: ") + window.base + '\n');
    }
}

TEST_F(MonkeyTest, TheBaseOfAWindowThatTheModuleMakesIsTheModulesConcern) {
    const QString file =
        written(QStringLiteral(R"({"call": "zTitleModal::zTitleModal", "as": "literal"})"),
                R"({"do": "open"}, {"do": "ribbon", "entry": "导入Excel新建"})");
    const QStringList judge{QStringLiteral("--judge"), file};
    EXPECT_EQ(runProgram(MONKEY, judge).code, 0);
    const QString reporter = QStringLiteral("NewProCfgDialog::slotImportExcelNewPro");
    EXPECT_EQ(runProgram(MONKEY, judge + QStringList{QStringLiteral("--never"), reporter})
                  .out.toStdString(),
              "never: " + reporter.toStdString() + '\n');
}

#endif

TEST_F(MonkeyTest, ACrashEndsOneProcessOnly) {
    const Ran ran =
        play(1, 20, {QStringLiteral("--crash-at"), QStringLiteral("importExcelSelFile")});
    EXPECT_EQ(ran.code, 1);
    EXPECT_TRUE(ran.out.startsWith(QStringLiteral("20 sequences, "))) << ran.out.toStdString();
    EXPECT_TRUE(ran.out.contains(QStringLiteral(": crash: "))) << ran.out.toStdString();
    const QJsonArray left = content().value(QStringLiteral("steps")).toArray();
    EXPECT_EQ(left.size(), 2) << ran.out.toStdString();
    EXPECT_EQ(left[0][QStringLiteral("do")].toString(), QStringLiteral("open"));
}

TEST_F(MonkeyTest, MonkeysGetDeep) {
    const Ran ran = play(1, 40, {});
    const auto counted = [&](const char* what) {
        const QRegularExpression number(QStringLiteral("(\\d+) ") + QLatin1String(what));
        return number.match(ran.out).captured(1).toInt();
    };
    EXPECT_EQ(ran.code, 0) << ran.out.toStdString();
    EXPECT_GT(counted("dialogs"), 60);
    EXPECT_GT(counted("requests"), 5);
    EXPECT_GT(counted("steps"), 200);
    EXPECT_GT(counted("exceptions"), 5);
#ifdef MONKEY_HAS_PLACES
    EXPECT_GT(counted("atPlaces"), 5);
#endif
}

}  // namespace
