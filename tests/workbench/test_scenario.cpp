#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>

#include "tests/workbench/ScenarioFixture.h"
#include "workbench/scenario/judge.h"

namespace {

using workbench_test::ScenarioTest;

QJsonObject object(const char* json) {
    return QJsonDocument::fromJson(json).object();
}

QVector<QJsonObject> objects(const char* json) {
    QVector<QJsonObject> list;
    for (const auto& value : QJsonDocument::fromJson(json).array()) list.append(value.toObject());
    return list;
}

struct WrongFile {
    const char* content;
    const char* error;
};

TEST_F(ScenarioTest, WhatIsWrongWithAFileIsToldWithItsPlace) {
    const WrongFile wrongs[] = {
        {"{\n\"title\": }", "s.json:2: syntax: object is missing after a comma"},
        {"[]", "s.json:1: file: must be an object"},
        {"{\"steps\": []}", "s.json:1: title: the key is missing"},
        {"{\"title\": \"t\"}", "s.json:1: steps: the key is missing"},
        {"{\"title\": 1, \"steps\": []}", "s.json:1: title: must be a text"},
        {"{\"title\": \"t\",\n\"step\": [], \"steps\": []}",
         "s.json:2: step: this key is not known"},
        {"{\"title\": \"t\", \"steps\": [\n{\"do\": \"open\"},\n{\"do\": \"jump\"}]}",
         "s.json:3: steps[1].do: unknown verb \"jump\""},
        {"{\"title\": \"t\", \"steps\": [{\"entry\": \"x\"}]}",
         "s.json:1: steps[0].do: the key is missing"},
        {"{\"title\": \"t\", \"steps\": [{\"do\": \"ribbon\"}]}",
         "s.json:1: steps[0].entry: the key is missing"},
        {"{\"title\": \"t\", \"steps\": [{\"do\": \"open\", \"speed\": 1}]}",
         "s.json:1: steps[0].speed: this key is not known"},
        {"{\"title\": \"t\", \"steps\": [{\"do\": \"open\", \"dialog\": \"QDialog\"}]}",
         "s.json:1: steps[0].dialog: must be one of \"NewProCfgDialog\", \"xzGcLxDialog\""},
        {"{\"title\": \"t\", \"steps\": [{\"do\": \"open\", \"dialog\": 4}]}",
         "s.json:1: steps[0].dialog: must be a text"},
        {"{\"title\": \"t\", \"steps\": [{\"do\": \"close\", \"dialog\": \"xzGcLxDialog\"}]}",
         "s.json:1: steps[0].dialog: this key is not known"},
        {"{\"title\": \"t\", \"steps\": [{\"do\": \"model\", \"name\": \"m\", \"use\": \"drag\"}]}",
         "s.json:1: steps[0].use: must be one of \"new\", \"double-click\", \"menu\""},
        {"{\"title\": \"t\", \"steps\": [{\"do\": \"model\", \"name\": \"m\", \"use\": \"menu\"}]}",
         "s.json:1: steps[0].mode: the key is missing"},
        {"{\"title\": \"t\", \"host\": {\"firstPage\": \"away\"}, \"steps\": []}",
         "s.json:1: host.firstPage: must be one of \"ready\", \"busy\", \"absent\""},
        {"{\"title\": \"t\", \"host\": {\"plugins\": {\"four\": true}}, \"steps\": []}",
         "s.json:1: host.plugins.four: the key must be a whole number"},
        {"{\"title\": \"t\", \"host\": {\"cloud\": [\"slow\", \"wet\"]}, \"steps\": []}",
         "s.json:1: host.cloud[1]: must be one of \"slow\", \"refused\", \"broken\", "
         "\"foldersRefused\""},
        {"{\"title\": \"t\", \"host\": {\"scale\": 4}, \"steps\": []}",
         "s.json:1: host.scale: must be a factor from 1 to 3 or a percentage from 100 to 300"},
        {"{\"title\": \"t\", \"steps\": [{\"do\": \"host\", \"skin\": \"blue\"}]}",
         "s.json:1: steps[0].skin: must be one of \"light\", \"dark\", \"contrast\""},
        {"{\"title\": \"t\", \"steps\": [{\"do\": \"clicks\", \"on\": [\"a\", \"\"]}]}",
         "s.json:1: steps[0].on: must name widgets, one at least"},
        {"{\"title\": \"t\", \"steps\": [{\"do\": \"clicks\", \"on\": []}]}",
         "s.json:1: steps[0].on: must name widgets, one at least"},
        {"{\"title\": \"t\", \"host\": {\"throw\": [{\"call\": \"x\"}]}, \"steps\": []}",
         "s.json:1: host.throw[0].as: the key is missing"},
        {R"({"title": "t", "host": {"throw": [{"call": "x", "as": "other", "nth": 0}]},
             "steps": []})",
         "s.json:1: host.throw[0].nth: must be 1 or more"},
        {R"({"title": "t", "host": {"fileDialog": [{"path": "a"},
             {}]}, "steps": []})",
         "s.json:2: host.fileDialog[1]: must be {\"cancel\": true} or have a \"path\" and no "
         "\"cancel\""},
        {R"({"title": "t", "host": {"fileDialog": [{"path": "a", "cancel": true}]}, "steps": []})",
         "s.json:1: host.fileDialog[0]: must be {\"cancel\": true} or have a \"path\" and no "
         "\"cancel\""},
        {R"({"title": "t", "host": {"fileDialog": [{"path": "a", "place": 5}]}, "steps": []})",
         "s.json:1: host.fileDialog[0].place: must be from 0 to 4"},
        {R"({"title": "t", "host": {"fileDialog": [{"path": "a", "place": -1}]}, "steps": []})",
         "s.json:1: host.fileDialog[0].place: must be from 0 to 4"},
        {R"({"title": "t", "installation": "a\u0000b", "steps": []})",
         "s.json:1: installation: must not hold a NUL character"},
        {R"({"title": "t", "host": {"fileDialog": [{"path": "a\u0000"}]}, "steps": []})",
         "s.json:1: host.fileDialog[0].path: must not hold a NUL character"},
        {R"({"title": "t", "host": {"fileDialog": [{"path": "a", "cloudPath": "\u0000"}]},
             "steps": []})",
         "s.json:1: host.fileDialog[0].cloudPath: must not hold a NUL character"},
        {R"({"title": "t", "steps": [{"do": "picture", "file": "a\u0000.png"}]})",
         "s.json:1: steps[0].file: must not hold a NUL character"},
        {R"({"title": "t", "steps": [{"do": "key", "key": "Hop"}]})",
         "s.json:1: steps[0].key: there is no such key"},
        {R"({"title": "t", "steps": [{"do": "click", "on": ""}]})",
         "s.json:1: steps[0].on: must not be empty"},
        {"{\"title\": \"t\", \"steps\": [], \"expect\": {\"inOrder\": [\n{\"kinds\": \"call\"}]}}",
         "s.json:2: expect.inOrder[0].kinds: this key is not known"},
        {"{\"title\": \"t\", \"steps\": [], \"expect\": {\"only\": {\"names\": []}}}",
         "s.json:1: expect.only.list: the key is missing"}};
    for (const WrongFile& wrong : wrongs) EXPECT_EQ(errorOf(wrong.content), wrong.error);
}

