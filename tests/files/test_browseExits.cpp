#include "files/browse.h"

#include "fileDialog.h"
#include "files/newFromFile.h"
#include "tests/files/NewFromFileStage.h"

namespace {

using files_testing::boxLine;
using files_testing::everyFlow;
using files_testing::Stage;
using newpro::FileFlow;
using testing_support::countOf;
using testing_support::Lines;

/// A page whose file dialog is answered.
struct BrowseStage : Stage {
    explicit BrowseStage(FileFlow flow) : Stage(flow) {
        host.switches().fileDialogPrepared = true;
        host.values().basicSettings.projectFolder = QStringLiteral("/my/projects");
        type(QStringLiteral("typed"));
    }

    void answer(const QString& path, int place = 0, const QString& cloudPath = QString()) {
        workbench::FileAnswer prepared;
        prepared.path = path;
        prepared.place = place;
        prepared.cloudPath = cloudPath;
        host.switches().fileAnswers = {prepared};
    }
    void browse() { newpro::browseForFile(dialog, dialog.pages, flow); }
    /// @return everything that browsing left in the journal, by name.
    Lines namesOf(const QString& path, int place = 0, const QString& cloudPath = QString()) {
        answer(path, place, cloudPath);
        testing_support::clearJournal();
        browse();
        return testing_support::journalNames();
    }
};

/// @return what every browsing asks the host, in its order, and what follows.
Lines browseStepsThen(std::initializer_list<const char*> more) {
    Lines steps{
        "ProjectSettingHelper::GetProjectSettingHelper",
        "ProjectSettingHelper::getCurModeBasicSettings",
        "SharedInterface::GetSuffix",
        "zFileDialog::getCurrentPath",
        "zFileDialog::getOpenFileName",
        "zFileDialog::TbServerMsg",
    };
    steps.insert(steps.end(), more.begin(), more.end());
    return steps;
}

TEST(BrowseExits, ACancelledDialogAMissingFileAndALocalFileTakeTheSameSteps) {
    const Lines steps = browseStepsThen({});
    for (FileFlow flow : everyFlow) {
        SCOPED_TRACE(int(flow));
        BrowseStage stage(flow);
        EXPECT_EQ(stage.namesOf(QString()), steps);
        EXPECT_EQ(stage.namesOf(QStringLiteral("/nowhere/a.GCFX")), steps);
        EXPECT_EQ(stage.namesOf(stage.host.write(QStringLiteral("a.GCFX"))), steps);
        EXPECT_EQ(testing_support::journalLines({"zFileDialog::TbServerMsg"}),
                  Lines{R"(call zFileDialog::TbServerMsg(""))"});
    }
}

TEST(BrowseExits, ARefusedSuffixIsToldLast) {
    for (FileFlow flow : {FileFlow::Estimate, FileFlow::Settlement, FileFlow::Contracting}) {
        SCOPED_TRACE(int(flow));
        BrowseStage stage(flow);
        EXPECT_EQ(stage.namesOf(stage.host.write(QStringLiteral("a.SGCFG"))),
                  browseStepsThen({"Communication::GetInstance", "Communication::GetMainWindow",
                                   "showInformation"}));
    }
}

TEST(BrowseExits, TheCloudPathIsAskedForLast) {
    for (FileFlow flow : everyFlow) {
        SCOPED_TRACE(int(flow));
        BrowseStage stage(flow);
        EXPECT_EQ(stage.namesOf(stage.host.write(QStringLiteral("a.GCFX")), 3,
                                QStringLiteral("个人云盘/a.GCFX")),
                  browseStepsThen({"zFileDialog::GetFilePath"}));
    }
}

TEST(BrowseExits, WithoutASettingsHelperTheApplicationFolderIsAskedFor) {
    for (FileFlow flow : everyFlow) {
        SCOPED_TRACE(int(flow));
        BrowseStage stage(flow);
        stage.host.switches().configurationPresent = false;
        EXPECT_EQ(stage.namesOf(QString()), (Lines{
                                                "ProjectSettingHelper::GetProjectSettingHelper",
                                                "SharedInterface::GetAppPath",
                                                "SharedInterface::GetSuffix",
                                                "zFileDialog::getCurrentPath",
                                                "zFileDialog::getOpenFileName",
                                                "zFileDialog::TbServerMsg",
                                            }));
    }
}

TEST(BrowseExits, AnEmptyProjectFolderIsLookedForInTheApplicationFolder) {
    BrowseStage stage(FileFlow::Audit);
    stage.host.values().basicSettings.projectFolder.clear();
    EXPECT_EQ(stage.namesOf(QString()), (Lines{
                                            "ProjectSettingHelper::GetProjectSettingHelper",
                                            "ProjectSettingHelper::getCurModeBasicSettings",
                                            "SharedInterface::GetAppPath",
                                            "SharedInterface::GetSuffix",
                                            "zFileDialog::getCurrentPath",
                                            "zFileDialog::getOpenFileName",
                                            "zFileDialog::TbServerMsg",
                                        }));
}

TEST(BrowseExits, ARefusedChoiceKeepsItsPlaceForTheHost) {
    BrowseStage stage(FileFlow::Estimate);
    stage.namesOf(stage.host.write(QStringLiteral("a.GCFG")), 3, QStringLiteral("个人云盘/a"));
    EXPECT_EQ(zFileDialog::iClickedBtn, 3);
    EXPECT_EQ(stage.page.path(), QStringLiteral("typed"));
}

TEST(BrowseThenCreate, AFileOnACloudDiskOfAnySeparatorIsCreatedFrom) {
    for (const char* separator : {"|", ">>", "\\", "/"}) {
        for (FileFlow flow : everyFlow) {
            SCOPED_TRACE(std::string(separator) + " " + std::to_string(int(flow)));
            BrowseStage stage(flow);
            stage.host.switches().account.loggedIn = true;
            zFileDialog::pathFgf = QLatin1String(separator);
            const QString cloudPath = QStringLiteral("企业云盘") + zFileDialog::pathFgf +
                                      QStringLiteral("造价一部") + zFileDialog::pathFgf +
                                      QStringLiteral("锦绣 花园.GCFX");
            stage.answer(stage.host.write(QStringLiteral("Downloads/锦绣 花园.GCFX")), 4,
                         cloudPath);
            stage.browse();
            EXPECT_EQ(stage.page.path(), cloudPath);
            stage.run();
            EXPECT_EQ(countOf("UserInfo::IsLogin"), 1);
            EXPECT_EQ(countOf("box"), 0);
            EXPECT_EQ(stage.createdFrom(), cloudPath);
        }
    }
}

TEST(BrowseThenCreate, WithAnotherSeparatorASlashMakesNoCloudPath) {
    BrowseStage stage(FileFlow::Audit);
    zFileDialog::pathFgf = QStringLiteral("|");
    EXPECT_EQ(stage.linesOf(files_testing::cloudFile),
              (Lines{files_testing::service,
                     boxLine(QStringLiteral("找不到该文件，请检查文件路径是否正确"))}));
}

TEST(BrowseThenCreate, AFileThatVanishesAfterTheChoiceIsToldAndCanBeChosenAgain) {
    for (FileFlow flow : {FileFlow::Settlement, FileFlow::Audit, FileFlow::Contracting}) {
        SCOPED_TRACE(int(flow));
        BrowseStage stage(flow);
        const QString file = stage.host.write(QStringLiteral("a.GCFX"));
        stage.answer(file);
        stage.browse();
        ASSERT_TRUE(QFile::remove(file));
        stage.run();
        EXPECT_EQ(testing_support::journalLines({"box"}),
                  Lines{boxLine(QStringLiteral("找不到该文件，请检查文件路径是否正确"))});
        EXPECT_EQ(countOf("dialog"), 0);
        EXPECT_EQ(stage.page.path(), file);

        stage.host.write(QStringLiteral("a.GCFX"));
        stage.run();
        EXPECT_EQ(stage.createdFrom(), file);
    }
}

#ifdef Q_OS_UNIX
TEST(BrowseThenCreate, ALinkWhoseFileIsGoneIsNotFound) {
    BrowseStage stage(FileFlow::Audit);
    const QString file = stage.host.write(QStringLiteral("a.GCFX"));
    const QString link = stage.host.path(QStringLiteral("link.GCFX"));
    ASSERT_TRUE(QFile::link(file, link));
    stage.answer(link);
    stage.browse();
    EXPECT_EQ(stage.page.path(), link);
    ASSERT_TRUE(QFile::remove(file));
    EXPECT_EQ(stage.linesOf(link),
              (Lines{files_testing::service,
                     boxLine(QStringLiteral("找不到该文件，请检查文件路径是否正确"))}));
}
#endif

TEST(BrowseThenCreate, LongAndStrangeNamesComeThroughUnchanged) {
    const QString suffix = QStringLiteral(".GCFX");
    const QString names[] = {
        QString(250, QLatin1Char('n')) + suffix,  // 255 bytes, the longest that a disk takes
        QStringLiteral("锦江区第三中学").repeated(11).left(83) + suffix,
        QStringLiteral("😀👷 e\u0301") + suffix,
        testing_support::allowedName(QStringLiteral("单引'双\" `$(a)` %1 #b%20c&d")) + suffix,
        QStringLiteral(" 两头有空 ") + suffix,
    };
    for (FileFlow flow : {FileFlow::Settlement, FileFlow::Audit, FileFlow::Contracting}) {
        for (const QString& name : names) {
            SCOPED_TRACE(name.toStdString() + " " + std::to_string(int(flow)));
            BrowseStage stage(flow);
            const QString file = stage.host.write(name);
            stage.answer(file);
            stage.browse();
            ASSERT_EQ(stage.page.path(), file);
            stage.run();
            EXPECT_EQ(stage.createdFrom(), file);

            testing_support::clearJournal();
            stage.host.switches().account.loggedIn = true;
            const QString cloudPath = QStringLiteral("个人云盘/") + name;
            stage.answer(file, 3, cloudPath);
            stage.browse();
            ASSERT_EQ(stage.page.path(), cloudPath);
            stage.run();
            EXPECT_EQ(stage.createdFrom(), cloudPath);
        }
    }
}

}  // namespace
