#include <QDirIterator>
#include <QJsonArray>
#include <QMetaMethod>
#include <QRegularExpression>
#include <QSet>

#include "dialog/NewProCfgDialog.h"
#include "tests/monkey/performance.h"
#include "tests/monkey/sequence.h"
#include "tests/monkey/words.h"
#include "tests/support/TestSupport.h"
#include "workbench/hostlibs/common/hostSwitches.h"
#include "workbench/journal/hostOperations.h"
#include "workbench/scenario/verbs.h"

namespace {

const int many = 300;

/// The steps of many sequences.
QVector<QJsonObject> steps() {
    QVector<QJsonObject> list;
    for (quint32 seed = 1; seed <= many; ++seed) {
        const QJsonArray each = monkey::sequence(seed).value(QStringLiteral("steps")).toArray();
        for (const QJsonValue& step : each) list.append(step.toObject());
    }
    return list;
}

QSet<QString> setOf(const QStringList& list) {
    return {list.begin(), list.end()};
}

TEST(SequenceTest, TheSameSeedIsTheSameUser) {
    EXPECT_EQ(monkey::sequence(7), monkey::sequence(7));
    EXPECT_NE(monkey::sequence(7), monkey::sequence(8));
}

TEST(SequenceTest, EverySequenceIsAScenario) {
    for (quint32 seed = 1; seed <= many; ++seed) {
        workbench::Scenario scenario;
        EXPECT_TRUE(monkey::readScenario(monkey::sequence(seed), scenario)) << "seed " << seed;
    }
}

TEST(SequenceTest, EveryVerbAndEveryHostSettingIsUsed) {
    QStringList verbs;
    for (const auto* table : {&workbench::dialogVerbs(), &workbench::windowVerbs()})
        for (const workbench::Verb& verb : *table) verbs.append(verb.name);
    EXPECT_EQ(setOf(monkey::sequenceVerbs()), setOf(verbs));

    QSet<QString> used;
    QSet<QString> settings;
    for (const QJsonObject& step : steps()) {
        const QString verb = step.value(QStringLiteral("do")).toString();
        used.insert(verb);
        if (verb == QStringLiteral("host")) settings += setOf(step.keys());
    }
    EXPECT_EQ(used, setOf(verbs));
    settings.remove(QStringLiteral("do"));
    QSet<QString> known;
    for (const workbench::Field& field : workbench::hostFields()) known.insert(field.key);
    EXPECT_EQ(settings, known);
}

TEST(SequenceTest, EverySkinIsWornAndEveryKeyIsPressed) {
    QSet<QString> skins;
    QSet<QString> keys;
    for (const QJsonObject& step : steps()) {
        const QString verb = step.value(QStringLiteral("do")).toString();
        if (verb == QStringLiteral("key")) keys.insert(step.value(verb).toString());
        if (step.contains(QStringLiteral("skin")))
            skins.insert(step.value(QStringLiteral("skin")).toString());
    }
    EXPECT_EQ(skins, setOf({workbench::lightSkin, workbench::darkSkin, workbench::contrastSkin}));
    EXPECT_EQ(keys, setOf(monkey::keys()));
    EXPECT_TRUE(keys.contains(QStringLiteral("Menu")));
}

TEST(SequenceTest, EveryJournalledOperationCanThrow) {
    QSet<QString> operations;
    QDirIterator sources(QStringLiteral(REPOSITORY "/workbench/hostlibs"),
                         {QStringLiteral("*.cpp")}, QDir::Files, QDirIterator::Subdirectories);
    const QRegularExpression name(
        QStringLiteral("\"(\\w+(::\\w+)+)\"|(?:showBox|journalled|accessed)\\(\\s*\"(\\w+)\""));
    while (sources.hasNext()) {
        QFile source(sources.next());
        ASSERT_TRUE(source.open(QIODevice::ReadOnly));
        auto found = name.globalMatch(QString::fromUtf8(source.readAll()));
        while (found.hasNext()) {
            const QRegularExpressionMatch match = found.next();
            operations.insert(match.captured(1) + match.captured(3));
        }
    }
    EXPECT_EQ(setOf(workbench::hostOperations()), operations);
}

TEST(SequenceTest, NoSlotThatCreatesIsCalled) {
    QSet<QString> known;
    const QMetaObject& meta = NewProCfgDialog::staticMetaObject;
    for (int i = 0; i < meta.methodCount(); ++i)
        known.insert(QString::fromLatin1(meta.method(i).name()));
    const QRegularExpression creates(
        QStringLiteral("^(slotNewPro|slotCreatePro|slotImport.*|xj.*ButtonSlot|Signal.*)$"));
    int calls = 0;
    for (const QJsonObject& step : steps()) {
        if (step.value(QStringLiteral("do")) != QStringLiteral("call")) continue;
        const QString slot = step.value(QStringLiteral("slot")).toString();
        EXPECT_TRUE(known.contains(slot)) << slot.toStdString();
        EXPECT_FALSE(creates.match(slot).hasMatch()) << slot.toStdString();
        ++calls;
    }
    EXPECT_GT(calls, many / 10);
}

}  // namespace
