#include "files/browse.h"

#include <map>

#include "core/guard.h"
#include "fileDialog.h"
#include "tests/files/FileTesting.h"

namespace {

using files_testing::boxLine;
using files_testing::everyFlow;
using files_testing::itemsOf;
using newpro::FileFlow;
using testing_support::countOf;
using testing_support::Lines;
using workbench::FileAnswer;

struct Browsing {
    explicit Browsing(FileFlow flow) : flow(flow), page(dialog.pages.of(flow)) {
        host.switches().fileDialogPrepared = true;
        page.fileCombo->addItem(QStringLiteral("/old/a.GCFX"));
        page.fileCombo->setCurrentText(QStringLiteral("typed"));
    }

    void answer(const QString& path, int place = 0, const QString& cloudPath = QString()) {
        FileAnswer prepared;
        prepared.path = path;
        prepared.place = place;
        prepared.cloudPath = cloudPath;
        host.switches().fileAnswers = {prepared};
    }
    void run() { newpro::browseForFile(dialog, dialog.pages, flow); }
    /// @return an argument of the file dialog's call.
    QJsonValue asked(int index) const {
        return testing_support::entriesOf("zFileDialog::getOpenFileName")
            .value(0)
            .value(QLatin1String("args"))
            .toArray()
            .at(index);
    }

