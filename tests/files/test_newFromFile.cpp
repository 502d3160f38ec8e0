#include "files/newFromFile.h"

#include <map>

#include "core/guard.h"
#include "tests/files/RecordingDialog.h"

namespace {

using files_testing::boxLine;
using newpro::FileFlow;
using newpro::FilePage;
using testing_support::countOf;
using testing_support::flowLines;
using testing_support::Lines;
using workbench::FirstPage;
using workbench::Host;
using workbench::Login;

const char* const service = R"(call osgi::ObjectHelper::GetService("firstPagePlugin"))";
const char* const isLoggedIn = "call UserInfo::IsLogin()";
const char* const showLogin = "call FirstPagePlugin::showLogin({})";
const char* const closed = "dialog dialog done 0";
const char* const start9001 = R"(call SharedInterface::UseFunc(9001, ""))";
const char* const end9001 = R"(call SharedInterface::EndUseFun(9001, ""))";
const char* const start20011 = R"(call SharedInterface::UseFunc(20011, ""))";
const char* const end20011 = R"(call SharedInterface::EndUseFun(20011, ""))";
const FileFlow everyFlow[] = {FileFlow::Estimate, FileFlow::Settlement, FileFlow::Audit,
                              FileFlow::Contracting};
const QString cloudFile = QStringLiteral("企业云盘/甲/某工程.GCFX");

/// A fresh host and dialog, on the page of one flow, with its option checked.
struct Stage {
    explicit Stage(FileFlow flow) : flow(flow), page(dialog.pages.of(flow)) {
        if (page.fromFile) page.fromFile->setChecked(true);
    }

    void type(const QString& text) { page.fileCombo->setCurrentText(text); }
    void run() { newpro::newFromFile(dialog, dialog.pages, flow); }
    Lines linesOf(const QString& text) {
        testing_support::clearJournal();
        type(text);
        run();
        return flowLines();
    }

    testing_support::TemporaryInstallation host;
    files_testing::RecordingDialog dialog;
    FileFlow flow;
    FilePage page;
};

/// @return what a flow leaves in the journal around `lines`, which come after the service lookup.
Lines framed(FileFlow flow, const Lines& lines) {
    Lines all{service};
    all.insert(all.end(), lines.begin(), lines.end());
    if (flow == FileFlow::Contracting) {
        all.insert(all.begin(), start20011);
        all.push_back(end20011);
    }
    return all;
}

std::string created(const char* json, int mode) {
    return std::string("signal createFromPage(") + json + ", " + std::to_string(mode) + ")";
}

/// @return how a flow that accepted the cloud file ends.
Lines endOf(FileFlow flow, const std::string& file) {
    const std::string entry = R"({"GcLj":")" + file + R"(",)";
    switch (flow) {
        case FileFlow::Estimate:
            return {"call GetProgramTypeByFile(\"" + file + "\")", closed, start9001,
                    created((entry + R"("TemplateName":""})").c_str(), 6), end9001};
        case FileFlow::Settlement:
            return {closed, start9001,
                    created((entry + R"("JsMb":"某模板","TemplateName":""})").c_str(), 8), end9001};
        case FileFlow::Audit:
            return {closed, created((entry + R"("TemplateName":""})").c_str(), 5)};
        case FileFlow::Contracting:
            break;
    }
    return {closed,
            R"(call Communication::SendMsgToPlugin(16, 114, {"client_pid":16,"pro_file":")" + file +
                R"("}))"};
}

TEST(NewFromFile, EveryFlowCreatesFromAFileOnACloudDisk) {
    for (FileFlow flow : everyFlow) {
        SCOPED_TRACE(int(flow));
        Stage stage(flow);
        stage.host.switches().account.loggedIn = true;
        Lines expected = endOf(flow, cloudFile.toStdString());
        expected.insert(expected.begin(), isLoggedIn);
        EXPECT_EQ(stage.linesOf(cloudFile), framed(flow, expected));
    }
}

