#include <QDirIterator>
#include <QListWidget>
#include <QTreeWidget>

#include "tests/workbench/ScenarioFixture.h"
#include "tests/workbench/TemporaryFolders.h"
#include "workbench/hostlibs/common/ProjectStore.h"
#include "workbench/scenario/Watchdog.h"
#include "workbench/scenario/hostDialog.h"
#include "workbench/scenario/slotCall.h"
#include "workbench/scenario/targets.h"
#include "workbench/scenario/verbs.h"
#include "zControl.h"

namespace {

using testing_support::Lines;
using testing_support::TemporaryFolders;
using workbench::PlayResult;
using workbench_test::ScenarioTest;

const char* const modelName = "清单计价【国标2013规范，四川2020定额】（税率9%）";

struct EarlyEnd {
    const char* steps;
    const char* reason;
};

TEST_F(ScenarioTest, AStepThatCannotBeDoneEndsTheScenarioWithItsReason) {
    options.stepLimit = 300;  // is waited for
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
        {R"({"do": "open"}, {"do": "model", "name": "清单计价【国标2013规范，四川2020定额】（税率9%）",
             "use": "menu", "mode": "整体"})",
         "steps[1] model: there is no fee mode \"整体\"; open is zBaseMenu \"\""}};
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
        workbench::Watchdog watchdog(std::chrono::milliseconds(50), QString());
        watchdog.feed(QStringLiteral("s.json: steps[3] create"));
        for (;;) std::this_thread::yield();
    };
    EXPECT_EXIT(hang(), testing::ExitedWithCode(1), "steps\\[3\\] create\n");
}

TEST_F(ScenarioTest, AStepThatBlocksWithoutAWindowEndsTheProcessWithTheDifferencesSoFar) {
    options.stepLimit = 300;  // is waited for
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    const TemporaryFolders here(folder.path());
    const auto block = [this] {
        options.hangLimit = 2000;  // three slow answers take longer
        play(R"("host": {"cloud": "slow", "account": {"loggedIn": true}},
            "steps": [{"do": "open"},
                {"do": "check", "on": "generalTaxButton", "property": "text", "is": "x"},
                {"do": "call", "slot": "loadYunPanPath",
                 "args": ["", "企业云盘/造价一部/住宅项目/锦绣花园一标段.GCFX", false]}],
            "expect": {"never": [{"name": "UserInfo::IsLogin"}, {"event": "opened"}]})");
    };
#ifdef Q_OS_WIN  // where the expressions of tests know no alternatives
    const char* const told = "never\\[1\\]: found";
#else
    const char* const told =
        "steps\\[2\\] call: the step has not come to its end\n"
        "  check: text of \"generalTaxButton\"(.|\n)*never\\[1\\]: found";
#endif
    EXPECT_EXIT(block(), testing::ExitedWithCode(1), told);
    QDirIterator left(folder.path(), QStringList{QStringLiteral("models.json")}, QDir::Files,
                      QDirIterator::Subdirectories);
    EXPECT_FALSE(left.hasNext());
}

TEST_F(ScenarioTest, ACallOfAnObjectThatIsGoneIsNotMade) {
    auto object = std::make_unique<QObject>();
    QString error;
    const auto call =
        workbench::slotCall(object.get(), QStringLiteral("deleteLater"), QJsonArray(), error);
    ASSERT_TRUE(call) << error.toStdString();
    EXPECT_TRUE(call());
    object.reset();
    EXPECT_FALSE(call());
}

class VerbTest : public testing::Test {
  protected:
    VerbTest() {
        installation.addTemplate(QStringLiteral("kvys"), QStringLiteral("A.MODX"));
        stage.dialog = workbench::makeHostDialog({}, store, nullptr);
        workbench::showHostDialog(stage.dialog);
    }
    ~VerbTest() override { delete stage.dialog; }

    std::string reasonToWait(const char* from) {
        const QJsonObject args{{QStringLiteral("name"), QStringLiteral("A")},
                               {QStringLiteral("from"), QLatin1String(from)}};
        const workbench::Plan plan =
            workbench::verbNamed(QStringLiteral("template"))->plan(stage, args);
        EXPECT_FALSE(plan.impossible);
        return plan.reason.toStdString();
    }

    testing_support::TemporaryInstallation installation;
    workbench::ProjectStore store;
    workbench::Stage stage;
};

TEST_F(VerbTest, ARowThatHasNoWidgetYetIsWaitedFor) {
    auto* tree = testing_support::child<QTreeWidget>(stage.dialog, "templateTree");
    QTreeWidgetItem* row = workbench::templateRow(tree, QStringLiteral("A"));
    ASSERT_TRUE(row);
    EXPECT_EQ(workbench::templateRow(tree, QStringLiteral("A.MODX")), row);
    tree->removeItemWidget(row, 0);
    testing_support::settle();
    EXPECT_EQ(reasonToWait("tree"), "there is no template row \"A\"");
}

