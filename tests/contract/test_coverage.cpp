#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <iostream>

#include "files/fileChoice.h"
#include "tests/contract/Contract.h"
#include "tests/support/TestSupport.h"
#include "workbench/scenario/Coverage.h"

namespace {

using workbench::Coverage;
using workbench::CoverageRow;

const QVector<CoverageRow>& rows() {
    static const Coverage coverage;
    return coverage.rows();
}

int rowsThatShow(const QJsonObject& line, const QString& group) {
    int count = 0;
    for (const CoverageRow& row : rows())
        if (row.group == group && row.isShownBy(line)) ++count;
    return count;
}

TEST(Coverage, OfTheScenariosLacksNothingThatCanBeReached) {
    Coverage coverage;
    for (const QString& scenario : contract::scenarios())
        coverage.add(contract::journalOf(scenario));
    EXPECT_EQ(coverage.missing(), QStringList());
    for (const CoverageRow& row : coverage.rows())
        EXPECT_TRUE(row.count == 0 || !row.whyNever) << row.text.toStdString() << ": it can be";
    for (const QString& line : coverage.table()) std::cout << line.toStdString() << "\n";
}

/// Else the table would count what it does not know as reached, or not see it at all.
TEST(Coverage, KnowsEveryLineOfTheJournals) {
    const QMap<QString, QString> groups = {{QStringLiteral("call"), QStringLiteral("operations")},
                                           {QStringLiteral("signal"), QStringLiteral("messages")},
                                           {QStringLiteral("exception"), QStringLiteral("exits")},
                                           {QStringLiteral("box"), QStringLiteral("refusals")}};
    for (const QString& scenario : contract::scenarios()) {
        for (const QJsonObject& line : contract::journalOf(scenario)) {
            const QString kind = line.value(QLatin1String("kind")).toString();
            QString group = groups.value(kind);
            if (line.value(QLatin1String("event")) == QLatin1String("done"))
                group = QStringLiteral("exits");
            if (group.isEmpty()) continue;
            EXPECT_EQ(rowsThatShow(line, group), 1)
                << scenario.toStdString() << " line " << line.value(QLatin1String("seq")).toInt();
            const bool message =
                line.value(QLatin1String("name")).toString().contains(QLatin1String("::SendMsg"));
            if (message) {
                EXPECT_EQ(rowsThatShow(line, QStringLiteral("messages")), 1)
                    << scenario.toStdString();
            }
        }
    }
}

void expectRefusal(const QString& text) {
    const QJsonObject line{{QStringLiteral("kind"), QStringLiteral("box")},
                           {QStringLiteral("args"), QJsonArray{QStringLiteral("提示"), text}}};
    int named = 0;
    for (const CoverageRow& row : rows())
        if (row.isShownBy(line) && text.startsWith(row.text)) ++named;
    EXPECT_EQ(named, 1) << text.toStdString();
}

TEST(Coverage, HasARowForEveryTextThatTheModuleRefusesWith) {
    using newpro::FileFlow;
    using newpro::Verdict;
    for (const FileFlow flow :
         {FileFlow::Estimate, FileFlow::Settlement, FileFlow::Audit, FileFlow::Contracting})
        for (const Verdict verdict :
             {Verdict::NothingChosen, Verdict::NotFound, Verdict::NotAFile, Verdict::WrongSuffix})
            expectRefusal(newpro::refusalText(flow, verdict));

    const QRegularExpression box(QStringLiteral(
        "\\b(?:refuse|refuseCritically|showInforByOneBtn)\\(\\s*QStringLiteral\\(\"([^\\\\\"]+)"));
    int literals = 0;
    for (const char* room : {"core", "models", "files", "import", "dialog"}) {
        QDirIterator sources(QStringLiteral(REPOSITORY "/") + QLatin1String(room),
                             {QStringLiteral("*.cpp")}, QDir::Files);
        while (sources.hasNext()) {
            QFile file(sources.next());
            ASSERT_TRUE(file.open(QIODevice::ReadOnly));
            const QString source = QString::fromUtf8(file.readAll());
            for (auto found = box.globalMatch(source); found.hasNext(); ++literals) {
                const QString text = found.next().captured(1);
                bool known = false;
                for (const CoverageRow& row : rows()) known |= row.text == text;
                EXPECT_TRUE(known) << text.toStdString();
            }
        }
    }
    EXPECT_EQ(literals, 6);
}

}  // namespace
