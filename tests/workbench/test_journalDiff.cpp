#include "workbench/scenario/journalDiff.h"

#include <QFile>
#include <algorithm>
#include <ctime>
#include <random>

#include "tests/support/PeakMemory.h"
#include "tests/workbench/RunProgram.h"

namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr int dearer = 3;  // every access is looked at
#else
constexpr int dearer = 1;
#endif

using testing_support::Lines;
using workbench::journalDifference;
using workbench_test::Ran;
using workbench_test::runProgram;

using Entries = QVector<QJsonObject>;

/// @return a journal of calls of these names.
Entries calls(const QStringList& names, int firstSeq = 1) {
    Entries entries;
    for (const QString& name : names)
        entries.append(QJsonObject{{QStringLiteral("seq"), firstSeq++},
                                   {QStringLiteral("ms"), 10 * firstSeq},
                                   {QStringLiteral("kind"), QStringLiteral("call")},
                                   {QStringLiteral("name"), name},
                                   {QStringLiteral("args"), QJsonArray()}});
    return entries;
}

Entries letters(const char* text, int firstSeq = 1) {
    return calls(QString::fromLatin1(text).split(QString(), Qt::SkipEmptyParts), firstSeq);
}

Lines differenceOf(const Entries& left, const Entries& right) {
    Lines lines;
    for (const QString& line : journalDifference(left, right)) lines.push_back(line.toStdString());
    return lines;
}

/// @return the letters of a difference with their signs; of headings the "@" alone.
std::string shortDifference(const char* left, const char* right) {
    std::string text;
    for (const std::string& line : differenceOf(letters(left), letters(right)))
        text += line[0] == '@' ? "@" : std::string() + line[0] + line[line.find('(') - 1];
    return text;
}

/// @return how many entries a difference takes away and adds.
int changesIn(const QStringList& difference) {
    return int(std::count_if(difference.begin(), difference.end(), [](const QString& line) {
        return line.startsWith(QLatin1Char('-')) || line.startsWith(QLatin1Char('+'));
    }));
}

/// @return the length of the longest common subsequence, by its definition.
int commonLength(const QString& left, const QString& right) {
    std::vector<std::vector<int>> best(size_t(left.size()) + 1,
                                       std::vector<int>(size_t(right.size()) + 1));
    for (size_t i = 1; i <= size_t(left.size()); ++i)
        for (size_t j = 1; j <= size_t(right.size()); ++j)
            best[i][j] = left[int(i) - 1] == right[int(j) - 1]
                             ? best[i - 1][j - 1] + 1
                             : std::max(best[i - 1][j], best[i][j - 1]);
    return best.back().back();
}

TEST(JournalDifference, OfEqualJournalsIsEmpty) {
    EXPECT_EQ(differenceOf({}, {}), Lines());
    EXPECT_EQ(differenceOf(letters("abc"), letters("abc")), Lines());
}

TEST(JournalDifference, LeavesNumbersAndTimesOut) {
    EXPECT_EQ(differenceOf(letters("abc"), letters("abc", 70)), Lines());
}

TEST(JournalDifference, ShowsWhatChangedBetweenAFewLinesAsTheTourDoes) {
    EXPECT_EQ(differenceOf(letters("abcdefghi"), letters("abcdXfghi")),
              (Lines{"@@ -2,7 +2,7 @@", "    2  call      b()", "    3  call      c()",
                     "    4  call      d()", "-   5  call      e()", "+   5  call      X()",
                     "    6  call      f()", "    7  call      g()", "    8  call      h()"}));
}

TEST(JournalDifference, ShowsWhatIsMissingAddedAndMoved) {
    EXPECT_EQ(shortDifference("abc", "ac"), "@ a-b c");
    EXPECT_EQ(shortDifference("ac", "abc"), "@ a+b c");
    EXPECT_EQ(shortDifference("abcd", "bcda"), "@-a b c d+a");
    EXPECT_EQ(shortDifference("ab", ""), "@-a-b");
    EXPECT_EQ(shortDifference("", "ab"), "@+a+b");
    EXPECT_EQ(shortDifference("a0123456z", "b0123456y"), "@-a+b 0 1 2@ 4 5 6-z+y");
    EXPECT_EQ(shortDifference("a012345z", "b012345y"), "@-a+b 0 1 2 3 4 5-z+y");
}

TEST(JournalDifference, AnEmptyPartHasTheNumberOfTheLineBefore) {
    EXPECT_EQ(differenceOf({}, letters("a")).front(), "@@ -0,0 +1,1 @@");
    EXPECT_EQ(differenceOf(letters("ab"), letters("")).front(), "@@ -1,2 +0,0 @@");
}

