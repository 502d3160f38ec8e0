#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include "tests/support/TestSupport.h"
#include "workbench/scenario/Player.h"
#include "workbench/scenario/Scenario.h"
#include "workbench/scenario/Watchdog.h"
#include "workbench/scenario/judge.h"

namespace {

using testing_support::Lines;
using workbench::PlayOptions;
using workbench::PlayResult;
using workbench::Scenario;

const char* const modelName = "清单计价【国标2013规范，四川2020定额】（税率9%）";

QJsonObject object(const char* json) {
    return QJsonDocument::fromJson(json).object();
}

QVector<QJsonObject> objects(const char* json) {
    QVector<QJsonObject> list;
    for (const QJsonValue& value : QJsonDocument::fromJson(json).array())
        list.append(value.toObject());
    return list;
}

class ScenarioTest : public testing::Test {
  protected:
    /// Reads a scenario with this content. @return the error without the folder of the file.
    std::string errorOf(const std::string& content) {
        const QString file = folder.filePath(QStringLiteral("s.json"));
        QFile written(file);
        EXPECT_TRUE(written.open(QIODevice::WriteOnly));
        written.write(QByteArray::fromStdString(content));
        written.close();
        QString error;
        const bool read = workbench::readScenario(file, scenario, error);
        EXPECT_EQ(read, error.isEmpty());
        return error.remove(folder.path() + QLatin1Char('/')).toStdString();
    }

    PlayResult play(const std::string& members) {
        EXPECT_EQ(errorOf("{\"title\": \"t\", " + members + "}"), "");
        PlayOptions options;
        options.installation = QStringLiteral(SAMPLE_INSTALLATION);
        options.stepLimit = 300;
        return workbench::play(scenario, options);
    }

    /// @return why a scenario of these steps ended early, without the place of the file.
    std::string endOf(const std::string& steps) {
        const QString ended = play("\"steps\": [" + steps + "]").ended;
        return ended.section(QStringLiteral("s.json: "), 1).toStdString();
    }

    QTemporaryDir folder;
    Scenario scenario;
};

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
         "s.json:1: host.cloud[1]: must be one of \"slow\", \"refused\", \"broken\""},
        {"{\"title\": \"t\", \"host\": {\"scale\": 4}, \"steps\": []}",
         "s.json:1: host.scale: must be a factor from 1 to 3 or a percentage from 100 to 300"},
        {"{\"title\": \"t\", \"host\": {\"throw\": [{\"call\": \"x\"}]}, \"steps\": []}",
         "s.json:1: host.throw[0].as: the key is missing"},
        {"{\"title\": \"t\", \"steps\": [], \"expect\": {\"inOrder\": [\n{\"kinds\": \"call\"}]}}",
         "s.json:2: expect.inOrder[0].kinds: this key is not known"},
        {"{\"title\": \"t\", \"steps\": [], \"expect\": {\"only\": {\"list\": []}}}",
         "s.json:1: expect.only.names: the key is missing"}};
    for (const WrongFile& wrong : wrongs) EXPECT_EQ(errorOf(wrong.content), wrong.error);
}

TEST_F(ScenarioTest, AFileThatIsNotThereIsAnError) {
    QString error;
    const QString file = folder.filePath(QStringLiteral("none.json"));
    EXPECT_FALSE(workbench::readScenario(file, scenario, error));
    EXPECT_TRUE(error.startsWith(file)) << error.toStdString();
}

TEST_F(ScenarioTest, TheInstallationIsFoundFromTheFileOn) {
    EXPECT_EQ(errorOf("{\"title\": \"t\", \"installation\": \"../x\", \"steps\": []}"), "");
    EXPECT_EQ(scenario.installation, QDir::cleanPath(folder.path() + QStringLiteral("/../x")));
    EXPECT_FALSE(scenario.dialog.history.has_value());
    EXPECT_TRUE(scenario.dialog.showImportTender);
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

struct EarlyEnd {
    const char* steps;
    const char* reason;
};

TEST_F(ScenarioTest, AStepThatCannotBeDoneEndsTheScenarioWithItsReason) {
    const EarlyEnd ends[] = {
        {R"({"do": "ribbon", "entry": "预算工程"})", "steps[0] ribbon: no dialog is open"},
        {R"({"do": "open"}, {"do": "open"})", "steps[1] open: the dialog is open already"},
        {R"({"do": "open", "dialog": "xzGcLxDialog"}, {"do": "open"})",
         "steps[1] open: an unexpected window is open: xzGcLxDialog \"新建\""},
        {R"({"do": "open", "dialog": "xzGcLxDialog"}, {"do": "click", "on": "BtnQx"},
            {"do": "create"})",
         "steps[2] create: no dialog is open"},
        {R"({"do": "open"}, {"do": "close"}, {"do": "browse"})",
         "steps[2] browse: no dialog is open"},
        {R"({"do": "open"}, {"do": "model", "name": "无"})",
         "steps[1] model: there is no model card \"无\""},
        {R"({"do": "open"}, {"do": "taxMode", "entry": "预算工程"})",
         "steps[1] taxMode: tax-mode button \"预算工程\" cannot be clicked: it is hidden"},
        {R"({"do": "open"}, {"do": "file", "text": "x"})",
         "steps[1] file: no page with a file chooser is shown"},
        {R"({"do": "open"}, {"do": "excel", "choose": "file"})",
         "steps[1] excel: the Excel import dialog is not open"},
        {R"({"do": "open"}, {"do": "click", "on": "nobody"})",
         "steps[1] click: NewProCfgDialog \"新建工程\" has nothing called \"nobody\""},
        {R"({"do": "open"}, {"do": "call", "slot": "slotNowhere"})",
         "steps[1] call: there is no slot \"slotNowhere\" with 0 arguments"},
        {R"({"do": "open"}, {"do": "key", "key": "Hop"})",
         "steps[1] key: there is no key \"Hop\""}};
    for (const EarlyEnd& end : ends) EXPECT_EQ(endOf(end.steps), end.reason);
}

