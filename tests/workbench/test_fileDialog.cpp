// The host's file dialog: prepared answers, and the real window driven by mouse and keyboard.
#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QGuiApplication>
#include <QJsonArray>

#include "tests/workbench/FileDialogHand.h"

using namespace testing_support;
using workbench::OpenDialog;

// Prepared answers.

TEST_F(FileDialog, PreparedAnswersAreUsedInTurnAndThenItIsCancelled) {
    host.switches().fileDialogPrepared = true;
    workbench::FileAnswer local;
    local.path = inProjects("b楼.gcfx");
    local.place = 1;
    const workbench::FileAnswer cancel;
    workbench::FileAnswer cloud;
    cloud.path = host.path(utf("Downloads/企业云盘/a.GCFX"));
    cloud.place = 4;
    cloud.cloudPath = utf("企业云盘/a.GCFX");
    host.switches().fileAnswers = {local, cancel, cloud};

    EXPECT_EQ(open(projects), local.path);
    EXPECT_EQ(zFileDialog::iClickedBtn, 1);
    EXPECT_EQ(zFileDialog::getCurrentPath(), projects);
    EXPECT_EQ(zFileDialog::GetFilePath(), QString());
    EXPECT_EQ(open(projects), QString());
    EXPECT_EQ(zFileDialog::iClickedBtn, 1);
    EXPECT_EQ(open(projects), cloud.path);
    EXPECT_EQ(zFileDialog::iClickedBtn, 4);
    EXPECT_EQ(zFileDialog::GetFilePath(), cloud.cloudPath);
    EXPECT_EQ(zFileDialog::getCurrentPath(), projects);
    EXPECT_EQ(open(projects), QString());
    EXPECT_EQ(zFileDialog::GetFilePath(), cloud.cloudPath);
}

TEST_F(FileDialog, TheCallIsJournalledOnceWithItsArgumentsAndItsAnswer) {
    host.switches().fileDialogPrepared = true;
    workbench::FileAnswer local;
    local.path = QStringLiteral("/x/a.GCFX");
    host.switches().fileAnswers = {local};
    QStringList filter{utf("工程文件"), QStringLiteral("GCFX")};
    QWidget parent;
    zFileDialog::getOpenFileName(&parent, QStringLiteral("/x"), &filter, 2, utf("标题"), true,
                                 QString(), true, OpenFile);
    const auto calls = entriesOf("zFileDialog::getOpenFileName");
    ASSERT_EQ(calls.size(), 1);
    const QJsonArray expected{QStringLiteral("QWidget"),
                              QStringLiteral("/x"),
                              QJsonArray{utf("工程文件"), QStringLiteral("GCFX")},
                              2,
                              utf("标题"),
                              true,
                              QString(),
                              true,
                              1};
    EXPECT_EQ(calls.first().value(QStringLiteral("args")).toArray(), expected);
    EXPECT_EQ(answered("zFileDialog::getOpenFileName"), QStringLiteral("/x/a.GCFX"));
}

TEST_F(FileDialog, AMissingFilterListAndAnAskedExceptionAreBorne) {
    host.switches().fileDialogPrepared = true;
    EXPECT_EQ(zFileDialog::getOpenFileName(nullptr, QString(), nullptr, 0, QString(), true,
                                           QString(), true, OpenFolder),
              QString());
    throwAt("zFileDialog::getOpenFileName", workbench::ThrowRule::As::StdException);
    EXPECT_THROW(open(projects), std::exception);
}

TEST_F(FileDialog, ResettingForgetsEverything) {
    zFileDialog::pathFgf = QStringLiteral("|");
    zFileDialog::iClickedBtn = 3;
    zFileDialog::userName = zFileDialog::userId = zFileDialog::yunpanFile = QStringLiteral("x");
    zFileDialog::SetFilePath(QStringLiteral("p"));
    zFileDialog::SetFilePid(QStringLiteral("q"));
    zFileDialog::SetQyid(QStringLiteral("r"));
    zFileDialog::TbServerMsg(QStringLiteral("s"));
    EXPECT_EQ(zFileDialog::GetFilePath(), QStringLiteral("p"));
    EXPECT_EQ(journalNames({"call"}),
              (Lines{"zFileDialog::SetFilePath", "zFileDialog::SetFilePid", "zFileDialog::SetQyid",
                     "zFileDialog::TbServerMsg", "zFileDialog::GetFilePath"}));
    workbench::Host::instance().reset();
    EXPECT_EQ(zFileDialog::pathFgf, QStringLiteral("/"));
    EXPECT_EQ(zFileDialog::iClickedBtn, 0);
    EXPECT_TRUE((zFileDialog::userName + zFileDialog::userId + zFileDialog::yunpanFile).isEmpty());
    EXPECT_TRUE(zFileDialog::GetFilePath().isEmpty());
}

// The window.