TEST(JournalDifference, IsAsShortAsItCanBe) {
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        QString sides[2];
        for (QString& side : sides)
            for (unsigned length = random() % (round % 10 ? 14 : 200); length > 0; --length)
                side += QChar(int('a' + random() % 4));
        const QStringList found = journalDifference(letters(sides[0].toLatin1().constData()),
                                                    letters(sides[1].toLatin1().constData()));
        EXPECT_EQ(changesIn(found),
                  sides[0].size() + sides[1].size() - 2 * commonLength(sides[0], sides[1]))
            << sides[0].toStdString() << " " << sides[1].toStdString();
    }
}

TEST(JournalDifference, LeavesTheFolderOfAPlayAndTheDayOfAProjectOut) {
    const auto project = [](const char* folder, const char* name) {
        return Entries{QJsonObject{
            {QStringLiteral("kind"), QStringLiteral("project")},
            {QStringLiteral("name"),
             QLatin1String(folder) + QLatin1String("/ProjectFiles/") + QLatin1String(name)}}};
    };
    const Entries one = project("/tmp/newpro-workbench-0123456789abcdef", "a-20260101-001.GCFX");
    EXPECT_EQ(differenceOf(one, project("/var/t m/newpro-workbench-fedcba9876543210",
                                        "a-20271231-001.GCFX")),
              Lines());
    EXPECT_EQ(
        differenceOf(one, project("/tmp/newpro-workbench-0123456789abcdef", "a-20260101-002.GCFX")),
        (Lines{"@@ -1,1 +1,1 @@",
               "-   0  project   {installation}/ProjectFiles/a-20260101-001.GCFX",
               "+   0  project   {installation}/ProjectFiles/a-20260101-002.GCFX"}));
}

/// @return an entry with one text.
QJsonObject saying(const char* text) {
    return {{QStringLiteral("kind"), QStringLiteral("call")},
            {QStringLiteral("name"), QStringLiteral("a")},
            {QStringLiteral("args"), QJsonArray{QString::fromUtf8(text)}}};
}

TEST(JournalDifference, OfAFolderLeavesNothingElseOut) {
    const char* const named = "/tmp/newpro-workbench-0123456789abcdef/ProjectFiles";
    const struct {
        const char *left, *right;
        bool differs;
    } rows[] = {{"/etc/a then /tmp/newpro-workbench-0123456789abcdef/b",
                 "/etc/x then /tmp/newpro-workbench-fedcba9876543210/b", true},
                {"bd##/a/b.GCFX##/tmp/newpro-workbench-0123456789abcdef/b",
                 "bd##/a/c.GCFX##/tmp/newpro-workbench-fedcba9876543210/b", true},
                {"/etc/a:/tmp/newpro-workbench-0123456789abcdef/b",
                 "/etc/x:/tmp/newpro-workbench-fedcba9876543210/b", true},
                {"1/2, /tmp/newpro-workbench-0123456789abcdef/b",
                 "1/3, /tmp/newpro-workbench-fedcba9876543210/b", true},
                {"bd##/tmp/newpro-workbench-0123456789abcdef/b",
                 "bd##/tmp/newpro-workbench-fedcba9876543210/b", false},
                {"not found: /tmp/newpro-workbench-0123456789abcdef/b",
                 "not found: /tmp/newpro-workbench-fedcba9876543210/b", false}};
    for (const auto& row : rows) {
        EXPECT_EQ(!journalDifference({saying(named), saying(row.left)},
                                     {saying(named), saying(row.right)})
                       .isEmpty(),
                  row.differs)
            << row.left;
        EXPECT_EQ(!journalDifference({saying(row.left)}, {saying(row.right)}).isEmpty(),
                  row.differs)
            << row.left << ", where no other text names the folder";
    }
}

TEST(JournalDifference, OfThirtyThousandDistinctLinesTakesLittleMemory) {
    std::mt19937 random(5);
    QStringList names;
    for (int i = 0; i < 30000; ++i) names.append(QString::number(i));
    const Entries left = calls(names);
    std::shuffle(names.begin(), names.end(), random);
    const Entries right = calls(names);
    const testing_support::PeakMemory memory;
    EXPECT_GT(changesIn(journalDifference(left, right)), 50000);
    EXPECT_GT(memory.growth(), 5 * 1000 * 1000) << "the places alone: else nothing was measured";
    EXPECT_LT(memory.growth(), 60 * 1000 * 1000)
        << "texts, lines and places; a table of the lines by each other would take 225";
}

TEST(JournalDifference, OfTenThousandLinesTakesLessThanTwoSeconds) {
    std::mt19937 random(3);
    QStringList sides[2];
    for (QStringList& side : sides)
        for (int i = 0; i < 10000; ++i) side.append(QString::number(random() % 50));
    const Entries left = calls(sides[0]);
    const Entries right = calls(sides[1]);
    const std::clock_t start = std::clock();  // of this process alone, whatever else is going on
    EXPECT_GT(changesIn(journalDifference(left, right)), 1000);
    EXPECT_LT(double(std::clock() - start) / CLOCKS_PER_SEC, dearer * 2);
}