    testing_support::TemporaryInstallation host;
    testing_support::FakeDialog dialog;
    FileFlow flow;
    newpro::FilePage page;
};

TEST(Browse, EveryPageAsksForItsSuffixesAndMode) {
    const struct {
        FileFlow flow;
        int kind, mode;
    } rows[] = {{FileFlow::Estimate, 2, 2},
                {FileFlow::Settlement, 8, 2},
                {FileFlow::Audit, 1, 2},
                {FileFlow::Contracting, 16, 1}};
    for (const auto& row : rows) {
        SCOPED_TRACE(int(row.flow));
        Browsing stage(row.flow);
        stage.host.values().basicSettings.projectFolder = QStringLiteral("/my/projects");
        QStringList suffixes;
        SharedInterface::GetSuffix(row.kind, &suffixes, 0);
        ASSERT_FALSE(suffixes.isEmpty());
        testing_support::clearJournal();
        QWidget top;
        stage.dialog.widget()->setParent(&top);
        stage.run();
        stage.dialog.widget()->setParent(nullptr);
        const std::string getSuffix =
            "call SharedInterface::GetSuffix(" + std::to_string(row.kind) + ", 0)";
        EXPECT_EQ(testing_support::journalLines({"SharedInterface::GetSuffix"}), Lines{getSuffix});
        EXPECT_EQ(countOf("zFileDialog::getOpenFileName"), 1);
        EXPECT_EQ(stage.asked(0), workbench::toJson(static_cast<const QObject*>(&top)));
        EXPECT_EQ(stage.asked(1).toString(), QStringLiteral("/my/projects"));
        EXPECT_EQ(stage.asked(2).toArray(), QJsonArray::fromStringList(suffixes));
        EXPECT_EQ(stage.asked(3), QJsonValue(row.mode));
        EXPECT_EQ(stage.asked(4), QJsonValue(QString()));
        EXPECT_EQ(stage.asked(5), QJsonValue(true));
        EXPECT_EQ(stage.asked(6), QJsonValue(QString()));
        EXPECT_EQ(stage.asked(7), QJsonValue(true));
        EXPECT_EQ(stage.asked(8), QJsonValue(1));
    }
}

TEST(Browse, TheStartFolderIsTheMostRecentOneKnown) {
    Browsing stage(FileFlow::Audit);
    stage.host.values().basicSettings.projectFolder.clear();
    stage.run();
    EXPECT_EQ(stage.asked(1).toString(), stage.host.path(QStringLiteral("ProjectFiles")));

    testing_support::clearJournal();
    stage.host.values().basicSettings.projectFolder = QStringLiteral("/my/projects");
    stage.run();
    EXPECT_EQ(stage.asked(1).toString(), QStringLiteral("/my/projects"));

    stage.answer(stage.host.write(QStringLiteral("used/a.GCFX")));
    stage.run();
    const QString used = zFileDialog::getCurrentPath();
    ASSERT_FALSE(used.isEmpty());
    testing_support::clearJournal();
    stage.run();
    EXPECT_EQ(stage.asked(1).toString(), used);
}

TEST(Browse, WithoutConfigurationItStartsInTheApplicationFolder) {
    Browsing stage(FileFlow::Audit);
    stage.host.switches().configurationPresent = false;
    stage.run();
    EXPECT_EQ(stage.asked(1).toString(), stage.host.folder());
}

TEST(Browse, ACancelledDialogAndAMissingFileChangeNothing) {
    for (FileFlow flow : everyFlow) {
        for (const QString& path : {QString(), QStringLiteral("/nowhere/a.GCFX")}) {
            Browsing stage(flow);
            stage.answer(path);
            stage.run();
            EXPECT_EQ(stage.page.path(), QStringLiteral("typed"));
            EXPECT_EQ(countOf("box"), 0);
        }
    }
}

TEST(Browse, EveryPageRefusesItsSuffixes) {
    const struct {
        FileFlow flow;
        bool refusesGroup, refusesPrefixedGroup;
    } rows[] = {{FileFlow::Estimate, true, true},
                {FileFlow::Settlement, true, true},
                {FileFlow::Contracting, false, true},
                {FileFlow::Audit, false, false}};
    for (const auto& row : rows) {
        for (const char* name : {"a.gcfg", "a.SGcfg", "a.GCFX", "none"}) {
            SCOPED_TRACE(name);
            Browsing stage(row.flow);
            const QString file = stage.host.write(QLatin1String(name));
            const bool refused =
                (QLatin1String(name) == QLatin1String("a.gcfg") && row.refusesGroup) ||
                (QLatin1String(name) == QLatin1String("a.SGcfg") && row.refusesPrefixedGroup);
            stage.answer(file);
            stage.run();
            EXPECT_EQ(testing_support::journalLines({"box"}),
                      refused ? Lines{boxLine(QStringLiteral("请选择预算工程文件"))} : Lines{});
            EXPECT_EQ(stage.page.path(), refused ? QStringLiteral("typed") : file);
        }
    }
}

TEST(Browse, AChosenFileThatIsAnItemIsSelectedAndANewOneIsShownOnly) {
    Browsing stage(FileFlow::Audit);
    const QString known = stage.host.write(QStringLiteral("known.GCFX"));
    const QString fresh = stage.host.write(QStringLiteral("新 的.GCFX"));
    stage.page.fileCombo->addItem(known);
    stage.answer(known);
    stage.run();
    EXPECT_EQ(stage.page.fileCombo->currentIndex(), 1);
    EXPECT_EQ(stage.page.path(), known);
    stage.answer(fresh);
    stage.run();
    EXPECT_EQ(stage.page.path(), fresh);
    EXPECT_EQ(itemsOf(*stage.page.fileCombo), (QStringList{QStringLiteral("/old/a.GCFX"), known}));
}

TEST(Browse, AFileOnACloudDiskShowsItsCloudPath) {
    for (int place : {3, 4}) {
        Browsing stage(FileFlow::Audit);
        const QString cloudPath = QStringLiteral("企业云盘/甲/a.GCFX");
        stage.answer(stage.host.write(QStringLiteral("Downloads/a.GCFX")), place, cloudPath);
        stage.run();
        EXPECT_EQ(stage.page.path(), cloudPath);
        EXPECT_EQ(zFileDialog::iClickedBtn, 0);
        EXPECT_EQ(countOf("zFileDialog::GetFilePath"), 1);
    }
}

TEST(Browse, ALocalPlaceIsForgottenAsWell) {
    Browsing stage(FileFlow::Audit);
    stage.answer(stage.host.write(QStringLiteral("a.GCFX")), 1);
    stage.run();
    EXPECT_EQ(zFileDialog::iClickedBtn, 0);
    EXPECT_EQ(stage.page.path(), stage.host.path(QStringLiteral("a.GCFX")));
}

TEST(Browse, APageThatIsNotBuiltStillBrowses) {
    Browsing stage(FileFlow::Settlement);
    stage.dialog.pages = {};
    stage.answer(stage.host.write(QStringLiteral("a.GCFX")), 2);
    stage.run();
    EXPECT_EQ(countOf("zFileDialog::getOpenFileName"), 1);
    EXPECT_EQ(zFileDialog::iClickedBtn, 0);
}

TEST(Browse, ADialogThatGoesWhileTheFileDialogIsOpenIsNotTouchedAgain) {
    Browsing stage(FileFlow::Audit);
    stage.answer(stage.host.write(QStringLiteral("a.GCFX")));
    const auto connection =
        QObject::connect(&workbench::Journal::instance(), &workbench::Journal::recorded,
                         [&](const QJsonObject& entry) {
                             const QString name = entry.value(QLatin1String("name")).toString();
                             if (name == QLatin1String("zFileDialog::getOpenFileName"))
                                 stage.dialog.destroy();
                         });
    stage.run();
    QObject::disconnect(connection);
    EXPECT_FALSE(stage.dialog.isAlive());
    EXPECT_EQ(countOf("zFileDialog::TbServerMsg"), 1);
    EXPECT_EQ(countOf("box"), 0);
}

TEST(Browse, AnExceptionAtAnyHostCallIsReportedOnceAndASecondTrySucceeds) {
    const QString cloudPath = QStringLiteral("个人云盘/a.GCFX");
    const auto prepare = [&](Browsing& stage) {
        stage.host.values().basicSettings.projectFolder.clear();
        stage.answer(stage.host.write(QStringLiteral("a.GCFX")), 3, cloudPath);
    };
    Lines calls;
    {
        Browsing stage(FileFlow::Audit);
        prepare(stage);
        stage.run();
        calls = testing_support::journalNames({"call"});
    }
    std::map<std::string, int> seen;
    for (const std::string& call : calls) {
        const int nth = ++seen[call];
        for (const auto& kind : testing_support::thrownKinds()) {
            SCOPED_TRACE(call + " as " + kind.name);
            Browsing stage(FileFlow::Audit);
            prepare(stage);
            testing_support::throwAt(call.c_str(), kind.as, nth);
            newpro::guarded({"NewProCfgDialog", "slot"}, [&] { stage.run(); });
            EXPECT_EQ(testing_support::journalLines({"exception"}),
                      Lines{std::string("exception NewProCfgDialog::slot: ") + kind.reported});
            EXPECT_EQ(stage.page.path(), QStringLiteral("typed"));
            testing_support::throwNoMore();
            prepare(stage);
            stage.run();
            EXPECT_EQ(stage.page.path(), cloudPath);
        }
    }
}

}  // namespace