TEST(NewFromFile, EveryFlowButTheEstimateTakesALocalFileUnopened) {
    for (FileFlow flow : {FileFlow::Settlement, FileFlow::Audit, FileFlow::Contracting}) {
        SCOPED_TRACE(int(flow));
        Stage stage(flow);
        const QString file = stage.host.write(QStringLiteral("ProjectFiles/某 工程.gcfx"));
        EXPECT_EQ(stage.linesOf(file), framed(flow, endOf(flow, file.toStdString())));
    }
}

TEST(NewFromFile, TheEstimateAsksTheHostWhatALocalFileIs) {
    Stage stage(FileFlow::Estimate);
    const QString budget = stage.host.path(QStringLiteral("ProjectFiles/b.GCFX"));
    files_testing::writeBudgetProject(budget);
    EXPECT_EQ(stage.linesOf(budget), framed(stage.flow, endOf(stage.flow, budget.toStdString())));

    const QString file = stage.host.write(QStringLiteral("ProjectFiles/a.GCFX"), "no project");
    EXPECT_EQ(stage.linesOf(file),
              (Lines{service, "call GetProgramTypeByFile(\"" + file.toStdString() + "\")",
                     boxLine(QStringLiteral("工程文件打开失败。您试图打开一个非工程文件"))}));
}

TEST(NewFromFile, TheEstimateRefusesAFileOfAnotherKind) {
    Stage stage(FileFlow::Estimate);
    stage.host.switches().account.loggedIn = true;
    const Lines lines = stage.linesOf(QStringLiteral("个人云盘/a.GCFZ"));
    EXPECT_EQ(lines.back(), boxLine(QStringLiteral("工程文件打开失败。您试图打开一个非工程文件")));
    EXPECT_EQ(countOf("dialog"), 0);
}

TEST(NewFromFile, WithoutTheServiceNothingIsSaid) {
    for (FileFlow flow : everyFlow) {
        Stage stage(flow);
        stage.host.switches().firstPage = FirstPage::Absent;
        EXPECT_EQ(stage.linesOf(cloudFile), framed(flow, {}));
    }
}

TEST(NewFromFile, ABusyHostIsNotAsked) {
    Stage stage(FileFlow::Audit);
    stage.host.switches().firstPage = FirstPage::Busy;
    const QString file = stage.host.write(QStringLiteral("a.GCFX"));
    EXPECT_EQ(stage.linesOf(file), framed(stage.flow, endOf(stage.flow, file.toStdString())));
}

TEST(NewFromFile, RefusalsAreOneMessageAndKeepTheDialogAndItsInputs) {
    const QString budget = QStringLiteral("请选择预算工程文件");
    const QString project = QStringLiteral("请选择工程文件");
    const QString anyKind = QStringLiteral("请选择预算/概算/总承包工程文件");
    for (FileFlow flow : everyFlow) {
        Stage stage(flow);
        const QString noFile = flow == FileFlow::Contracting ? project : budget;
        const QString wrong = flow == FileFlow::Audit ? anyKind : noFile;
        const struct {
            QString text;
            QString message;
        } rows[] = {
            {QString(), noFile},
            {stage.host.folder(), noFile},
            {QStringLiteral("/nowhere/a.GCFX"),
             QStringLiteral("找不到该文件，请检查文件路径是否正确")},
            {stage.host.write(QStringLiteral("none")), wrong},
            {stage.host.write(QStringLiteral("x.gcfg")),
             flow == FileFlow::Audit ? QString() : wrong},
            {stage.host.write(QStringLiteral("x.SGcfg")),
             flow == FileFlow::Audit ? QString() : wrong},
            {stage.host.write(QStringLiteral("x.txt")),
             flow == FileFlow::Audit ? wrong : QString()},
        };
        for (const auto& row : rows) {
            if (row.message.isNull()) continue;
            SCOPED_TRACE(row.text.toStdString() + " " + std::to_string(int(flow)));
            EXPECT_EQ(stage.linesOf(row.text), framed(flow, {boxLine(row.message)}));
            EXPECT_EQ(stage.page.path(), row.text);
        }
    }
}

