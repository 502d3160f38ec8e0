#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

#include "conformance/conformance.h"

#include "tests/support/TestSupport.h"
#include "workbench/journal/Journal.h"
#include "workbench/scenario/TemporaryCopy.h"

namespace {

using conformance::Row;
using conformance::Verdict;

struct SampleHost {
    SampleHost() : copy(QStringLiteral(REPOSITORY "/workbench/installation")) {
        host.reset();
        const QString error = host.loadInstallation(copy.folder());
        EXPECT_TRUE(error.isEmpty()) << qPrintable(error);
    }
    ~SampleHost() { host.reset(); }
    QString path(const char* relative) const {
        return copy.folder() + QLatin1Char('/') + QString::fromUtf8(relative);
    }

    workbench::Host& host = workbench::Host::instance();
    const workbench::TemporaryCopy copy;
};

conformance::Files filesOf(const SampleHost& sample) {
    return {sample.path("ProjectFiles/锦江区第三中学教学楼.GCFX"),
            sample.path("Workbooks/教学楼分部分项清单.xlsx"),
            QStringLiteral("u1"),
            QStringLiteral("secret"),
            {QStringLiteral("个人云盘/练习/定额换算练习.GCF"),
             QStringLiteral("企业云盘/造价一部/住宅项目/锦绣花园一标段.GCFX")}};
}

/// Where libraries are no ELF files nothing can stand before the host's own function.
#ifdef __ELF__
const QString unheard;
#else
const QString unheard = QStringLiteral("reports of exceptions are taken");
#endif

TEST(Conformance, TheWorkbenchKeepsEveryPromise) {
    const SampleHost sample;
    const QVector<Row> rows = conformance::checkHost(filesOf(sample));
    EXPECT_GE(rows.size(), 70);
    for (const Row& row : rows)
        EXPECT_EQ(row.verdict, row.promise == unheard ? Verdict::NotReached : Verdict::Holds)
            << qPrintable(conformance::lineOf(row));
}

/// @return the operations that the guide says the check changes something by.
QSet<QString> changesInTheGuide() {
    const QString guide =
        testing_support::textOf(QStringLiteral(REPOSITORY "/docs/writing-a-host.md"));
    const int start = guide.indexOf(QLatin1String("### What the check leaves behind"));
    const int end = guide.indexOf(QLatin1String("\n## "), start);
    EXPECT_GE(start, 0);
    QSet<QString> operations;
    auto found =
        QRegularExpression(QStringLiteral("`(\\w+)`")).globalMatch(guide.mid(start, end - start));
    while (found.hasNext()) operations.insert(found.next().captured(1));
    return operations;
}

/// What answers nothing is there for what it does.
TEST(Conformance, TheGuideTellsWhatTheCheckChanges) {
    const SampleHost sample;
    conformance::checkHost(filesOf(sample));
    QSet<QString> done;
    for (const QJsonObject& line : workbench::Journal::instance().entries()) {
        const QString name = line.value(QLatin1String("name")).toString();
        if (line.value(QLatin1String("kind")) == QLatin1String("call") &&
            !line.contains(QLatin1String("answer")) &&
            !name.endsWith(QLatin1String("MaxDialogMode")))
            done.insert(name.section(QLatin1String("::"), -1));
    }
    // A download answers its path; the workbench journals a report as an exception.
    done += {QStringLiteral("downLoadYunpanFile"), QStringLiteral("ProcExceptionNew")};
    EXPECT_EQ(changesInTheGuide(), done);
}

TEST(Conformance, AHostThatIsNotReadyIsNotReached) {
    const SampleHost sample;
    sample.host.switches().firstPage = workbench::FirstPage::Absent;
    int notReached = 0;
    for (const Row& row : conformance::checkHost({})) {
        EXPECT_NE(row.verdict, Verdict::Differs) << qPrintable(conformance::lineOf(row));
        notReached += row.verdict == Verdict::NotReached;
    }
    EXPECT_GE(notReached, 5);
}

/// A row that nobody breaks could hold for ever, whatever a host did. That the first line of these
/// hosts is what the check complains of first is held by their own tests.
TEST(Conformance, EveryPromiseIsTheFirstThatSomeHostBreaks) {
    QSet<QString> broken;
    for (const char* kind : {"wrong", "lost"}) {
        const QDir hosts(QStringLiteral(REPOSITORY "/tests/conformance/") + QLatin1String(kind));
        for (const QFileInfo& source : hosts.entryInfoList({QStringLiteral("*.cpp")})) {
            QFile file(source.filePath());
            ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(source.filePath());
            broken += QString::fromUtf8(file.readLine()).mid(3).trimmed();
        }
    }
    QSet<QString> promises{QStringLiteral("it starts, and ends without a crash")};
    for (const Row& row : conformance::promisesOf({})) promises += row.promise;
    for (const QString& promise : promises - broken)
        ADD_FAILURE() << "nobody breaks: " << qPrintable(promise);
    for (const QString& promise : broken - promises)
        ADD_FAILURE() << "no promise: " << qPrintable(promise);
}

TEST(Conformance, ARowIsALineForATerminal) {
    const Row row{QStringLiteral("flows"), QStringLiteral("a promise"), Verdict::Differs,
                  QStringLiteral("another")};
    EXPECT_EQ(conformance::lineOf(row),
              QStringLiteral("DIFFERS      flows     a promise\n             another"));
    EXPECT_EQ(conformance::summaryOf({row, row}),
              QStringLiteral("0 hold, 2 differ, 0 not reached"));
}

TEST(Conformance, ProgressTellsEachPromiseBeforeAndAfter) {
    const SampleHost sample;
    QStringList begun, ended;
    conformance::checkHost({}, {[&](const Row& row) { begun += row.promise; },
                                [&](const Row& row) { ended += row.promise; }});
    EXPECT_EQ(begun, ended);
    EXPECT_EQ(begun.removeDuplicates(), 0);

    QStringList promises;
    for (const Row& row : conformance::promisesOf({})) promises += row.promise;
    EXPECT_EQ(promises, ended);
    QStringList last;
    conformance::checkHost({}, {{}, [&](const Row& row) { last += row.promise; }},
                           promises.size() - 2);
    EXPECT_EQ(last, promises.mid(promises.size() - 2));
}

}  // namespace
