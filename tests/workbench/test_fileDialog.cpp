// The host's file dialog: prepared answers, and the real window driven by mouse and keyboard.
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QHeaderView>
#include <QJsonArray>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

#include "fileDialog.h"
#include "osgi.h"
#include "tests/support/TestSupport.h"
#include "workbench/hostlibs/fileDialog/FileDialogState.h"
#include "workbench/hostlibs/fileDialog/FileFilter.h"
#include "workbench/hostlibs/fileDialog/FileListModel.h"
#include "workbench/hostlibs/fileDialog/LoginWindow.h"
#include "workbench/hostlibs/fileDialog/OpenDialog.h"

using namespace testing_support;
using workbench::FileListModel;
using workbench::LoginWindow;
using workbench::OpenDialog;

namespace {

QString utf(const char* text) {
    return QString::fromUtf8(text);
}

QString open(const QString& folder, int mode = 2, OpenFileType type = OpenFile,
             QStringList filter = {}) {
    return zFileDialog::getOpenFileName(nullptr, folder, &filter, mode, QString(), true, QString(),
                                        true, type);
}

/// What a person does with the window.
class Hand {
  public:
    explicit Hand(OpenDialog* dialog) : dialog(dialog) {}

    QTreeView* list() const { return child<QTreeView>(dialog, "fileList"); }
    void press(const char* name) { click(child<QPushButton>(dialog, name)); }
    void write(const char* field, const QString& text) {
        auto* edit = child<QLineEdit>(dialog, field);
        edit->setFocus();
        edit->selectAll();
        edit->insert(text);  // as an input method does: keys have no Chinese
    }
    QString read(const char* field) const { return child<QLineEdit>(dialog, field)->text(); }
    void key(const char* widget, Qt::Key key) {
        QTest::keyClick(child<QWidget>(dialog, widget), key);
    }
    QString message() const { return child<QLabel>(dialog, "messageLabel")->text(); }
    QString place() const {
        for (QPushButton* button : dialog->findChildren<QPushButton*>())
            if (button->isCheckable() && button->isChecked()) return button->objectName();
        return {};
    }

    Lines names() const {
        Lines lines;
        for (int row = 0; row < list()->model()->rowCount(); ++row)
            lines.push_back(list()->model()->index(row, 0).data().toString().toStdString());
        return lines;
    }
    QPoint at(const QString& name) const {
        const auto* model = static_cast<FileListModel*>(list()->model());
        const int row = model->rowOf(name);
        EXPECT_GE(row, 0) << "not shown: " << name.toStdString();
        const QModelIndex index = model->index(row, 0);
        list()->scrollTo(index);
        return list()->visualRect(index).center();
    }
    void clickRow(const char* name) {
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, at(utf(name)));
    }
    void doubleClickRow(const char* name) {
        const QPoint where = at(utf(name));
        QTest::mouseClick(list()->viewport(), Qt::LeftButton, {}, where);
        QTest::mouseDClick(list()->viewport(), Qt::LeftButton, {}, where);
    }

    OpenDialog* dialog;
};

/// Lets a hand use the window that comes up in this scope.
[[nodiscard]] ModalDriver whenOpen(std::function<void(Hand&)> use) {
    return whenModal<OpenDialog>([use](OpenDialog* dialog) {
        Hand hand(dialog);
        use(hand);
    });
}

class FileDialog : public testing::Test {
  protected:
    FileDialog() {
        host.write(QStringLiteral("ProjectFiles/b楼.gcfx"));
        host.write(QStringLiteral("ProjectFiles/A桥.GCFG"));
        host.write(QStringLiteral("ProjectFiles/notes.txt"));
        host.write(QStringLiteral("ProjectFiles/旧/深/c.GCFX"));
        projects = host.path(QStringLiteral("ProjectFiles"));
        host.values().basicSettings.projectFolder = projects;
    }
    QString inProjects(const char* name) { return projects + QLatin1Char('/') + utf(name); }

    TemporaryInstallation host;
    QString projects;
};

}  // namespace

