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

int rowsThatShow(const QVector<QJsonObject>& journal, int at, const QString& group) {
    int count = 0;
    for (const CoverageRow& row : rows())
        if (row.group == group && row.isShownBy(journal, at)) ++count;
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
        const QVector<QJsonObject> journal = contract::journalOf(scenario);
        for (int at = 0; at < journal.size(); ++at) {
            const QJsonObject& line = journal.at(at);
            const QString kind = line.value(QLatin1String("kind")).toString();
            QString group = groups.value(kind);
            if (line.value(QLatin1String("event")) == QLatin1String("done"))
                group = QStringLiteral("exits");
            if (group.isEmpty()) continue;
            EXPECT_EQ(rowsThatShow(journal, at, group), 1)
                << scenario.toStdString() << " line " << line.value(QLatin1String("seq")).toInt();
            const bool message =
                line.value(QLatin1String("name")).toString().contains(QLatin1String("::SendMsg"));
            if (message) {
                EXPECT_EQ(rowsThatShow(journal, at, QStringLiteral("messages")), 1)
                    << scenario.toStdString();
            }
        }
    }
}

QJsonObject box(const QString& text) {
    return {{QStringLiteral("kind"), QStringLiteral("box")},
            {QStringLiteral("args"), QJsonArray{QStringLiteral("提示"), text}}};
}

/// What the cloud service says of a folder.
QJsonObject folderAnswer(const QString& text) {
    return {{QStringLiteral("kind"), QStringLiteral("call")},
            {QStringLiteral("name"), QStringLiteral("zFileDialog::LoadQyypMlData")},
            {QStringLiteral("answer"), QJsonObject{{QStringLiteral("msg"), text}}}};
}

TEST(Coverage, KnowsWhatTheCloudServiceSaysByItsAnswer) {
    const QString refusals = QStringLiteral("refusals");
    const QString denied = QStringLiteral("无权访问"), other = QStringLiteral("别的话");
    const auto shown = [&](const QVector<QJsonObject>& journal) {
        return rowsThatShow(journal, journal.size() - 1, refusals);
    };
    EXPECT_EQ(shown({folderAnswer(denied), box(denied)}), 1);
    EXPECT_EQ(shown({folderAnswer(denied), box(other)}), 0) << "nobody has said this";
    EXPECT_EQ(shown({folderAnswer(denied), folderAnswer(other), box(denied)}), 0);
    EXPECT_EQ(shown({folderAnswer(QString()), box(QString())}), 0);
    EXPECT_EQ(shown({box(denied), folderAnswer(denied)}), 0);
    EXPECT_EQ(shown({box(denied)}), 0);
}

void expectRefusal(const QString& text) {
    int named = 0;
    for (const CoverageRow& row : rows())
        if (row.isShownBy({box(text)}, 0) && text.startsWith(row.text)) ++named;
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
