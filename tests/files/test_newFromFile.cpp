#include <QDir>

#include "files/historyLists.h"
#include "tests/files/NewFromFileStage.h"

namespace {

using files_testing::boxLine;
using files_testing::closed;
using files_testing::cloudFile;
using files_testing::created;
using files_testing::end20011;
using files_testing::end9001;
using files_testing::endOf;
using files_testing::everyFlow;
using files_testing::framed;
using files_testing::isLoggedIn;
using files_testing::service;
using files_testing::Stage;
using files_testing::start9001;
using newpro::FileFlow;
using testing_support::countOf;
using testing_support::flowLines;
using testing_support::Lines;

/// @return a path with a drive and backslashes, which can be written to.
QString pathOfWindows(const testing_support::TemporaryInstallation& host, const QString& written) {
#ifdef Q_OS_WIN
    return QDir::toNativeSeparators(host.path(written.section(QLatin1Char('\\'), -1)));
#else
    EXPECT_TRUE(QDir::setCurrent(host.folder()));
    return written;
#endif
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

TEST(NewFromFile, TheAuditTakesGroupFilesAndPlainOnes) {
    for (const char* name : {"x.gcfg", "x.SGCFG", "x.gcf"}) {
        Stage stage(FileFlow::Audit);
        const QString file = stage.host.write(QLatin1String(name));
        EXPECT_EQ(stage.linesOf(file), framed(stage.flow, endOf(stage.flow, file.toStdString())))
            << name;
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

TEST(NewFromFile, ATypedTextIsSelectedBeforeTheLogInIsAskedFor) {
    Stage stage(FileFlow::Audit);
    stage.host.switches().account.login = workbench::Login::Cancelled;
    for (const QString& item : {QStringLiteral("other"), cloudFile})
        stage.page.fileCombo->addItem(item);
    stage.linesOf(cloudFile);
    EXPECT_EQ(countOf("dialog"), 0);
    EXPECT_EQ(stage.page.fileCombo->currentIndex(), 1);
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
                     "ProjectSettingHelper::SetSysSettingInfo", "FakeDialog"}));
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

TEST(NewFromFile, ThePathIsHandedOnAsItWasChosen) {
    for (const char* name : {"单引'双\".GCFX", "😀 a  b.GCFX", "a#b%20c.GCFX"}) {
        Stage stage(FileFlow::Contracting);
        const QString file =
            stage.host.write(testing_support::allowedName(QString::fromUtf8(name)));
        stage.type(file);
        stage.run();
        const QJsonArray args = testing_support::entriesOf("Communication::SendMsgToPlugin")
                                    .value(0)
                                    .value(QLatin1String("args"))
                                    .toArray();
        EXPECT_EQ(args.at(2).toObject().value(QLatin1String("pro_file")).toString(), file) << name;
    }
}

/// Where paths are others, this one is the name of a file in the current folder.
TEST(NewFromFile, APathOfWindowsIsHandedOnAsItWasTypedOrListed) {
    const QString before = QDir::currentPath();
    for (const FileFlow flow : everyFlow) {
        for (const QString& written :
             {QStringLiteral("D:\\工程\\a.GCFX"), QStringLiteral("d:\\b.GCFX"),
              QStringLiteral("\\\\server\\share\\c.GCFX")}) {
            for (const bool listed : {false, true}) {
                SCOPED_TRACE(written.toStdString());
                Stage stage(flow);
                const QString file = pathOfWindows(stage.host, written);
                files_testing::writeBudgetProject(file);
                if (listed) {
                    newpro::refillHistory({QStringLiteral("bd##") + file}, stage.dialog.pages,
                                          {true, true, true, true});
                    stage.page.fileCombo->setCurrentIndex(0);
                } else {
                    stage.type(file);
                }
                EXPECT_EQ(stage.page.fileCombo->currentText(), file);
                stage.run();
                EXPECT_EQ(stage.createdFrom(), file);
                QDir::setCurrent(before);
            }
        }
    }
}

}  // namespace