TEST_F(ScenarioTest, AFileThatIsNotThereIsAnError) {
    QString error;
    const QString file = folder.filePath(QStringLiteral("none.json"));
    EXPECT_FALSE(workbench::readScenario(file, scenario, error));
    EXPECT_TRUE(error.startsWith(QDir::toNativeSeparators(file))) << error.toStdString();
}

TEST_F(ScenarioTest, TheInstallationIsFoundFromTheFileOn) {
    EXPECT_EQ(errorOf("{\"title\": \"t\", \"installation\": \"../x\", \"steps\": []}"), "");
    EXPECT_EQ(scenario.installation, QDir::cleanPath(folder.path() + QStringLiteral("/../x")));
    EXPECT_FALSE(scenario.dialog.history.has_value());
    EXPECT_TRUE(scenario.dialog.showImportTender);
}

TEST_F(ScenarioTest, AnExpectationMayNameEveryKeyOfAnEntry) {
    EXPECT_EQ(errorOf(R"({"title": "t", "steps": [], "expect": {"inOrder": [
        {"seq": 1, "ms": 0, "kind": "call", "name": "A", "args": [], "answer": null},
        {"event": "done", "result": 1}]}})"),
              "");
    EXPECT_EQ(scenario.expect.inOrder.first().size(), 6);
}

TEST_F(ScenarioTest, ThePlaceholderIsFilledInAtEveryDepth) {
    const QJsonObject filled =
        workbench::filledIn(
            object(R"({"a": ["{installation}/x", {"b": "{installation}"}], "c": 1})"),
            QStringLiteral("/i"))
            .toObject();
    EXPECT_EQ(filled, object(R"({"a": ["/i/x", {"b": "/i"}], "c": 1})"));
}

struct Comparison {
    const char* value;
    const char* wanted;
    const char* difference;
};

TEST_F(ScenarioTest, ObjectsMatchByNamedMembersAndArraysAsAWhole) {
    const Comparison comparisons[] = {
        {R"({"a": 1, "b": 2})", R"({"a": 1})", ""},
        {R"({"a": 1})", R"({"a": 2})", "a: 1, expected 2"},
        {R"({})", R"({"a": 2})", "a: nothing, expected 2"},
        {R"({"a": [1, 2]})", R"({"a": [1]})", "a: [1,2], expected [1]"},
        {R"({"a": [1, 2]})", R"({"a": [1, 3]})", "a[1]: 2, expected 3"},
        {R"({"a": [1, {"b": 1, "c": 2}]})", R"({"a": [1, {"b": 1}]})", ""},
        {R"({"a": [1, {"b": 1}]})", R"({"a": [1, {"b": 2}]})", "a[1].b: 1, expected 2"},
        {R"({"a": 0})", R"({"a": false})", "a: 0, expected false"},
        {R"({"a": null})", R"({"a": ""})", R"(a: null, expected "")"}};
    for (const Comparison& each : comparisons)
        EXPECT_EQ(workbench::difference(object(each.value), object(each.wanted)).toStdString(),
                  each.difference);
}

