#include <QDir>
#include <QFile>
#include <cstdio>
#include <ostream>

#include "fuzz/support.h"
#include "fuzz/targets.h"
#include "tests/support/TestSupport.h"

namespace fuzzing {

static void PrintTo(const Target& target, std::ostream* out) {
    *out << target.name;
}

}  // namespace fuzzing

namespace {

using fuzzing::Target;

class Corpus : public testing::TestWithParam<Target> {};

QFileInfoList filesIn(const QString& folder) {
    return QDir(QStringLiteral(REPOSITORY "/") + folder).entryInfoList(QDir::Files, QDir::Name);
}

/// A broken promise ends the process; the file is then the last one told.
TEST_P(Corpus, KeepsItsPromises) {
    const Target& target = GetParam();
    QFileInfoList files = filesIn(QStringLiteral("fuzz/corpus/") + QLatin1String(target.name));
    ASSERT_FALSE(files.isEmpty());
    if (qstrcmp(target.name, "workbook") == 0) {
        files += filesIn(QStringLiteral("workbench/installation/Workbooks"));
    }
    for (const QFileInfo& info : files) {
        std::fprintf(stderr, "%s\n", qUtf8Printable(info.filePath()));
        QFile file(info.filePath());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        target.fuzzOne(file.readAll());
    }
}

INSTANTIATE_TEST_SUITE_P(Targets, Corpus, testing::ValuesIn(fuzzing::targets()),
                         [](const auto& info) { return info.param.name; });

TEST(FuzzInput, IsTakenLineByLineAndTheLastOneNeedNotEnd) {
    QByteArray text = "first\n\nlast";
    for (const char* line : {"first", "", "last", ""})
        EXPECT_EQ(fuzzing::takeLine(text).toStdString(), line);
    text = "ended\n";
    EXPECT_EQ(fuzzing::takeLine(text).toStdString(), "ended");
    EXPECT_TRUE(text.isEmpty());
}

TEST(FuzzTargets, AreFoundByTheirNames) {
    for (const Target& target : fuzzing::targets()) {
        EXPECT_EQ(fuzzing::targetNamed(target.name), target.fuzzOne) << target.name;
    }
    EXPECT_FALSE(fuzzing::targetNamed("none"));
}

}  // namespace
