/// What docs/writing-a-host.md says in tables and lines of code, against the code that it is about.
#include <QJsonArray>
#include <QRegularExpression>
#include <QSet>

#include "core/hostMessages.h"
#include "dialog/NewProCfgDialog.h"
#include "tests/support/TestSupport.h"

namespace {

using testing_support::entriesOf;
using testing_support::TemporaryInstallation;
using testing_support::utf;

/// @return the cells of the page's rows that a pattern is true of.
QVector<QStringList> rowsLike(const QString& pattern) {
    const QString page =
        testing_support::textOf(QStringLiteral(REPOSITORY "/docs/writing-a-host.md"));
    auto found = QRegularExpression(pattern, QRegularExpression::MultilineOption).globalMatch(page);
    QVector<QStringList> rows;
    while (found.hasNext()) rows.append(found.next().capturedTexts().mid(1));
    return rows;
}

QSet<QString> wordsIn(const QString& text, const QString& pattern) {
    QSet<QString> words;
    auto found = QRegularExpression(pattern).globalMatch(text);
    while (found.hasNext()) words.insert(found.next().captured());
    return words;
}

TEST(HostPage, HasTheKeysOfPageData) {
    const auto rows =
        rowsLike(QStringLiteral("^\\| `(\\w+)`, [^|]* \\| `(\\w+)` \\| (\\d[\\d, ]*) \\|$"));
    EXPECT_EQ(rows.size(), 4);
    const QString value = QStringLiteral("chosen");
    for (const QStringList& row : rows) {
        QSet<QString> codes;
        for (const int kind : {4, 5, 6, 8, 16, 17, 32}) {
            const auto message = newpro::pageMessage({{row.at(0), value}}, kind);
            QStringList members;
            for (auto it = message.body.begin(); it != message.body.end(); ++it)
                if (*it == value) members.append(it.key());
            if (members.isEmpty()) continue;
            EXPECT_EQ(members, QStringList(row.at(1)));
            codes.insert(QString::number(message.code));
        }
        EXPECT_EQ(codes, wordsIn(row.at(2), QStringLiteral("\\d+"))) << qPrintable(row.at(0));
    }
}

TEST(HostPage, ItsLinesReachWhatIsPrivate) {
    const TemporaryInstallation installation;
    NewProCfgDialog dialog(0, true, nullptr);
    const QString cloudPath = utf("个人云盘/none.GCFX"), model = utf("概算");
#include "pageData.inc"
    EXPECT_FALSE(found);
    EXPECT_EQ(entriesOf("zFileDialog::LoadGrypData").size(), 1);
    const QVector<QJsonObject> sent = entriesOf("Communication::SendMsgToPlugin");
    ASSERT_EQ(sent.size(), 1);
    EXPECT_EQ(sent.constFirst().value(QLatin1String("args")).toArray().at(1), 102);
    EXPECT_EQ(sent.constFirst().value(QLatin1String("args"))[2][QLatin1String("GcLx")], model);
}

}  // namespace