const char* const journal = R"([
    {"seq": 1, "kind": "call", "name": "A", "args": [1]},
    {"seq": 2, "kind": "call", "name": "B", "args": [2]},
    {"seq": 3, "kind": "call", "name": "A", "args": [3]}])";

TEST_F(ScenarioTest, EntriesAreFoundInOrder) {
    workbench::Expectations expect;
    expect.inOrder = objects(R"([{"name": "A"}, {"name": "B"}, {"name": "A", "args": [3]}])");
    EXPECT_EQ(workbench::differences(objects(journal), expect, {}), QStringList());
    expect.inOrder = objects(R"([{"name": "B"}, {"name": "A", "args": [1]}])");
    const QStringList differences = workbench::differences(objects(journal), expect, {});
    ASSERT_EQ(differences.size(), 1);
    EXPECT_EQ(differences.first().toStdString(),
              "inOrder[1]: not found after #2 B(2)\n"
              "    expected: {\"name\":\"A\",\"args\":[1]}\n"
              "    nearest:  #3 A(3)\n"
              "    differs:  args[0]: 3, expected 1");
}

TEST_F(ScenarioTest, WhatMustNotBeThereIsToldOnce) {
    workbench::Expectations expect;
    expect.never = objects(R"([{"name": "C"}, {"name": "A", "args": [3]}])");
    const QStringList differences = workbench::differences(objects(journal), expect, {});
    ASSERT_EQ(differences.size(), 1);
    EXPECT_EQ(differences.first().section(QLatin1Char('\n'), 0, 0),
              QStringLiteral("never[1]: found"));
}

TEST_F(ScenarioTest, TheFilteredJournalIsExactlyTheList) {
    workbench::Expectations expect;
    expect.hasOnly = true;
    expect.onlyNames = QStringList{QStringLiteral("A")};
    expect.onlyList = objects(R"([{"args": [1]}, {"args": [3]}])");
    EXPECT_EQ(workbench::differences(objects(journal), expect, {}), QStringList());
    expect.onlyList = objects(R"([{"args": [1]}])");
    EXPECT_EQ(workbench::differences(objects(journal), expect, {}).size(), 1) << "one too many";
    expect.onlyList = objects(R"([{"args": [1]}, {"args": [4]}, {"args": [5]}])");
    EXPECT_EQ(workbench::differences(objects(journal), expect, {}).size(), 2)
        << "one differs, one is missing";
}

TEST_F(ScenarioTest, WithoutNamesTheWholeJournalIsExactlyTheList) {
    workbench::Expectations expect;
    expect.hasOnly = true;
    expect.onlyList = objects(R"([{"name": "A"}, {"name": "B"}, {"name": "A"}])");
    EXPECT_EQ(workbench::differences(objects(journal), expect, {}), QStringList());
    expect.onlyList.removeAt(1);
    EXPECT_EQ(workbench::differences(objects(journal), expect, {}),
              QStringList{QStringLiteral("only.list[1]: one too many\n    found:    #2 B(2)")})
        << "what stands behind it is found all the same";
    expect.onlyList = objects(R"([{"name": "A"}, {"name": "C"}, {"name": "B"}, {"name": "A"}])");
    EXPECT_EQ(workbench::differences(objects(journal), expect, {}),
              QStringList{QStringLiteral("only.list[1]: missing\n    expected: {\"name\":\"C\"}")});
}

TEST_F(ScenarioTest, OfADayOnlyTheDigitsAreOpen) {
    const auto differs = [](const char* value, const char* wanted) {
        return !workbench::difference(QString::fromUtf8(value), QString::fromUtf8(wanted))
                    .isEmpty();
    };
    EXPECT_FALSE(differs("甲-20260101-001.GCFX", "甲-{day}-001.GCFX"));
    EXPECT_FALSE(differs("{day}", "{day}"));
    for (const char* other :
         {"甲-20260101-002.GCFX", "乙-20260101-001.GCFX", "甲-2026010-001.GCFX",
          "甲-202601011-001.GCFX", "甲-20260101-001xGCFX", "甲-2026010a-001.GCFX",
          "x甲-20260101-001.GCFX", "甲-20260101-001.GCFX "})
        EXPECT_TRUE(differs(other, "甲-{day}-001.GCFX")) << other;
}

}  // namespace
