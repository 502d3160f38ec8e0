#include <QJsonDocument>

#include "tests/monkey/invariants.h"
#include "tests/support/TestSupport.h"

namespace {

using monkey::Entries;

/// Entries of these members, numbered as a journal numbers them.
Entries journal(const std::vector<const char*>& entries) {
    Entries list;
    for (const char* members : entries) {
        QJsonObject entry =
            QJsonDocument::fromJson(QByteArray("{") + members + QByteArray("}")).object();
        EXPECT_FALSE(entry.isEmpty()) << members;
        if (!entry.contains(QStringLiteral("seq")))
            entry.insert(QStringLiteral("seq"), list.size() + 1);
        if (!entry.contains(QStringLiteral("ms"))) entry.insert(QStringLiteral("ms"), list.size());
        list.append(entry);
    }
    return list;
}

std::string kindOf(const QStringList& faults) {
    return faults.join(QLatin1Char('\n')).section(QLatin1Char(':'), 0, 0).toStdString();
}

const char* const opened = R"("kind": "dialog", "name": "NewProCfgDialog", "event": "opened")";
const char* const done =
    R"("kind": "dialog", "name": "NewProCfgDialog", "event": "done", "result": 1)";
const char* const closed =
    R"("kind": "dialog", "name": "NewProCfgDialog", "event": "done", "result": 0)";
const char* const model = R"("kind": "signal", "name": "SignalCreatePro", "args": [4, 95, {}])";
const char* const templateSignal =
    R"("kind": "signal", "name": "SignalCreateMB", "args": [4, 44, "a"])";
const char* const templateMessage =
    R"("kind": "call", "name": "Communication::SendMsg", "args": [4, 44, "a"])";
const char* const import =
    R"("kind": "call", "name": "Communication::SendMsgToPlugin", "args": [4, 107, {}])";
const char* const strange =
    R"("kind": "call", "name": "Communication::SendMsgToPlugin", "args": [4, 0, {}])";

TEST(InvariantsTest, ATemplateCardsMessageAndItsSignalAreOneRequest) {
    EXPECT_EQ(monkey::creationRequests(journal({templateMessage, templateSignal})), 1);
    EXPECT_EQ(monkey::creationRequests(journal({templateMessage})), 1);
    EXPECT_EQ(monkey::creationRequests(journal({templateSignal, templateMessage})), 2);
    EXPECT_EQ(monkey::creationRequests(journal({templateMessage, model, templateSignal})), 3);
    EXPECT_EQ(monkey::creationRequests(journal({opened, model, import, strange, done})), 2);
}

TEST(InvariantsTest, ADialogAsksForOneProjectAtMost) {
    EXPECT_EQ(kindOf(monkey::creationFaults(journal({opened, model}))), "");
    EXPECT_EQ(kindOf(monkey::creationFaults(journal({opened, model, done, opened, import}))), "");
    EXPECT_EQ(kindOf(monkey::creationFaults(journal({opened, model, import}))), "creations");
    EXPECT_EQ(kindOf(monkey::creationFaults(journal({opened, opened, model, model}))), "creations");
    EXPECT_EQ(kindOf(monkey::creationFaults(journal({model}))), "creations");
}

TEST(InvariantsTest, AnEarlierDialogDoesNotAskBesideANewOne) {
    const auto faults = [](const std::vector<const char*>& entries) {
        return kindOf(monkey::creationFaults(journal(entries)));
    };
    EXPECT_EQ(faults({opened, done, model, opened, model, closed}), "creations");
    EXPECT_EQ(faults({opened, done, model, opened, model, opened}), "creations");
    EXPECT_EQ(faults({opened, model, closed}), "creations");
    EXPECT_EQ(faults({opened, done, model, opened, model, done}), "");
    EXPECT_EQ(faults({opened, done, model, opened, closed, import}), "");
    const char* const exception =
        R"("kind": "exception", "name": "A::b", "args": ["A", 1, "A::b", "text"])";
    EXPECT_EQ(faults({opened, model, exception, closed}), "");
}

TEST(InvariantsTest, AWellFormedJournalHasNoFaults) {
    const Entries entries =
        journal({opened, model, R"("kind": "call", "name": "A::b", "args": [], "answer": null)",
                 R"("kind": "box", "name": "showInformation", "args": ["a", "b", ["c"]])",
                 R"("kind": "exception", "name": "A::b", "args": ["A", 1, "A::b", "text"])",
                 R"("kind": "project", "name": "a.GCFX")", done});
    EXPECT_EQ(monkey::journalFaults(entries), QStringList());
}

TEST(InvariantsTest, AWrongEntryIsFound) {
    const char* const wrongs[] = {
        R"("kind": "thing", "name": "a")",
        R"("kind": "project", "name": "")",
        R"("kind": "project", "name": "a", "args": [])",
        R"("kind": "call", "name": "a")",
        R"("kind": "call", "name": "a", "args": {})",
        R"("kind": "signal", "name": "a", "args": [], "answer": 1)",
        R"("kind": "box", "name": "a", "args": ["a", "b"])",
        R"("kind": "exception", "name": "a", "args": ["A", 1, "b", "text"])",
        R"("kind": "dialog", "name": "a", "event": "opened", "result": 1)",
        R"("kind": "dialog", "name": "a", "event": "done")",
        R"("kind": "dialog", "name": "a", "event": "moved")",
        R"("kind": "project", "name": "a", "seq": 2)",
        R"("kind": "project", "name": "a", "ms": -1)"};
    for (const char* wrong : wrongs)
        EXPECT_EQ(kindOf(monkey::journalFaults(journal({wrong}))), "journal") << wrong;
}

TEST(InvariantsTest, EveryWindowThatIsOpenedIsDone) {
    EXPECT_EQ(kindOf(monkey::journalFaults(journal({opened, done, opened}))), "balance");
    EXPECT_EQ(kindOf(monkey::journalFaults(journal({opened, opened, done}))), "balance");
    EXPECT_EQ(kindOf(monkey::journalFaults(journal({opened, done, done, opened}))), "balance");
    EXPECT_EQ(kindOf(monkey::journalFaults(journal({opened, done, done}))), "");
}

TEST(InvariantsTest, AnExceptionNeedsAHostThatThrows) {
    const Entries entries =
        journal({R"("kind": "exception", "name": "A::b", "args": ["A", 1, "A::b", "text"])"});
    EXPECT_EQ(kindOf(monkey::exceptionFaults(entries, false)), "exception");
    EXPECT_EQ(kindOf(monkey::exceptionFaults(entries, true)), "");
}

}  // namespace