TEST_F(VerbTest, ACardThatHasNoButtonYetIsWaitedFor) {
    EXPECT_EQ(reasonToWait("cards"), "");
    auto* list = testing_support::child<QListWidget>(stage.dialog, "lswTemplateEng");
    testing_support::child<QWidget>(list, "btnNewProject")->setObjectName(QString());
    EXPECT_EQ(reasonToWait("cards"), "the template card has no button");
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

TEST(ModalTest, AWindowThatIsDeletedWhileItRunsIsDone) {
    const testing_support::TemporaryInstallation installation;
    for (const bool closes : {true, false}) {
        zTitleModal window;
        window.show();
        if (closes) window.accept();
    }
    EXPECT_EQ(testing_support::journalLines({"dialog"}),
              Lines({"dialog zTitleModal opened", "dialog zTitleModal done 1",
                     "dialog zTitleModal opened", "dialog zTitleModal done 0"}));
}

TEST_F(ScenarioTest, TheHostChangesBetweenSteps) {
    const PlayResult result = play(
        R"("host": {"firstPage": "absent", "throw": [{"call": "SharedInterface::UseFunc",
                                                      "as": "literal"}]},
           "steps": [
             {"do": "open"}, {"do": "model", "name": ")" +
        std::string(modelName) + R"("},
             {"do": "host", "firstPage": "ready"},
             {"do": "open"}, {"do": "model", "name": ")" +
        modelName + R"("},
             {"do": "host", "throw": [], "skin": "dark",
              "fileDialog": [{"path": "ProjectFiles/老城区给水管网.GCF"}]},
             {"do": "open"}, {"do": "ribbon", "entry": "审核工程"}, {"do": "browse"},
             {"do": "check", "on": "fileCombo", "property": "currentText",
              "is": "{installation}/ProjectFiles/老城区给水管网.GCF"},
             {"do": "ribbon", "entry": "预算工程"}, {"do": "model", "name": ")" +
        modelName + R"("}],
           "expect": {"inOrder": [
             {"name": "osgi::ObjectHelper::GetService", "answer": null},
             {"kind": "dialog", "event": "opened"},
             {"name": "osgi::ObjectHelper::GetService", "answer": true},
             {"kind": "exception"},
             {"kind": "dialog", "event": "opened"}],
             "only": {"names": ["SignalCreatePro"], "list": [{}]}})");
    EXPECT_TRUE(result.asExpected())
        << (result.ended + result.differences.join(QLatin1Char('\n'))).toStdString();
    EXPECT_EQ(workbench::Host::instance().skin(), QStringLiteral("light"));
}

TEST_F(ScenarioTest, HastyClicksArriveOneAfterTheOther) {
    options.stepLimit = 5000;  // one step does the work of several
    const PlayResult result = play(
        R"("steps": [{"do": "open"},
             {"do": "clicks", "on": ["simpleTaxButton", "审核工程"]},
             {"do": "check", "on": "simpleTaxButton", "property": "checked", "is": true},
             {"do": "check", "on": "m_StackedWidget", "property": "currentIndex", "is": 1},
             {"do": "clicks", "on": ["预算工程", "审核工程", "closeButton"]},
             {"do": "check", "on": "m_StackedWidget", "property": "currentIndex", "is": 1}],
           "expect": {"inOrder": [{"event": "done", "result": 0}]})");
    EXPECT_TRUE(result.asExpected())
        << (result.ended + result.differences.join(QLatin1Char('\n'))).toStdString();
}

TEST_F(ScenarioTest, AnythingCanBeClickedTwice) {
    const std::string steps = R"("steps": [{"do": "open"}, {"do": "click", "on": "lblTitle"},
                                           {"do": "click", "on": "lblTitle")";
    EXPECT_FALSE(play(steps + R"(}], "expect": {"inOrder": [{"kind": "signal"}]})").asExpected());
    const PlayResult twice =
        play(steps + R"(, "twice": true}], "expect": {"inOrder": [{"kind": "signal"}]})");
    EXPECT_TRUE(twice.asExpected())
        << (twice.ended + twice.differences.join(QLatin1Char('\n'))).toStdString();
}

TEST_F(ScenarioTest, WhereStepsAreSkippedNoneEndsTheScenario) {
    options.skipAfter = 0;
    const PlayResult result = play(
        R"("steps": [{"do": "create"}, {"do": "open"}, {"do": "open"},
             {"do": "click", "on": "nobody"}, {"do": "call", "slot": "nowhere"},
             {"do": "ribbon", "entry": "导入Excel新建"}])");
    EXPECT_EQ(result.ended, QString());
    EXPECT_EQ(result.skipped, 4);
    EXPECT_FALSE(QApplication::activeModalWidget());
    EXPECT_EQ(result.journal.last().value(QLatin1String("name")).toString(),
              QStringLiteral("importExcelSelFile"));
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
    EXPECT_TRUE(empty.unplayable.startsWith(
        QDir::toNativeSeparators(folder.filePath(QStringLiteral("empty/models.json")))))
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
