#include <functional>
#include <map>

#include "core/guard.h"
#include "tests/files/NewFromFileStage.h"

namespace {

using files_testing::boxLine;
using files_testing::cloudFile;
using files_testing::endOf;
using files_testing::everyFlow;
using files_testing::framed;
using files_testing::isLoggedIn;
using files_testing::service;
using files_testing::showLogin;
using files_testing::Stage;
using newpro::FileFlow;
using testing_support::countOf;
using testing_support::flowLines;
using testing_support::Lines;
using workbench::FirstPage;
using workbench::Login;

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

TEST(NewFromFile, TheAccountIsAskedForAnewAfterALogIn) {
    Stage stage(FileFlow::Audit);
    stage.host.switches().account.login = Login::Accepted;
    stage.linesOf(cloudFile);
    const Lines asked{"Users::Instance", "Users::Kvy", "UserInfo::IsLogin"};
    Lines expected = asked;
    expected.emplace_back("FirstPagePlugin::showLogin");
    expected.insert(expected.end(), asked.begin(), asked.end());
    Lines names = asked;
    names.emplace_back("FirstPagePlugin::showLogin");
    EXPECT_EQ(testing_support::journalNames(names), expected);
}

TEST(NewFromFile, ADialogThatGoesWhenItClosesIsNotTouchedAgain) {
    for (FileFlow flow : everyFlow) {
        SCOPED_TRACE(int(flow));
        Stage stage(flow);
        stage.host.switches().account.loggedIn = true;
        stage.dialog.onDone = [&] { stage.dialog.destroy(); };
        const Lines lines = stage.linesOf(cloudFile);
        EXPECT_EQ(countOf("createFromPage"), 0);
        EXPECT_EQ(countOf("Communication::SendMsgToPlugin"), flow == FileFlow::Contracting ? 1 : 0);
        EXPECT_EQ(countOf("SharedInterface::UseFunc"), countOf("SharedInterface::EndUseFun"));
    }
}

/// Runs the flow, and `meanwhile` while the host carries out `call`.
void runWith(Stage& stage, const char* call, const std::function<void()>& meanwhile) {
    const auto connection =
        QObject::connect(&workbench::Journal::instance(), &workbench::Journal::recorded,
                         [&](const QJsonObject& entry) {
                             const QString name = entry.value(QLatin1String("name")).toString();
                             if (name == QLatin1String(call)) meanwhile();
                         });
    stage.run();
    QObject::disconnect(connection);
}

TEST(NewFromFile, ADialogThatGoesDuringTheLogInEndsTheFlow) {
    for (FileFlow flow : everyFlow) {
        Stage stage(flow);
        stage.host.switches().account.login = Login::Accepted;
        stage.type(cloudFile);
        runWith(stage, "FirstPagePlugin::showLogin", [&] { stage.dialog.destroy(); });
        EXPECT_EQ(flowLines(), framed(flow, {isLoggedIn, showLogin, isLoggedIn}));
    }
}

/// The host deletes the page of the flow while it carries out `call`.
void runWithoutPage(Stage& stage, const char* call) {
    stage.type(cloudFile);
    runWith(stage, call, [&] { stage.dialog.destroyPages(); });
    EXPECT_FALSE(stage.page.fileCombo);
    EXPECT_TRUE(stage.dialog.isAlive());
}

TEST(NewFromFile, APageThatGoesWhileTheServiceIsAskedForEndsTheFlowSilently) {
    for (FileFlow flow : everyFlow) {
        SCOPED_TRACE(int(flow));
        Stage stage(flow);
        runWithoutPage(stage, "osgi::ObjectHelper::GetService");
        EXPECT_EQ(flowLines(), framed(flow, {}));
    }
}

TEST(NewFromFile, APageThatGoesWhileTheUseIsLoggedEndsTheFlowSilently) {
    Stage stage(FileFlow::Contracting);
    runWithoutPage(stage, "SharedInterface::UseFunc");
    EXPECT_EQ(flowLines(), framed(stage.flow, {}));
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
                newpro::guarded({"NewProCfgDialog", "slot"}, [&] { stage.run(); });
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
    newpro::guarded({"NewProCfgDialog", "slot"}, [&] { stage.run(); });
    EXPECT_EQ(testing_support::journalLines({"exception"}),
              Lines{"exception NewProCfgDialog::slot: first"});
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
