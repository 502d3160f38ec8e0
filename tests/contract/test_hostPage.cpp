#include <QFile>
#include <QJsonDocument>
#include <QRegularExpression>
#include <optional>

#include "tests/contract/Contract.h"
#include "tests/support/TestSupport.h"

namespace {

/// One operation of the page's table, such as `isLoaded(4)`.
struct Step {
    QString text;
    QString name;
    std::optional<QJsonArray>
        args;  ///< Null stands for any argument, as the last one for the rest.

    bool takes(const QJsonArray& told) const {
        for (int i = 0; args && i < args->size(); ++i) {
            const bool any = args->at(i).isNull();
            if (any && i + 1 == args->size()) return true;
            if (i >= told.size() || (!any && args->at(i) != told.at(i))) return false;
        }
        return !args || args->size() == told.size();
    }
    bool isShownBy(const QJsonObject& line) const {
        const QString told = line.value(QLatin1String("name")).toString();
        return (told == name || told.endsWith(QLatin1String("::") + name)) &&
               takes(line.value(QLatin1String("args")).toArray());
    }
};

Step stepOf(const QString& text) {
    static const QRegularExpression pattern(QStringLiteral("^([\\w:]+)(?:\\((.*)\\))?$"));
    const auto match = pattern.match(text);
    EXPECT_TRUE(match.hasMatch()) << text.toStdString();
    Step step{text, match.captured(1), {}};
    if (match.capturedStart(2) < 0) return step;
    const QString args = match.captured(2).replace(QChar(0x2026), QLatin1String("null"));
    const QJsonDocument read = QJsonDocument::fromJson(QStringLiteral("[%1]").arg(args).toUtf8());
    EXPECT_TRUE(read.isArray()) << text.toStdString();
    step.args = read.array();
    return step;
}

struct Row {
    QString what;
    QVector<Step> steps;
    QString scenario;
};

QVector<Row> rowsOfThePage() {
    QFile file(QStringLiteral(REPOSITORY "/docs/writing-a-host.md"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QString page = QString::fromUtf8(file.readAll());
    const QRegularExpression row(
        QStringLiteral("^\\| (.*) \\| (.*) \\| \\[([\\w-]+)\\]\\(.*\\.json\\) \\|$"),
        QRegularExpression::MultilineOption);
    const QRegularExpression step(QStringLiteral("`([^`]+)`"));
    QVector<Row> rows;
    for (auto found = row.globalMatch(page); found.hasNext();) {
        const auto cells = found.next();
        rows.append({cells.captured(1), {}, cells.captured(3)});
        for (auto each = step.globalMatch(cells.captured(2)); each.hasNext();)
            rows.last().steps.append(stepOf(each.next().captured(1)));
    }
    return rows;
}

/// @return the lines that the table speaks of: not the host's singletons and its main window, and
/// of
///         the windows their end alone, as "done" with its result.
QVector<QJsonObject> toldIn(const QString& scenario) {
    static const QRegularExpression askedAllTheTime(
        QStringLiteral("::([gG]etInstance|Instance|Kvy|GetProjectSettingHelper|GetMainWindow)$"));
    QVector<QJsonObject> lines;
    for (QJsonObject line : contract::journalOf(scenario)) {
        const QString kind = line.value(QLatin1String("kind")).toString();
        if (kind == QLatin1String("dialog")) {
            if (line.value(QLatin1String("event")) != QLatin1String("done")) continue;
            line[QStringLiteral("name")] = QStringLiteral("done");
            line[QStringLiteral("args")] = QJsonArray{line.value(QLatin1String("result"))};
        } else if (kind != QLatin1String("call") && kind != QLatin1String("signal") &&
                   kind != QLatin1String("box")) {
            continue;
        }
        if (!line.value(QLatin1String("name")).toString().contains(askedAllTheTime))
            lines.append(line);
    }
    return lines;
}

/// @return how many of the steps follow one another in the journal, repeated ones apart, with
///         nothing between them, where it goes furthest.
int stepsTaken(const QVector<QJsonObject>& lines, const QVector<Step>& steps) {
    int best = 0;
    for (int start = 0; start < lines.size(); ++start) {
        if (!steps.constFirst().isShownBy(lines.at(start))) continue;
        int taken = 1;
        for (int i = start + 1; i < lines.size() && taken < steps.size(); ++i) {
            if (steps.at(taken).isShownBy(lines.at(i)))
                ++taken;
            else if (!steps.at(taken - 1).isShownBy(lines.at(i)))
                break;
        }
        best = qMax(best, taken);
    }
    return best;
}

TEST(JournalsHostPage, ShowTheOrderThatThePageTells) {
    int rows = 0;
    for (const Row& row : rowsOfThePage()) {
        ASSERT_FALSE(row.steps.isEmpty()) << row.what.toStdString();
        const int taken = stepsTaken(toldIn(row.scenario), row.steps);
        EXPECT_EQ(taken, row.steps.size())
            << row.what.toStdString() << ", " << row.scenario.toStdString() << ": no "
            << row.steps.value(taken).text.toStdString();
        ++rows;
    }
    EXPECT_GE(rows, 16);
}

/// Else the page could leave out what is asked, and still be right.
TEST(JournalsHostPage, LeaveNoStepOutThatThePageCouldLackUnseen) {
    for (const Row& row : rowsOfThePage()) {
        const QVector<QJsonObject> lines = toldIn(row.scenario);
        for (int i = 1; i + 1 < row.steps.size(); ++i) {
            QVector<Step> lacking = row.steps;
            lacking.remove(i);
            EXPECT_LT(stepsTaken(lines, lacking), lacking.size())
                << row.what.toStdString() << " without " << row.steps.at(i).text.toStdString();
        }
    }
}

}  // namespace