TEST(NewFromFile, TheAuditTakesGroupFilesAndPlainOnes) {
    for (const char* name : {"x.gcfg", "x.SGCFG", "x.gcf", "x.GCFZ", "x.sbakz"}) {
        Stage stage(FileFlow::Audit);
        const QString file = stage.host.write(QLatin1String(name));
        EXPECT_EQ(stage.linesOf(file), framed(stage.flow, endOf(stage.flow, file.toStdString())))
            << name;
    }
}

TEST(NewFromFile, CloudFilesAreJudgedByTheirLastComponent) {
    const QString anyKind = QStringLiteral("请选择预算/概算/总承包工程文件");
    const QString project = QStringLiteral("请选择工程文件");
    const struct {
        FileFlow flow;
        const char* path;
        QString message;
    } rows[] = {
        {FileFlow::Contracting, "企业云盘/a.b/x", project},
        {FileFlow::Contracting, "企业云盘", project},
        {FileFlow::Contracting, "企业云盘/x.gcfg", project},
        {FileFlow::Contracting, "企业云盘/x.", QString()},
        {FileFlow::Audit, "个人云盘/x.", anyKind},
        {FileFlow::Audit, "个人云盘/x", anyKind},
        {FileFlow::Audit, "个人云盘/x.gcfg", QString()},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.path);
        Stage stage(row.flow);
        stage.host.switches().account.loggedIn = true;
        stage.linesOf(QString::fromUtf8(row.path));
        EXPECT_EQ(testing_support::journalLines({"box"}),
                  row.message.isNull() ? Lines{} : Lines{boxLine(row.message)});
        EXPECT_EQ(countOf("dialog"), row.message.isNull() ? 1 : 0);
    }
}

TEST(NewFromFile, ALogInThatIsGivenUpEndsItSilently) {
    for (FileFlow flow : everyFlow) {
        Stage stage(flow);
        stage.host.switches().account.login = Login::Cancelled;
        EXPECT_EQ(stage.linesOf(cloudFile), framed(flow, {isLoggedIn, showLogin, isLoggedIn}));
    }
}

TEST(NewFromFile, ALogInIsAskedForOnceAndTheFlowGoesOn) {
    for (FileFlow flow : everyFlow) {
        Stage stage(flow);
        stage.host.switches().account.login = Login::Accepted;
        Lines expected = endOf(flow, cloudFile.toStdString());
        expected.insert(expected.begin(), {isLoggedIn, showLogin, isLoggedIn});
        EXPECT_EQ(stage.linesOf(cloudFile), framed(flow, expected));
    }
}

TEST(NewFromFile, ATypedTextThatIsAnItemSelectsTheFirstOfThem) {
    Stage stage(FileFlow::Audit);
    const QString file = stage.host.write(QStringLiteral("a.GCFX"));
    for (const QString& item : {QStringLiteral("other"), file, file})
        stage.page.fileCombo->addItem(item);
    stage.linesOf(file);
    EXPECT_EQ(stage.page.fileCombo->currentIndex(), 1);
    stage.linesOf(QStringLiteral("OTHER"));
    EXPECT_EQ(stage.page.fileCombo->currentIndex(), 1);
    EXPECT_EQ(stage.page.path(), QStringLiteral("OTHER"));
}

TEST(NewFromFile, TheEstimateWithoutItsOptionStartsFromTheTemplate) {
    Stage stage(FileFlow::Estimate);
    stage.page.fromFile->setChecked(false);
    stage.host.values().systemSettings.modelName = QStringLiteral("以前的");
    EXPECT_EQ(testing_support::journalNames(), testing_support::Lines{});
    const Lines lines = stage.linesOf(QStringLiteral("/nowhere/a.GCFX"));
    EXPECT_EQ(testing_support::journalNames({"osgi::ObjectHelper::GetService",
                                             "ProjectSettingHelper::GetSysSettingInfo",
                                             "ProjectSettingHelper::SetSysSettingInfo", "dialog"}),
              (Lines{"osgi::ObjectHelper::GetService", "ProjectSettingHelper::GetSysSettingInfo",
                     "ProjectSettingHelper::SetSysSettingInfo", "dialog"}));
    const Lines end(lines.end() - 4, lines.end());
    EXPECT_EQ(end, (Lines{closed, start9001,
                          created(R"({"GcLj":"","GsMb":"某计价模式","TemplateName":"某模板"})", 6),
                          end9001}));
    EXPECT_EQ(stage.host.values().systemSettings.modelName, QStringLiteral("某计价模式"));
    const QJsonArray written = testing_support::entriesOf("ProjectSettingHelper::SetSysSettingInfo")
                                   .constFirst()
                                   .value(QLatin1String("args"))
                                   .toArray();
    EXPECT_EQ(written.at(1).toInt(-1), 0);
}