TEST_F(FileDialog, ADoubleClickChoosesALocalFile) {
    const auto driver = whenOpen([](Hand& hand) {
        EXPECT_EQ(hand.place(), QStringLiteral("place1"));
        EXPECT_EQ(hand.names(), (Lines{"旧", "A桥.GCFG", "b楼.gcfx", "notes.txt"}));
        hand.doubleClickRow("b楼.gcfx");
    });
    EXPECT_EQ(open(projects), inProjects("b楼.gcfx"));
    EXPECT_EQ(zFileDialog::iClickedBtn, 1);
    EXPECT_EQ(zFileDialog::GetFilePath(), QString());
    EXPECT_EQ(zFileDialog::getCurrentPath(), projects);
    EXPECT_EQ(journalLines({"dialog", "zFileDialog::getOpenFileName"}).size(), 3u);
    EXPECT_EQ(journalNames().at(0), "workbench::OpenDialog");
    EXPECT_EQ(journalNames().at(2), "zFileDialog::getOpenFileName");
}

TEST_F(FileDialog, TheKeyboardGoesIntoAFolderBackAndChooses) {
    const auto driver = whenOpen([this](Hand& hand) {
        hand.key("fileList", Qt::Key_Down);
        hand.key("fileList", Qt::Key_Return);
        EXPECT_EQ(hand.read("pathField"), QDir::toNativeSeparators(inProjects("旧")));
        hand.key("fileList", Qt::Key_Down);
        hand.key("fileList", Qt::Key_Return);
        EXPECT_EQ(hand.names(), Lines{"c.GCFX"});
        hand.key("fileList", Qt::Key_Backspace);
        EXPECT_EQ(hand.names(), Lines{"深"});
        hand.key("fileList", Qt::Key_Return);
        hand.key("fileList", Qt::Key_Down);
        EXPECT_EQ(hand.read("nameField"), QStringLiteral("c.GCFX"));
        hand.key("nameField", Qt::Key_Return);
    });
    EXPECT_EQ(open(projects), inProjects("旧/深/c.GCFX"));
    EXPECT_EQ(zFileDialog::getCurrentPath(), inProjects("旧/深"));
}

TEST_F(FileDialog, CancellingAnswersNothingAndForgetsNothing) {
    const std::function<void(Hand&)> ways[] = {
        [](Hand& hand) { hand.press("cancelButton"); },
        [](Hand& hand) { hand.key("fileList", Qt::Key_Escape); },
        [](Hand& hand) { hand.dialog->close(); },
    };
    zFileDialog::iClickedBtn = 2;
    for (const auto& way : ways) {
        const auto driver = whenOpen([&way](Hand& hand) {
            hand.clickRow("b楼.gcfx");
            way(hand);
        });
        EXPECT_EQ(open(projects), QString());
        EXPECT_EQ(zFileDialog::iClickedBtn, 2);
        EXPECT_EQ(zFileDialog::getCurrentPath(), QString());
    }
}

TEST_F(FileDialog, FoldersAreChosenInFolderMode) {
    struct Case {
        const char* title;
        std::function<void(Hand&)> use;
        QString expected;
    };
    const Case cases[] = {{"the one shown", [](Hand& hand) { hand.press("openButton"); }, projects},
                          {"the one selected",
                           [](Hand& hand) {
                               EXPECT_EQ(hand.names(), Lines{"旧"});
                               hand.clickRow("旧");
                               hand.press("openButton");
                           },
                           inProjects("旧")},
                          {"the one gone into",
                           [](Hand& hand) {
                               hand.doubleClickRow("旧");
                               hand.press("openButton");
                           },
                           inProjects("旧")},
                          {"the one typed",
                           [](Hand& hand) {
                               hand.write("nameField", QStringLiteral("notes.txt"));
                               hand.press("openButton");
                               EXPECT_FALSE(hand.message().isEmpty());
                               hand.write("nameField", utf("旧/深"));
                               hand.key("nameField", Qt::Key_Return);
                           },
                           inProjects("旧/深")}};
    for (const Case& each : cases) {
        const auto driver = whenOpen(each.use);
        EXPECT_EQ(open(projects, 0, OpenFolder), each.expected) << each.title;
    }
}

TEST_F(FileDialog, TheFilterHidesOtherFilesUntilAllAreAskedFor) {
    const auto driver = whenOpen([](Hand& hand) {
        EXPECT_EQ(hand.names(), (Lines{"旧", "b楼.gcfx"}));
        auto* box = child<QComboBox>(hand.dialog, "filterBox");
        EXPECT_EQ(box->currentText(), utf("工程文件 (*.GCFX)"));
        QTest::keyClick(box, Qt::Key_Down);
        EXPECT_EQ(hand.names().size(), 4u);
        hand.press("cancelButton");
    });
    open(projects, 2, OpenFile, {utf("工程文件"), QStringLiteral("GCFX")});
}

TEST_F(FileDialog, NamesAndPathsCanBeTyped) {
    const auto driver = whenOpen([this](Hand& hand) {
        hand.press("openButton");
        EXPECT_EQ(hand.message(), utf("请选择文件"));
        hand.write("nameField", QStringLiteral("gone.GCFX"));
        hand.press("openButton");
        EXPECT_EQ(hand.message(), utf("找不到“gone.GCFX”"));
        hand.write("pathField", QStringLiteral("/no/such/folder"));
        hand.key("pathField", Qt::Key_Return);
        EXPECT_FALSE(hand.message().isEmpty());
        EXPECT_EQ(hand.names().size(), 4u);
        hand.write("pathField", inProjects("旧/深"));
        hand.key("pathField", Qt::Key_Return);
        EXPECT_EQ(hand.names(), Lines{"c.GCFX"});
        hand.write("nameField", inProjects("notes.txt"));
        hand.key("nameField", Qt::Key_Return);
    });
    EXPECT_EQ(open(projects), inProjects("notes.txt"));
}