// Prepared answers.

TEST_F(FileDialog, PreparedAnswersAreUsedInTurnAndThenItIsCancelled) {
    host.switches().fileDialogPrepared = true;
    workbench::FileAnswer local;
    local.path = inProjects("b楼.gcfx");
    local.place = 1;
    workbench::FileAnswer cancel;
    cancel.cancel = true;
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

// Filters.

TEST(FileFilter, ReadsDescriptionAndSuffixes) {
    struct Case {
        QStringList entries;
        const char* text;
        const char* accepted;
        const char* refused;
    };
    const auto s = [](const char* text) { return QString::fromUtf8(text); };
    const Case cases[] = {
        {{}, "所有文件 (*.*)", "a.x", nullptr},
        {{s("GCFX")}, "支持的文件 (*.GCFX)", "a.gcfx", "a.GCF"},
        {{s("Excel文件"), s("xls"), s("xlsx")}, "Excel文件 (*.xls; *.xlsx)", "a.b.XLSX", "xls"},
        {{s("*.xls"), s(".XLS")}, "支持的文件 (*.xls)", "A.xls", "a.xlsx"},
        {{s("全部"), s("*.*")}, "全部 (*.*)", "no suffix", nullptr},
        {{s("工程文件")}, "工程文件 (*.*)", "a", nullptr},
    };
    for (const Case& each : cases) {
        const auto filter = workbench::FileFilter::fromList(each.entries);
        EXPECT_EQ(filter.text(), s(each.text));
        EXPECT_TRUE(filter.accepts(s(each.accepted))) << each.text;
        if (each.refused) {
            EXPECT_FALSE(filter.accepts(s(each.refused))) << each.text;
        }
    }
}

// The list.

TEST(FileList, ShowsFoldersFirstAndComparesNamesWithoutCaseAndByNumber) {
    FileListModel model;
    model.setEntries({{QStringLiteral("b10.x"), false, 1, {}},
                      {QStringLiteral("B2.x"), false, 3, {}},
                      {QStringLiteral("a.y"), false, 2, {}},
                      {QStringLiteral("z"), true, 0, {}},
                      {QStringLiteral("Y"), true, 0, {}}});
    const auto names = [&model] {
        Lines lines;
        for (int row = 0; row < model.rowCount(); ++row)
            lines.push_back(model.entry(row).name.toStdString());
        return lines;
    };
    EXPECT_EQ(names(), (Lines{"Y", "z", "a.y", "B2.x", "b10.x"}));
    model.sort(FileListModel::NameColumn, Qt::DescendingOrder);
    EXPECT_EQ(names(), (Lines{"z", "Y", "b10.x", "B2.x", "a.y"}));
    model.sort(FileListModel::SizeColumn, Qt::AscendingOrder);
    EXPECT_EQ(names(), (Lines{"Y", "z", "b10.x", "a.y", "B2.x"}));
    model.sort(FileListModel::TypeColumn, Qt::AscendingOrder);
    EXPECT_EQ(names(), (Lines{"Y", "z", "B2.x", "b10.x", "a.y"}));
    model.setFilter(workbench::FileFilter::fromList({QStringLiteral("Y")}), false);
    EXPECT_EQ(names(), (Lines{"Y", "z", "a.y"}));
}

TEST(FileList, FiveThousandEntriesAreThereAtOnce) {
    QVector<workbench::FileEntry> entries;
    for (int i = 0; i < 5000; ++i)
        entries.append({QStringLiteral("工程文件%1.GCFX").arg(i * 7919 % 5000), false, i, {}});
    QElapsedTimer clock;
    clock.start();
    FileListModel model;
    model.setEntries(entries);
    EXPECT_LT(clock.elapsed(), 1500);
    EXPECT_EQ(model.entry(10).name, utf("工程文件10.GCFX"));
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

// Cloud disks.

namespace {

class CloudFileDialog : public FileDialog {
  protected:
    CloudFileDialog() {
        host.write(utf("CloudDisks/个人云盘/住宅/楼.GCFX"), "cloud");
        host.write(utf("CloudDisks/企业云盘/造价部/桥.GCFX"), "bridge");
    }
};

}  // namespace

TEST_F(CloudFileDialog, AFileOfThePersonalDiskIsDownloadedAfterTheLogIn) {
    const auto driver = whenOpen([](Hand& hand) {
        {
            const auto login = whenModal<LoginWindow>([](LoginWindow* window) {
                auto* user = child<QLineEdit>(window, "userField");
                user->clear();
                QTest::keyClicks(user, QStringLiteral("zhang"));
                click(child<QPushButton>(window, "loginButton"));
                EXPECT_FALSE(child<QLabel>(window, "errorLabel")->text().isEmpty());
                auto* password = child<QLineEdit>(window, "passwordField");
                QTest::keyClicks(password, QStringLiteral("secret"));
                QTest::keyClick(password, Qt::Key_Return);
            });
            hand.press("place3");
        }
        EXPECT_EQ(hand.place(), QStringLiteral("place3"));
        EXPECT_EQ(hand.read("pathField"), utf("个人云盘"));
        hand.doubleClickRow("住宅");
        hand.clickRow("楼.GCFX");
        hand.press("openButton");
    });
    const QString path = open(projects);
    EXPECT_EQ(path, host.path(utf("Downloads/个人云盘/住宅/楼.GCFX")));
    EXPECT_TRUE(QFile::exists(path));
    EXPECT_EQ(zFileDialog::iClickedBtn, 3);
    EXPECT_EQ(zFileDialog::GetFilePath(), utf("个人云盘/住宅/楼.GCFX"));
    EXPECT_EQ(zFileDialog::getCurrentPath(), QString());
    EXPECT_TRUE(host.switches().account.loggedIn);
    EXPECT_EQ(zFileDialog::userId, QStringLiteral("zhang"));
}

TEST_F(CloudFileDialog, TheEnterpriseDiskIsReachedByATypedPathWithTheHostsSeparator) {
    host.switches().account.loggedIn = true;
    zFileDialog::pathFgf = QStringLiteral("|");
    const auto driver = whenOpen([](Hand& hand) {
        hand.write("pathField", utf("企业云盘|没有"));
        hand.key("pathField", Qt::Key_Return);
        EXPECT_FALSE(hand.message().isEmpty());
        EXPECT_EQ(hand.place(), QStringLiteral("place1"));
        hand.write("pathField", utf("企业云盘|造价部"));
        hand.key("pathField", Qt::Key_Return);
        EXPECT_EQ(hand.place(), QStringLiteral("place4"));
        hand.press("upButton");
        EXPECT_EQ(hand.names(), Lines{"造价部"});
        hand.key("fileList", Qt::Key_Return);
        hand.doubleClickRow("桥.GCFX");
    });
    EXPECT_EQ(open(projects), host.path(utf("Downloads/企业云盘/造价部/桥.GCFX")));
    EXPECT_EQ(zFileDialog::iClickedBtn, 4);
    EXPECT_EQ(zFileDialog::GetFilePath(), utf("企业云盘|造价部|桥.GCFX"));
}

TEST_F(CloudFileDialog, WithoutALogInThePlaceStays) {
    host.switches().account.login = workbench::Login::Cancelled;
    const auto driver = whenOpen([](Hand& hand) {
        hand.press("place4");
        EXPECT_EQ(hand.place(), QStringLiteral("place1"));
        EXPECT_EQ(hand.names().size(), 4u);
        hand.press("cancelButton");
    });
    EXPECT_EQ(open(projects), QString());
}

TEST_F(CloudFileDialog, ARefusalIsShownAndTheDialogGoesOn) {
    host.switches().account.loggedIn = true;
    host.switches().cloud.refused = true;
    const auto driver = whenOpen([this](Hand& hand) {
        hand.press("place3");
        EXPECT_FALSE(hand.message().isEmpty());
        EXPECT_EQ(hand.place(), QStringLiteral("place1"));
        host.switches().cloud.refused = false;
        hand.press("place3");
        hand.doubleClickRow("住宅");
        host.switches().cloud.refused = true;
        hand.doubleClickRow("楼.GCFX");
        EXPECT_TRUE(hand.dialog->isVisible());
        EXPECT_FALSE(hand.message().isEmpty());
        hand.press("cancelButton");
    });
    EXPECT_EQ(open(projects), QString());
}

TEST_F(CloudFileDialog, BrokenAnswersShowWhatCanBeReadAndChooseNothing) {
    host.switches().account.loggedIn = true;
    for (const char* name : {"1.GCFX", "2.GCFX", "3.GCFX", "4.GCFX", "5.GCFX", "6.GCFX"})
        host.write(utf("CloudDisks/企业云盘/") + utf(name));
    const auto driver = whenOpen([this](Hand& hand) {
        host.switches().cloud.broken = true;
        hand.press("place3");
        hand.press("place4");
        EXPECT_EQ(hand.place(), QStringLiteral("place4"));
        EXPECT_FALSE(hand.names().empty());
        for (const std::string& name : hand.names()) {
            hand.write("nameField", QString::fromStdString(name));
            hand.press("openButton");
            EXPECT_FALSE(hand.message().isEmpty());
        }
        hand.press("cancelButton");
    });
    EXPECT_EQ(open(projects), QString());
}

TEST_F(CloudFileDialog, WaitingForASlowDiskCanBeGivenUp) {
    host.switches().account.loggedIn = true;
    host.switches().cloud.slow = true;
    QElapsedTimer clock;
    clock.start();
    const auto driver = whenOpen([](Hand& hand) {
        QTimer::singleShot(0, hand.dialog, [&hand] {
            EXPECT_EQ(hand.message(), utf("正在连接云盘…"));
            EXPECT_FALSE(hand.list()->isEnabled());
            hand.press("cancelButton");
        });
        hand.press("place4");
        EXPECT_TRUE(hand.dialog->isVisible());
        EXPECT_EQ(hand.place(), QStringLiteral("place1"));
        EXPECT_TRUE(hand.list()->isEnabled());
        QTimer::singleShot(0, hand.dialog, [&hand] { hand.dialog->close(); });
        hand.press("place3");
        EXPECT_FALSE(hand.dialog->isVisible());
    });
    EXPECT_EQ(open(projects), QString());
    EXPECT_LT(clock.elapsed(), 1900);
}

TEST_F(CloudFileDialog, ItsParentMayDieWhileItWaitsForASlowDisk) {
    host.switches().account.loggedIn = true;
    host.switches().cloud.slow = true;
    auto* parent = new QWidget;
    const auto driver = whenModal<OpenDialog>([parent](OpenDialog* dialog) {
        QTimer::singleShot(0, [parent] { delete parent; });
        auto* place = child<QPushButton>(dialog, "place4");
        QMetaObject::invokeMethod(place, "click", Qt::QueuedConnection);
    });
    EXPECT_EQ(zFileDialog::getOpenFileName(parent, projects, nullptr, 2, QString(), true, QString(),
                                           true, OpenFile),
              QString());
}

TEST_F(CloudFileDialog, TheFirstPageShowsTheSameLogInWindow) {
    auto* first = static_cast<FirstPagePlugin*>(osgi::ObjectHelper::GetService("firstPagePlugin"));
    ASSERT_TRUE(first);
    {
        const auto login = whenModal<LoginWindow>(
            [](LoginWindow* window) { click(child<QPushButton>(window, "cancelButton")); });
        first->showLogin({});
    }
    EXPECT_FALSE(host.switches().account.loggedIn);
    const auto login = whenModal<LoginWindow>([](LoginWindow* window) {
        QTest::keyClicks(child<QLineEdit>(window, "passwordField"), QStringLiteral("p"));
        click(child<QPushButton>(window, "loginButton"));
    });
    first->showLogin({});
    EXPECT_TRUE(host.switches().account.loggedIn);
    EXPECT_EQ(host.switches().account.userId, QStringLiteral("u1"));
}