TEST(NewFromFile, WithoutConfigurationTheModelIsNotRemembered) {
    Stage stage(FileFlow::Estimate);
    stage.page.fromFile->setChecked(false);
    stage.host.switches().configurationPresent = false;
    const Lines lines = stage.linesOf(QString());
    EXPECT_EQ(lines.size(), 5u);
    EXPECT_EQ(lines.back(), end9001);
}

TEST(NewFromFile, TheEstimateFromAFileKeepsTheRememberedModel) {
    Stage stage(FileFlow::Estimate);
    stage.host.switches().account.loggedIn = true;
    stage.linesOf(cloudFile);
    EXPECT_EQ(countOf("ProjectSettingHelper::SetSysSettingInfo"), 0);
}

TEST(NewFromFile, TheSettlementWithoutItsOptionStartsFromTheTemplate) {
    Stage stage(FileFlow::Settlement);
    stage.page.fromFile->setChecked(false);
    EXPECT_EQ(stage.linesOf(QStringLiteral("/nowhere/a.GCFX")),
              (Lines{service, closed, start9001,
                     created(R"({"GcLj":"","JsMb":"某模板","TemplateName":""})", 8), end9001}));
}

TEST(NewFromFile, PagesThatAreNotBuiltCountAsEmpty) {
    const struct {
        FileFlow flow;
        Lines end;
    } rows[] = {
        {FileFlow::Estimate,
         {closed, start9001, created(R"({"GcLj":"","GsMb":"","TemplateName":""})", 6), end9001}},
        {FileFlow::Settlement,
         {closed, start9001, created(R"({"GcLj":"","JsMb":"","TemplateName":""})", 8), end9001}},
        {FileFlow::Audit, {boxLine(QStringLiteral("请选择预算工程文件"))}},
        {FileFlow::Contracting, {boxLine(QStringLiteral("请选择工程文件")), end20011}},
    };
    for (const auto& row : rows) {
        Stage stage(row.flow);
        stage.dialog.pages = {};
        stage.run();
        const Lines lines = flowLines();
        ASSERT_GE(lines.size(), row.end.size());
        EXPECT_EQ(Lines(lines.end() - int(row.end.size()), lines.end()), row.end);
    }
}

TEST(NewFromFile, ADialogThatGoesWhenItClosesIsNotTouchedAgain) {
    for (FileFlow flow : everyFlow) {
        SCOPED_TRACE(int(flow));
        Stage stage(flow);
        stage.host.switches().account.loggedIn = true;
        stage.dialog.goesWhenClosed = true;
        const Lines lines = stage.linesOf(cloudFile);
        EXPECT_EQ(countOf("createFromPage"), 0);
        EXPECT_EQ(countOf("Communication::SendMsgToPlugin"), flow == FileFlow::Contracting ? 1 : 0);
        EXPECT_EQ(countOf("SharedInterface::UseFunc"), countOf("SharedInterface::EndUseFun"));
    }
}

