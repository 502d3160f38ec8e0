/// What docs/writing-a-host.md says in tables and lines of code, against the code that it is about.
#include <QJsonArray>
#include <QMap>
#include <QRegularExpression>
#include <QSet>

#include "core/hostMessages.h"
#include "dialog/NewProCfgDialog.h"
#include "files/fileFlow.h"
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

QSet<QString> suffixesIn(const QString& cell) {
    return wordsIn(cell, QStringLiteral("\\bS?(GCF|PMW|BAK)[XZGJ]?\\b"));
}

TEST(HostPage, HasTheSuffixesOfThePages) {
    const QMap<QString, newpro::FileFlow> flows{
        {QStringLiteral("audit"), newpro::FileFlow::Audit},
        {QStringLiteral("estimate"), newpro::FileFlow::Estimate},
        {QStringLiteral("settlement"), newpro::FileFlow::Settlement},
        {QStringLiteral("general contracting"), newpro::FileFlow::Contracting}};
    const auto rows = rowsLike(QStringLiteral("^\\| ([a-z ]+) \\| (\\d+) \\| (.*)\\| (.*) \\|$"));
    ASSERT_EQ(rows.size(), flows.size());
    QSet<QString> all{QStringLiteral("TXT"), QStringLiteral("MODX"), QStringLiteral("GCFJ")};
    for (const QStringList& row : rows) all += suffixesIn(row.at(3));
    for (const QStringList& row : rows) {
        ASSERT_TRUE(flows.contains(row.at(0))) << qPrintable(row.at(0));
        const newpro::ChoiceTraits& choice = newpro::choiceOf(flows.value(row.at(0)));
        EXPECT_EQ(choice.suffixKind, row.at(1).toInt());
        EXPECT_EQ(QSet<QString>(choice.notBrowsed.begin(), choice.notBrowsed.end()),
                  suffixesIn(row.at(2)));
        EXPECT_EQ(choice.hostMustKnow, row.at(3).contains(QLatin1String("GetProgramTypeByFile")));
        const bool named = row.at(3).startsWith(QLatin1String("all but"));
        for (const QString& suffix : all)
            EXPECT_EQ(choice.takesSuffix(suffix), suffixesIn(row.at(3)).contains(suffix) == named)
                << qPrintable(row.at(0)) << " " << qPrintable(suffix);
    }
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