struct ChooserAnswer {
    const char* button;
    int answer;
    bool opensDialog;
};

TEST_F(ScenarioTest, TheChooserOpensTheDialogForAnAnswerOnly) {
    const ChooserAnswer answers[] = {{"BtnYs", 4, true}, {"BtnZcb", 16, true}, {"BtnQx", 0, false}};
    for (const ChooserAnswer& each : answers) {
        const std::string steps =
            R"("steps": [{"do": "open", "dialog": "xzGcLxDialog"}, {"do": "click", "on": ")" +
            std::string(each.button) + R"("}])";
        const PlayResult result = play(steps);
        EXPECT_TRUE(result.asExpected()) << result.ended.toStdString();
        Lines dialogs;
        for (const QJsonObject& entry : result.journal) {
            if (entry.value(QLatin1String("kind")) != QLatin1String("dialog")) continue;
            const int code = entry.value(QLatin1String("result")).toInt(-1);
            dialogs.push_back(entry.value(QLatin1String("name")).toString().toStdString() + " " +
                              std::to_string(code));
        }
        Lines expected = {"xzGcLxDialog -1", "xzGcLxDialog " + std::to_string(each.answer)};
        if (each.opensDialog) expected.push_back("NewProCfgDialog -1");
        EXPECT_EQ(dialogs, expected);
    }
}

TEST_F(ScenarioTest, AModalWindowThatNoStepExpectsEndsTheScenario) {
    const std::string excel = R"({"do": "open"}, {"do": "ribbon", "entry": "导入Excel新建"})";
    EXPECT_EQ(
        endOf(excel + R"(, {"do": "browse"})"),
        "steps[2] browse: an unexpected window is open: importExcelSelFile \"导入Excel新建\"");
    EXPECT_EQ(endOf(excel),
              "steps[1] ribbon: a window is left open: importExcelSelFile \"导入Excel新建\"");
    EXPECT_FALSE(QApplication::activeModalWidget());
}

TEST(WatchdogTest, AUserInterfaceThatStopsAnsweringEndsTheProcess) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    const auto hang = [] {
        workbench::Watchdog watchdog(std::chrono::milliseconds(50));
        watchdog.feed(QStringLiteral("s.json: steps[3] create"));
        for (;;) std::this_thread::yield();
    };
    EXPECT_EXIT(hang(), testing::ExitedWithCode(1),
                "steps\\[3\\] create: the user interface has stopped answering");
}

TEST_F(ScenarioTest, AFailedCheckIsADifferenceAndNotAnEnd) {
    const PlayResult result = play(
        R"("steps": [{"do": "open"},
                     {"do": "check", "on": "generalTaxButton", "property": "text", "is": "x"},
                     {"do": "check", "on": "generalTaxButton", "property": "nothing", "is": 1},
                     {"do": "check", "on": "generalTaxButton", "property": "checked", "is": true},
                     {"do": "close"}])");
    EXPECT_EQ(result.ended, QString());
    ASSERT_EQ(result.differences.size(), 2);
    EXPECT_EQ(
        result.differences.first().toStdString(),
        "check: text of \"generalTaxButton\"\n    expected: \"x\"\n    found:    \"一般计税\"");
    EXPECT_FALSE(result.asExpected());
}

TEST_F(ScenarioTest, AScenarioLeavesNothingBehind) {
    const QDir projects(QStringLiteral(SAMPLE_INSTALLATION "/ProjectFiles"));
    const QStringList before = projects.entryList();
    const PlayResult result = play(
        R"("host": {"firstPage": "ready", "scale": 150, "skin": "dark"},
           "steps": [{"do": "open"}, {"do": "model", "name": ")" +
        std::string(modelName) + R"("}], "expect": {"inOrder": [{"kind": "project"}]})");
    EXPECT_TRUE(result.asExpected()) << result.ended.toStdString();
    EXPECT_EQ(projects.entryList(), before);
    EXPECT_FALSE(QFileInfo::exists(result.folder));
    EXPECT_EQ(workbench::Host::instance().scale(), 1.0);
    EXPECT_EQ(workbench::Host::instance().skin(), QStringLiteral("light"));
    EXPECT_FALSE(workbench::Host::instance().mainWindow());
}

TEST_F(ScenarioTest, AnInstallationThatCannotBeLoadedIsToldInsteadOfPlayed) {
    const PlayResult missing = play(R"("installation": "none", "steps": [{"do": "open"}])");
    EXPECT_TRUE(missing.unplayable.endsWith(QStringLiteral("none: no such folder")));
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("empty")));
    const PlayResult empty = play(R"("installation": "empty", "steps": [{"do": "open"}])");
    EXPECT_TRUE(empty.unplayable.contains(QStringLiteral("models.json")))
        << empty.unplayable.toStdString();
}

TEST_F(ScenarioTest, ASlotTakesAPricingModelByItsName) {
    const std::string open = R"("steps": [{"do": "open"}, {"do": "call", "slot": "slotNewPro", )";
    const PlayResult result = play(open + R"("args": [")" + modelName + R"("]}],
        "expect": {"inOrder": [{"name": "SignalCreatePro"}]})");
    EXPECT_TRUE(result.asExpected()) << result.ended.toStdString();
    const PlayResult unknown = play(open + R"("args": ["无"]}])");
    EXPECT_TRUE(unknown.ended.endsWith(
        QStringLiteral("argument 1 of slotNewPro is no ProjectSettingSpace::TaxTemplateInfo")))
        << unknown.ended.toStdString();
}

}  // namespace
