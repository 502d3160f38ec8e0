#include "models/usageCodes.h"

#include <QRegularExpression>
#include <QSet>
#include <QVector>

#include "tests/support/TestSupport.h"

namespace {

using testing_support::textOf;

const QString none = QStringLiteral("none");

/// A row of the table in docs/writing-a-host.md.
struct UsageRow {
    QString name;
    QString function;  ///< Or `none`.
    QString letter;    ///< Or `none`.
};

const QVector<UsageRow>& rowsOfThePage() {
    static const QVector<UsageRow> rows = [] {
        const QString section =
            textOf(QStringLiteral(REPOSITORY "/docs/writing-a-host.md"))
                .section(QStringLiteral("| Letter of a card |\n|---|---|---|"), 1)
                .section(QStringLiteral("\n\n"), 0, 0);
        static const QRegularExpression row(
            QStringLiteral("^\\| ([^|]+) \\| (none|\\d+) \\| (none|[a-z]) \\|$"),
            QRegularExpression::MultilineOption);
        QVector<UsageRow> read;
        for (auto found = row.globalMatch(section); found.hasNext();) {
            const auto cells = found.next();
            read.append({cells.captured(1), cells.captured(2), cells.captured(3)});
        }
        return read;
    }();
    return rows;
}

TEST(UsageCodes, EveryModelHasTheFunctionAndTheLetterThatThePageTells) {
    EXPECT_EQ(rowsOfThePage().size(), 24);
    for (const UsageRow& row : rowsOfThePage()) {
        const int function = newpro::modelUsageFunction(row.name);
        const QString letter = newpro::modelLogCode(row.name);
        EXPECT_EQ(function ? QString::number(function) : none, row.function)
            << row.name.toStdString();
        EXPECT_EQ(letter.isNull() ? none : letter, row.letter) << row.name.toStdString();
    }
}

/// Else the page could leave a model out.
TEST(UsageCodes, ThePageHasEveryModelThatTheTablesName) {
    const QString source = textOf(QStringLiteral(REPOSITORY "/models/usageCodes.cpp"));
    static const QRegularExpression entry(QStringLiteral("\\{QStringLiteral\\(\"([^\"]+)\"\\),"));
    QSet<QString> named, told;
    for (auto found = entry.globalMatch(source); found.hasNext();)
        named.insert(found.next().captured(1));
    for (const UsageRow& row : rowsOfThePage()) told.insert(row.name);
    EXPECT_EQ(named, told);
}

TEST(UsageCodes, NamesAreComparedWholeAndExactly) {
    for (const UsageRow& row : rowsOfThePage()) {
        for (const QString& other : {row.name + QLatin1Char(' '), QLatin1Char(' ') + row.name,
                                     row.name.left(row.name.size() - 1), row.name.mid(1),
                                     row.name.toLower() + QLatin1Char('\0')}) {
            EXPECT_TRUE(newpro::modelLogCode(other).isNull()) << other.toStdString();
            EXPECT_EQ(newpro::modelUsageFunction(other), 0) << other.toStdString();
        }
    }
}

TEST(UsageCodes, UncountedModelsHaveNone) {
    EXPECT_TRUE(newpro::modelLogCode(QString()).isNull());
    EXPECT_EQ(newpro::modelUsageFunction(QString()), 0);
    EXPECT_TRUE(newpro::modelLogCode(QStringLiteral("没有的模式")).isNull());
    EXPECT_EQ(newpro::modelUsageFunction(QStringLiteral("没有的模式")), 0);
}

}  // namespace