TEST_F(FileDialog, AStartFolderThatIsGoneLeadsToItsNearestAncestor) {
    const auto driver = whenOpen([this](Hand& hand) {
        EXPECT_EQ(hand.read("pathField"), QDir::toNativeSeparators(inProjects("旧")));
        hand.press("cancelButton");
    });
    open(inProjects("旧/gone/gone"));
}

TEST_F(FileDialog, PlacesFollowTheFolderShownAndTheModeAllowsTheClouds) {
    {
        const auto driver = whenOpen([](Hand& hand) {
            EXPECT_FALSE(hand.dialog->findChild<QPushButton*>(QStringLiteral("place3")));
            hand.press("upButton");
            EXPECT_EQ(hand.place(), QStringLiteral("place2"));
            hand.press("place1");
            EXPECT_EQ(hand.place(), QStringLiteral("place1"));
            hand.press("place2");
            EXPECT_EQ(hand.read("pathField"), QDir::toNativeSeparators(QDir::homePath()));
            hand.press("cancelButton");
        });
        open(projects, 0);
    }
    const auto driver = whenOpen([](Hand& hand) {
        EXPECT_TRUE(hand.dialog->findChild<QPushButton*>(QStringLiteral("place4")));
        hand.press("cancelButton");
    });
    open(projects, 1);
}

TEST_F(FileDialog, EveryWidgetToUseHasANameAndAnAccessibleName) {
    const auto driver = whenOpen([](Hand& hand) {
        for (const char* name :
             {"place1", "place2", "place3", "place4", "upButton", "pathField", "fileList",
              "nameField", "filterBox", "openButton", "cancelButton"}) {
            EXPECT_FALSE(child<QWidget>(hand.dialog, name)->accessibleName().isEmpty()) << name;
        }
        hand.press("cancelButton");
    });
    open(projects);
}

TEST_F(FileDialog, ItsParentMayDieWhileItIsOpen) {
    auto* parent = new QWidget;
    const auto driver = whenModal<OpenDialog>([parent](OpenDialog*) { delete parent; });
    EXPECT_EQ(zFileDialog::getOpenFileName(parent, projects, nullptr, 2, QString(), true, QString(),
                                           true, OpenFile),
              QString());
}

TEST_F(FileDialog, AnEmptyListSaysWhetherTheFolderOrTheFilterIsTheReason) {
    ASSERT_TRUE(QDir().mkpath(inProjects("空")));
    const auto driver = whenOpen([](Hand& hand) {
        const auto says = [&hand] {
            auto* state = child<QLabel>(hand.list(), "emptyState");
            return state->isVisible() ? state->accessibleName() : QString();
        };
        EXPECT_EQ(says(), QString());
        hand.doubleClickRow("空");
        EXPECT_EQ(says(), utf("此文件夹是空的"));
        hand.press("upButton");
        EXPECT_EQ(says(), QString());
        hand.doubleClickRow("旧");
        hand.doubleClickRow("深");
        EXPECT_TRUE(says().startsWith(utf("没有此类型的文件\n此处有 1 个")))
            << says().toStdString();
        hand.press("cancelButton");
    });
    open(projects, 2, OpenFile, {utf("GCFG")});
}

TEST_F(FileDialog, ANulInATypedNameOrPathIsNamed) {
    const auto driver = whenOpen([](Hand& hand) {
        const QString name = QStringLiteral("a") + QChar(0) + QStringLiteral("b");
        for (const char* field : {"nameField", "pathField"}) {
            child<QLineEdit>(hand.dialog, field)->setText(name);
            ASSERT_TRUE(hand.read(field).contains(QChar(0))) << field;
            child<QWidget>(hand.dialog, field)->setFocus();
            hand.key(field, Qt::Key_Return);
            EXPECT_TRUE(hand.message().contains(utf("NUL"))) << field;
        }
        hand.press("cancelButton");
    });
    open(projects);
}

TEST_F(FileDialog, TheMenuOfTheListOpensGoesUpAndCopies) {
    const auto driver = whenOpen([this](Hand& hand) {
        hand.clickRow("旧");
        child<QAction>(hand.dialog, "copyEntryPath")->trigger();
        EXPECT_EQ(QGuiApplication::clipboard()->text(), QDir::toNativeSeparators(inProjects("旧")));
        child<QAction>(hand.dialog, "openEntry")->trigger();
        EXPECT_EQ(hand.names(), Lines{"深"});
        child<QAction>(hand.dialog, "goUp")->trigger();
        EXPECT_EQ(hand.read("pathField"), QDir::toNativeSeparators(projects));
        hand.press("cancelButton");
    });
    open(projects);
}
