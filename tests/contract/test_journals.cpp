#include <QMap>
#include <QRegularExpression>
#include <iostream>
#include <map>
#include <optional>

#include "tests/contract/Contract.h"
#include "tests/schemas/Schema.h"
#include "tests/support/TestSupport.h"

namespace {

using contract::Message;
using schemas::Schema;

TEST(Journals, EveryLineIsAsDescribed) {
    const Schema schema(QStringLiteral("docs/contract/journal-line.schema.json"));
    int lines = 0;
    for (const QString& scenario : contract::scenarios()) {
        const QVector<QJsonObject> journal = contract::journalOf(scenario);
        EXPECT_FALSE(journal.isEmpty()) << scenario.toStdString();
        for (const QJsonObject& line : journal)
            EXPECT_EQ(schema.refusal(line), QString())
                << scenario.toStdString() << " line " << line.value(QLatin1String("seq")).toInt();
        lines += journal.size();
    }
    std::cout << lines << " lines\n";
}

class JournalsMessages : public testing::Test {
  protected:
    JournalsMessages() {
        for (const Message& message : contract::messages())
            schemas.try_emplace(message.schema, message.file());
    }

    /// @return the cases that a line is of; nothing for a line that is no message.
    std::optional<QStringList> casesOf(const QJsonObject& line) const {
        std::optional<QStringList> cases;
        for (const Message& message : contract::messages()) {
            if (!message.isNamedBy(line)) continue;
            if (!cases) cases.emplace();
            const QJsonValue args = line.value(QLatin1String("args"));
            if (schemas.at(message.schema).accepts(args)) cases->append(message.schema);
        }
        return cases;
    }

    std::map<QString, Schema> schemas;
};

TEST_F(JournalsMessages, AreOfOneCaseEachAndReachEveryCase) {
    QMap<QString, int> counts;
    for (const QString& scenario : contract::scenarios()) {
        for (const QJsonObject& line : contract::journalOf(scenario)) {
            const auto cases = casesOf(line);
            if (!cases) continue;
            EXPECT_EQ(cases->size(), 1)
                << scenario.toStdString() << " line " << line.value(QLatin1String("seq")).toInt();
            for (const QString& schema : *cases) ++counts[schema];
        }
    }
    for (const Message& message : contract::messages()) {
        EXPECT_GT(counts.value(message.schema), 0) << message.schema.toStdString();
        std::cout << counts.value(message.schema) << " " << message.schema.toStdString() << "\n";
    }
}

/// The table of docs/contract/README.md names a scenario for each message.
TEST_F(JournalsMessages, CrossInTheScenariosThatTheTableNames) {
    const QRegularExpression row(
        QStringLiteral("\\]\\(([\\w-]+)\\.schema\\.json\\) \\|.*/([\\w-]+)\\.json\\) \\|"));
    auto rows = row.globalMatch(contract::table());
    int count = 0;
    for (; rows.hasNext(); ++count) {
        const auto found = rows.next();
        bool crosses = false;
        for (const QJsonObject& line : contract::journalOf(found.captured(2))) {
            const auto cases = casesOf(line);
            crosses = crosses || (cases && cases->contains(found.captured(1)));
        }
        EXPECT_TRUE(crosses) << found.captured(0).toStdString();
    }
    EXPECT_EQ(count, contract::messages().size());
}

}  // namespace
