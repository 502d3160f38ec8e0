#include <QDir>
#include <QImage>
#include <QJsonDocument>
#include <QRegularExpression>

#include "tests/support/TestSupport.h"
#include "tests/workbench/RunProgram.h"
#include "workbench/hostlibs/common/hostSwitches.h"

namespace {

using workbench_test::Ran;
using workbench_test::runProgram;

class ProgramTest : public testing::Test {
  protected:
    /// @return the path of a scenario file with these members beside its title.
    QString scenario(const QByteArray& members) {
        const QString path = folder.filePath(QStringLiteral("s.json"));
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("{\"title\": \"the title\",\n" + members + "}");
        return path;
    }

    QTemporaryDir folder;
    const QString play = QStringLiteral("play");
    const QByteArray openAndClose = R"("steps": [{"do": "open"}, {"do": "close"}])";
};

TEST_F(ProgramTest, AScenarioThatIsAsExpectedEndsWith0) {
    const Ran ran = runProgram({play, scenario(openAndClose)});
    EXPECT_EQ(ran.code, 0) << ran.err.toStdString();
    EXPECT_EQ(ran.out.toStdString(), "as expected  the title\n");
    EXPECT_EQ(ran.err.toStdString(), "");
}

TEST_F(ProgramTest, AScenarioThatDiffersEndsWith1AndShowsWhat) {
    const Ran ran = runProgram({play, scenario(openAndClose + R"(, "expect": {"inOrder": [
             {"kind": "dialog", "event": "done", "name": "NewProCfgDialog", "result": 1}]})")});
    EXPECT_EQ(ran.code, 1);
    EXPECT_TRUE(ran.out.startsWith(
        QStringLiteral("DIFFERS      the title\n"
                       "  inOrder[0]: not found\n"
                       "    expected: {\"kind\":\"dialog\",\"name\":\"NewProCfgDialog\","
                       "\"event\":\"done\",\"result\":1}\n"
                       "    nearest:  #")))
        << ran.out.toStdString();
}

TEST_F(ProgramTest, AScenarioThatEndsEarlyEndsWith1AndItsReason) {
    const Ran ran = runProgram({play, scenario(R"("steps": [{"do": "create"}])")});
    EXPECT_EQ(ran.code, 1);
    EXPECT_TRUE(ran.out.contains(QStringLiteral("steps[0] create: no dialog is open")))
        << ran.out.toStdString();
}

TEST_F(ProgramTest, AWrongFileEndsWith2AndItsPlaceBeforeAnythingIsPlayed) {
    const QString right = scenario(openAndClose);
    const QString wrong = folder.filePath(QStringLiteral("wrong.json"));
    QFile file(wrong);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("{\"title\": \"t\",\n\"steps\": [\n{\"do\": \"jump\"}]}");
    file.close();
    const Ran ran = runProgram({play, right, wrong});
    EXPECT_EQ(ran.code, 2);
    EXPECT_EQ(ran.err, QDir::toNativeSeparators(wrong) +
                           QStringLiteral(":3: steps[0].do: unknown verb \"jump\"\n"));
    EXPECT_EQ(ran.out.toStdString(), "");
}

TEST_F(ProgramTest, APathThatHoldsANulEndsWith2AndItsPlace) {
    const QString file = scenario(R"("installation": "a\u0000b",)"
                                  "\n" +
                                  openAndClose);
    const Ran ran = runProgram({play, file});
    EXPECT_EQ(ran.code, 2);
    EXPECT_EQ(ran.err, QDir::toNativeSeparators(file) +
                           QStringLiteral(":2: installation: must not hold a NUL character\n"));
}

TEST_F(ProgramTest, ATextThatHoldsANulIsPrintedToItsEnd) {
    const Ran ran = runProgram({play, scenario(R"("steps": [{"do": "a\u0000b"}])")});
    EXPECT_EQ(ran.code, 2);
    EXPECT_TRUE(ran.err.endsWith(QStringLiteral("b\"\n"))) << ran.err.toStdString();
}

TEST_F(ProgramTest, AWrongCatalogueEndsWith2AndItsPlaceInTheInstallationThatWasNamed) {
    const QString named = folder.filePath(QStringLiteral("mine"));
    ASSERT_TRUE(QDir().mkdir(named));
    QFile models(named + QStringLiteral("/models.json"));
    ASSERT_TRUE(models.open(QIODevice::WriteOnly));
    models.write("{\n\"Kvys\": [\n{\"taxMode\": 0.5, \"models\": []}]}");
    models.close();
    const QString reason = QDir::toNativeSeparators(models.fileName()) +
                           QStringLiteral(":3: Kvys[0].taxMode: must be a whole number\n");
    const QString file = scenario(openAndClose);
    const QString option = QStringLiteral("--installation");
    const Ran played = runProgram({play, file, option, named});
    EXPECT_EQ(played.code, 2);
    EXPECT_EQ(played.err, file + QStringLiteral(": ") + reason);
}

TEST_F(ProgramTest, TheJournalFileHasOneNumberedObjectPerLine) {
    const QString path = folder.filePath(QStringLiteral("journal.jsonl"));
    const QString file = scenario(openAndClose);
    ASSERT_EQ(runProgram({play, file, file, QStringLiteral("--journal"), path}).code, 0);
    QFile journal(path);
    ASSERT_TRUE(journal.open(QIODevice::ReadOnly));
    int seq = 0;
    int opened = 0;
    while (!journal.atEnd()) {
        const QByteArray line = journal.readLine();
        EXPECT_TRUE(line.endsWith('\n'));
        const QJsonObject entry = QJsonDocument::fromJson(line).object();
        EXPECT_EQ(entry.value(QStringLiteral("seq")).toInt(), ++seq) << line.toStdString();
        EXPECT_TRUE(entry.value(QStringLiteral("ms")).isDouble()) << line.toStdString();
        EXPECT_FALSE(entry.value(QStringLiteral("kind")).toString().isEmpty());
        if (entry.value(QStringLiteral("event")) == QLatin1String("opened")) ++opened;
    }
    EXPECT_EQ(opened, 2) << "the file goes on from scenario to scenario";
}

TEST_F(ProgramTest, AJournalThatCannotBeWrittenEndsWith2) {
    const QStringList unwritable = {QStringLiteral("/dev/full"), folder.path()};
    for (const QString& path : unwritable) {
        if (!QFileInfo::exists(path)) continue;  // not every system has a full device
        const Ran ran =
            runProgram({play, scenario(openAndClose), QStringLiteral("--journal"), path});
        EXPECT_EQ(ran.code, 2) << path.toStdString();
        const QString reason = path == folder.path() ? testing_support::isFolder()
                                                     : QStringLiteral("No space left on device");
        EXPECT_EQ(ran.err, QStringLiteral("%1: %2\n").arg(path, reason));
    }
}

TEST_F(ProgramTest, PicturesAreKeptWhereAsked) {
    const QString file = scenario(
        R"("steps": [{"do": "open"}, {"do": "picture", "file": "a/b.png"}, {"do": "close"}])");
    const QString pictures = folder.filePath(QStringLiteral("pictures"));
    ASSERT_EQ(runProgram({play, file, QStringLiteral("--pictures"), pictures}).code, 0);
    const QImage picture(pictures + QStringLiteral("/a/b.png"));
    EXPECT_GT(picture.width(), 300);
    EXPECT_GT(picture.height(), 200);
}

TEST_F(ProgramTest, TheCoverageIsThatOfAllScenariosPlayed) {
    const QString closing = scenario(openAndClose);
    const QString creating = QStringLiteral(REPOSITORY "/tests/scenarios/tour-1-model.json");
    const Ran ran = runProgram({play, closing, creating, QStringLiteral("--coverage")});
    EXPECT_EQ(ran.code, 0) << ran.err.toStdString();
    for (const char* line :
         {"\n       1  SignalCreatePro 95\n", "\n       0  SignalCreateMB 44  NEVER\n",
          "\n       1  NewProCfgDialog → 0: ", "\n       1  NewProCfgDialog → 1: "})
        EXPECT_TRUE(ran.out.contains(QString::fromUtf8(line))) << line << ran.out.toStdString();
    EXPECT_FALSE(runProgram({play, closing}).out.contains(QStringLiteral("NEVER")));
}

TEST_F(ProgramTest, TheTourPrintsTheJournalAndWhereThePicturesAre) {
    const QString pictures = folder.filePath(QStringLiteral("pictures"));
    const Ran ran =
        runProgram({QStringLiteral("tour"), QStringLiteral("--pictures"), pictures}, {});
    EXPECT_EQ(ran.code, 0) << ran.err.toStdString();
    EXPECT_TRUE(ran.out.contains(QStringLiteral("dialog    NewProCfgDialog opened\n")));
    EXPECT_TRUE(ran.out.contains(QStringLiteral("signal    SignalCreatePro(")));
    EXPECT_FALSE(ran.out.contains(QStringLiteral("DIFFERS")));
    const QStringList files = QDir(pictures).entryList(QDir::Files);
    EXPECT_FALSE(files.isEmpty());
    for (const QString& file : files)
        EXPECT_TRUE(ran.out.contains(pictures + QLatin1Char('/') + file)) << file.toStdString();
}

QString documentOf(const char* path) {
    QFile file(QStringLiteral(REPOSITORY "/") + QLatin1String(path));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path;
    return QString::fromUtf8(file.readAll());
}

TEST_F(ProgramTest, TheGalleryPicturesEveryPageInEverySkin_AndTheDocumentsShowThem) {
    const QDir pictures(folder.filePath(QStringLiteral("sheets")));
    const Ran ran =
        runProgram({QStringLiteral("gallery"), QStringLiteral("--pictures"), pictures.path()});
    EXPECT_EQ(ran.code, 0) << ran.err.toStdString();
    const QStringList skins = workbench::fieldNamed(workbench::hostFields(), "skin").words;
    ASSERT_GE(skins.size(), 2);
    const QStringList pages = QDir(pictures.filePath(skins.first())).entryList(QDir::Files);
    EXPECT_GE(pages.size(), 16);
    QStringList files;
    for (const QString& skin : skins) {
        const QImage sheet(pictures.filePath(QStringLiteral("gallery-%1.png").arg(skin)));
        EXPECT_GT(sheet.width(), 4 * 300) << skin.toStdString();
        EXPECT_GT(sheet.height(), 4 * 300) << skin.toStdString();
        const QString inReadme = QStringLiteral("(docs/pictures/gallery-%1.png)").arg(skin);
        for (const char* readme : {"README.md", "README.zh-CN.md"})
            EXPECT_TRUE(documentOf(readme).contains(inReadme)) << readme << skin.toStdString();
        files << QStringLiteral("gallery-%1.png").arg(skin);
        files << QStringLiteral("scales-%1.png").arg(skin);
        for (const QString& page : pages) files << skin + QLatin1Char('/') + page;
    }
    const QString gallery = documentOf("docs/gallery.md");
    for (const QString& file : files) {
        EXPECT_FALSE(QImage(pictures.filePath(file)).isNull()) << file.toStdString();
        EXPECT_TRUE(ran.out.contains(pictures.filePath(file))) << file.toStdString();
        EXPECT_TRUE(gallery.contains(QStringLiteral("(pictures/%1)").arg(file)))
            << "docs/gallery.md lacks " << file.toStdString();
        EXPECT_TRUE(QFile::exists(QStringLiteral(REPOSITORY "/docs/pictures/") + file))
            << file.toStdString();
    }
}

TEST_F(ProgramTest, AGalleryPageIsPixelForPixel_WithItsMenuOverIt) {
    const QString pictures = folder.filePath(QStringLiteral("pages"));
    const Ran ran = runProgram({play, QStringLiteral(REPOSITORY "/tests/scenarios/gallery.json"),
                                QStringLiteral("--pictures"), pictures});
    EXPECT_EQ(ran.code, 0) << ran.err.toStdString();
    const QImage page(pictures + QStringLiteral("/models.png"));
    const QImage menu(pictures + QStringLiteral("/fee-menu.png"));
    EXPECT_EQ(page.size(), QSize(880, 750));
    EXPECT_EQ(menu.size(), page.size());
    const QRect below(0, 300, 880, 450);
    EXPECT_NE(menu, page);
    EXPECT_EQ(menu.copy(below), page.copy(below));
}

TEST_F(ProgramTest, WhatTheCommandLineLacksOrDoesNotKnowEndsWith2) {
    struct Wrong {
        QStringList arguments;
        const char* reason;
    };
    const QString file = scenario(openAndClose);
    const Wrong wrongs[] = {
        {{QStringLiteral("--speed")}, "Unknown option 'speed'.\n"},
        {{play, file, QStringLiteral("--speed")}, "Unknown option 'speed'.\n"},
        {{QStringLiteral("jump")}, "unknown command jump\n"},
        {{play}, "play: which files?\n"},
        {{QStringLiteral("tour"), file}, "tour: unknown argument "},
        {{QStringLiteral("gallery"), file}, "gallery: unknown argument "},
        {{QStringLiteral("diff"), file}, "diff: takes two journals\n"},
        {{QStringLiteral("diff"), file, file, file}, "diff: takes two journals\n"},
        {{QStringLiteral("record")}, "record: takes one file\n"},
        {{QStringLiteral("record"), QString()}, "record: takes one file\n"},
        {{QStringLiteral("record"), file, file}, "record: takes one file\n"},
        {{play, file, QStringLiteral("--skin"), QStringLiteral("red")},
         "--skin: must be light or dark or contrast\n"},
        {{play, file, QStringLiteral("--journal"), QString()}, "--journal: must not be empty\n"},
        {{play, file, QStringLiteral("--installation=")}, "--installation: must not be empty\n"},
        {{play, file, QStringLiteral("--pictures=")}, "--pictures: must not be empty\n"},
        {{play, file, QStringLiteral("--watch")}, "--watch: there is no display\n"},
        {{QStringLiteral("--coverage")}, "--coverage: goes with play alone\n"},
        {{QStringLiteral("tour"), QStringLiteral("--coverage")},
         "--coverage: goes with play alone\n"},
        {{QStringLiteral("gallery"), QStringLiteral("--coverage")},
         "--coverage: goes with play alone\n"},
        {{QStringLiteral("diff"), file, file, QStringLiteral("--coverage")},
         "--coverage: goes with play alone\n"},
        {{QStringLiteral("record"), file, QStringLiteral("--coverage")},
         "--coverage: goes with play alone\n"},
        {{play, file, QStringLiteral("--force")}, "--force: goes with record alone\n"}};
    for (const Wrong& wrong : wrongs) {
        const Ran ran = runProgram(wrong.arguments);
        EXPECT_EQ(ran.code, 2) << wrong.reason;
        EXPECT_TRUE(ran.err.startsWith(QLatin1String(wrong.reason))) << ran.err.toStdString();
        EXPECT_EQ(ran.out.toStdString(), "");
    }
}

#ifdef Q_OS_UNIX
TEST_F(ProgramTest, WithoutADisplayThereIsNothingToWatch) {
    for (const QStringList& arguments :
         {QStringList{play, scenario(openAndClose), QStringLiteral("--watch")},
          QStringList{QStringLiteral("tour"), QStringLiteral("--watch")},
          QStringList{QStringLiteral("record"), folder.filePath(QStringLiteral("r.json"))},
          QStringList{}}) {
        const Ran ran = runProgram(arguments, {});
        EXPECT_EQ(ran.code, 2) << arguments.join(QLatin1Char(' ')).toStdString();
        EXPECT_TRUE(ran.err.endsWith(QStringLiteral("there is no display\n")))
            << ran.err.toStdString();
    }
}
#endif

TEST_F(ProgramTest, ARecordingThatCouldNotBeWrittenEndsWith2BeforeTheWindowOpens) {
    const QString file = folder.filePath(QStringLiteral("none/recorded.json"));
    const Ran ran = runProgram({QStringLiteral("record"), file});
    EXPECT_EQ(ran.code, 2);
    EXPECT_TRUE(
        ran.err.endsWith(QStringLiteral("%1: %2\n").arg(file, testing_support::noSuchFolder())))
        << ran.err.toStdString();
    EXPECT_EQ(ran.out.toStdString(), "");
}

TEST_F(ProgramTest, ARecordingTakesTheFileOfNobody) {
    const QString file = scenario(openAndClose);
    const QByteArray before = testing_support::contentOf(file);
    const QString record = QStringLiteral("record");
    const QString journal = QStringLiteral("--journal");
    const QString fresh = folder.filePath(QStringLiteral("fresh.json"));
    const QString round = folder.filePath(QStringLiteral("../%1/fresh.json"))
                              .arg(QFileInfo(folder.path()).fileName());
    const QString same = QStringLiteral("--journal: must be another file than that of record\n");
    const struct {
        QStringList arguments;
        QString error;
    } rows[] = {
        {{record, file}, file + QStringLiteral(": is there already; --force takes its place\n")},
        {{record, file, QStringLiteral("--force"), journal, file}, same},
        {{record, fresh, journal, fresh}, same},
        {{record, fresh, journal, round}, same}};
    for (const auto& row : rows) {
        const Ran ran = runProgram(row.arguments);
        EXPECT_EQ(ran.code, 2);
        EXPECT_EQ(ran.err, row.error);
        EXPECT_EQ(testing_support::contentOf(file), before);
        EXPECT_FALSE(QFileInfo::exists(fresh));
    }
}

TEST_F(ProgramTest, HelpTellsEveryCommandAndOption) {
    const Ran ran = runProgram({QStringLiteral("--help")});
    EXPECT_EQ(ran.code, 0);
    EXPECT_EQ(ran.err.toStdString(), "");
    EXPECT_TRUE(ran.out.startsWith(QStringLiteral("Usage: ")));
    EXPECT_EQ(runProgram({QStringLiteral("-h")}).out, ran.out);
    EXPECT_EQ(runProgram({play, QStringLiteral("--help")}).out, ran.out);
    for (const char* word :
         {"[options] [play FILE... | tour | diff A B | record FILE | gallery]\n", "\n  -h, --help ",
          "\n  -v, --version ", "\n  --installation <DIR> ", "\n  --journal <FILE> ",
          "\n  --pictures <DIR> ", "\n  --settings <FILE> ", "\n  --skin <SKIN> ",
          "\n  --scale <SCALE> ", "\n  --watch ", "\n  --coverage ", "\n  --force ",
          "\n  play FILE... ", "\n  tour ", "\n  diff A B ", "\n  record FILE ", "\n  gallery ",
          "Exit codes: "})
        EXPECT_TRUE(ran.out.contains(QLatin1String(word))) << word;
    const QStringList lines = ran.out.split(QLatin1Char('\n')).mid(1);  // behind the program's path
    for (const QString& line : lines) EXPECT_LE(line.size(), 80) << line.toStdString();
}

TEST_F(ProgramTest, TheVersionIsTheProjectsAndNeedsNoDisplay) {
    QFile project(QStringLiteral(REPOSITORY "/CMakeLists.txt"));
    ASSERT_TRUE(project.open(QIODevice::ReadOnly));
    const auto version = QRegularExpression(QStringLiteral("VERSION (\\d+\\.\\d+\\.\\d+)"))
                             .match(QString::fromUtf8(project.readAll()));
    ASSERT_TRUE(version.hasMatch());
    const QString line = QStringLiteral("newpro-workbench %1 (Qt %2)\n")
                             .arg(version.captured(1), QLatin1String(qVersion()));
    for (const char* option : {"--version", "-v"}) {
        const Ran ran = runProgram({QLatin1String(option)}, {});
        EXPECT_EQ(ran.code, 0) << option;
        EXPECT_EQ(ran.out, line) << option;
        EXPECT_EQ(ran.err.toStdString(), "") << option;
    }
}

}  // namespace