class JournalFileTest : public testing::Test {
  protected:
    QString write(const char* name, const QByteArray& content) {
        QFile file(folder.filePath(QLatin1String(name)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
        return file.fileName();
    }
    Ran diff(const QString& left, const QString& right) {
        return runProgram({QStringLiteral("diff"), left, right}, {});
    }
    QString played(const char* scenario, const char* name) {
        const QString journal = folder.filePath(QLatin1String(name));
        const QString file =
            QStringLiteral(REPOSITORY "/tests/scenarios/") + QLatin1String(scenario);
        EXPECT_EQ(
            runProgram({QStringLiteral("play"), file, QStringLiteral("--journal"), journal}, {})
                .code,
            0);
        return journal;
    }

    QTemporaryDir folder;
};

TEST_F(JournalFileTest, TwoPlaysOfOneScenarioDoNotDiffer) {
    const Ran ran = diff(played("model-new-project-is-offered-next.json", "a"),
                         played("model-new-project-is-offered-next.json", "b"));
    EXPECT_EQ(ran.code, 0);
    EXPECT_EQ(ran.out.toStdString(), "");
    EXPECT_EQ(ran.err.toStdString(), "");
}

TEST_F(JournalFileTest, PlaysOfTwoScenariosDifferInReadableLines) {
    const QString a = played("audit-accepts-gcfg.json", "a");
    const QString b = played("audit-host-absent.json", "b");
    const Ran ran = diff(a, b);
    EXPECT_EQ(ran.code, 1);
    EXPECT_TRUE(ran.out.startsWith(QStringLiteral("--- %1\n+++ %2\n@@ -").arg(a, b)));
    const QString asked =
        QStringLiteral("  call      osgi::ObjectHelper::GetService(\"firstPagePlugin\") → ");
    const QStringList lines = ran.out.split(QLatin1Char('\n'));
    const auto has = [&](QChar sign, const QString& end) {
        return std::any_of(lines.begin(), lines.end(), [&](const QString& line) {
            return line.startsWith(sign) && line.endsWith(end);
        });
    };
    EXPECT_TRUE(has(QLatin1Char('-'), asked + QStringLiteral("true"))) << ran.out.toStdString();
    EXPECT_TRUE(has(QLatin1Char('+'), asked + QStringLiteral("null"))) << ran.out.toStdString();
    EXPECT_FALSE(ran.out.contains(QStringLiteral("newpro-workbench-")));
}

TEST_F(JournalFileTest, AWrongFileEndsWith2AndItsPlace) {
    const QByteArray right = R"({"seq":1,"ms":2,"kind":"call","name":"a","args":[]})"
                             "\n";
    const QString good = write("good", right);
    const struct {
        QByteArray line;
        const char* reason;
    } wrongs[] = {
        {"{\"seq\":1", "no JSON: "},
        {"\n", "no JSON: "},
        {"[1]", "must be an object"},
        {R"({"ms":2,"kind":"call","name":"a"})", "seq: must be a number"},
        {R"({"seq":1,"ms":2,"name":"a"})", "kind: must be a text"},
        {R"({"seq":1,"ms":2,"kind":"jump","name":"a"})", "kind: unknown kind \"jump\""},
        {R"({"seq":1,"ms":2,"kind":"call","name":3})", "name: must be a text"},
        {R"({"seq":1,"ms":2,"kind":"call","name":"a","args":{}})", "args: must be an array"},
        {R"({"seq":1,"ms":2,"kind":"call","name":"a","more":1})", "it has a member of no journal"}};
    for (const auto& wrong : wrongs) {
        const QString bad = write("bad", right + wrong.line);
        const Ran ran = diff(good, bad);
        EXPECT_EQ(ran.code, 2);
        EXPECT_TRUE(ran.err.startsWith(bad + QStringLiteral(":2: ") + QLatin1String(wrong.reason)))
            << ran.err.toStdString();
        EXPECT_EQ(ran.out.toStdString(), "");
    }
    const QString missing = folder.filePath(QStringLiteral("missing"));
    const Ran ran = diff(missing, folder.path());
    EXPECT_EQ(ran.code, 2);
    const QString line = QStringLiteral("%1: %2\n");
    EXPECT_EQ(ran.err, line.arg(missing, testing_support::noSuchFile()) +
                           line.arg(folder.path(), testing_support::isFolderToRead()));
    EXPECT_EQ(diff(good, write("empty", "")).code, 1);
}

}  // namespace