TEST(NewFromFile, ADialogThatGoesDuringTheLogInEndsTheFlow) {
    for (FileFlow flow : everyFlow) {
        Stage stage(flow);
        stage.host.switches().account.login = Login::Accepted;
        stage.type(cloudFile);
        const auto connection =
            QObject::connect(&workbench::Journal::instance(), &workbench::Journal::recorded,
                             [&](const QJsonObject& entry) {
                                 const QString name = entry.value(QLatin1String("name")).toString();
                                 if (name == QLatin1String("FirstPagePlugin::showLogin")) {
                                     stage.dialog.window.reset();
                                 }
                             });
        stage.run();
        QObject::disconnect(connection);
        EXPECT_EQ(flowLines(), framed(flow, {isLoggedIn, showLogin, isLoggedIn}));
    }
}

/// @return the names of all host calls of a run, each as often as it was made.
Lines callsOf(Stage& stage) {
    stage.linesOf(cloudFile);
    return testing_support::journalNames({"call"});
}

TEST(NewFromFile, AnExceptionAtAnyHostCallIsReportedOnceAndASecondTrySucceeds) {
    const auto setUp = [](Stage& stage) { stage.host.switches().account.login = Login::Accepted; };
    for (FileFlow flow : everyFlow) {
        Lines calls;
        {
            Stage stage(flow);
            setUp(stage);
            calls = callsOf(stage);
        }
        std::map<std::string, int> seen;
        for (const std::string& call : calls) {
            const int nth = ++seen[call];
            for (const auto& kind : testing_support::thrownKinds()) {
                SCOPED_TRACE(call + " as " + kind.name);
                Stage stage(flow);
                setUp(stage);
                testing_support::throwAt(call.c_str(), kind.as, nth);
                stage.type(cloudFile);
                newpro::guarded("NewProCfgDialog", "NewProCfgDialog::slot", [&] { stage.run(); });
                EXPECT_EQ(testing_support::journalLines({"exception"}),
                          Lines{std::string("exception NewProCfgDialog::slot: ") + kind.reported});
                const bool startFailed = call == "SharedInterface::UseFunc";
                EXPECT_EQ(countOf("SharedInterface::EndUseFun"),
                          countOf("SharedInterface::UseFunc") - (startFailed ? 1 : 0));
                testing_support::throwNoMore();
                testing_support::clearJournal();
                stage.run();
                EXPECT_EQ(countOf("dialog"), 1);
                EXPECT_EQ(countOf("createFromPage") + countOf("Communication::SendMsgToPlugin"), 1);
            }
        }
    }
}

TEST(NewFromFile, OfTwoExceptionsTheFirstIsReported) {
    Stage stage(FileFlow::Contracting);
    testing_support::throwAt("osgi::ObjectHelper::GetService", workbench::ThrowRule::As::String, 1,
                             QStringLiteral("first"));
    testing_support::throwAt("SharedInterface::EndUseFun", workbench::ThrowRule::As::String, 1,
                             QStringLiteral("second"));
    newpro::guarded("NewProCfgDialog", "NewProCfgDialog::slot", [&] { stage.run(); });
    EXPECT_EQ(testing_support::journalLines({"exception"}),
              Lines{"exception NewProCfgDialog::slot: first"});
}

TEST(NewFromFile, ThePathIsHandedOnAsItWasChosen) {
    for (const char* name : {"单引'双\".GCFX", "😀 a  b.GCFX", "a#b%20c.GCFX"}) {
        Stage stage(FileFlow::Contracting);
        const QString file = stage.host.write(QString::fromUtf8(name));
        stage.type(file);
        stage.run();
        const QJsonArray args = testing_support::entriesOf("Communication::SendMsgToPlugin")
                                    .value(0)
                                    .value(QLatin1String("args"))
                                    .toArray();
        EXPECT_EQ(args.at(2).toObject().value(QLatin1String("pro_file")).toString(), file) << name;
    }
}

TEST(NewFromFile, AFileThatVanishedSinceItWasChosenIsNotFound) {
    Stage stage(FileFlow::Audit);
    const QString file = stage.host.write(QStringLiteral("a.GCFX"));
    stage.page.fileCombo->addItem(file);
    ASSERT_TRUE(QFile::remove(file));
    EXPECT_EQ(stage.linesOf(file),
              (Lines{service, boxLine(QStringLiteral("找不到该文件，请检查文件路径是否正确"))}));
}

}  // namespace
