#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QFileInfo>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QToolTip>
#include <QTreeView>
#include <functional>

#include "tests/workbench/MainWindowFixture.h"

namespace testing_support {

namespace {

using workbench::FirstPage;
using workbench::Host;
using workbench::Login;
using workbench::ProjectFile;

TEST_F(MainWindowTest, ProjectFilesAreListedAndCountedAndOtherFilesOnlyListed) {
    EXPECT_EQ(rows(), (Lines{"产业园.GCFZ|总承包工程|2025-03-04 05:06",
                             "教学楼.GCFX|预算工程|2025-03-04 05:06", "记事.txt|不是工程文件|"}));
    EXPECT_EQ(text("projectCount"), QStringLiteral("工程文件：2 个"));
}

TEST_F(MainWindowTest, TheKeysOfANewWindowGoToTheListOfProjects) {
    EXPECT_EQ(window->focusWidget(), list);
    QTest::keyClick(window->focusWidget(), Qt::Key_End);
    EXPECT_EQ(list->currentItem(), list->topLevelItem(list->topLevelItemCount() - 1));
}

TEST_F(MainWindowTest, TheChosenFileShowsWhatItHolds) {
    const struct {
        const char* file;
        const char* title;
        const char* kind;
        const char* summary;
        const char* inRequest;
    } files[] = {{"教学楼.GCFX", "教学楼", "预算工程", "按“某模式”新建预算", "某模式"},
                 {"产业园.GCFZ", "产业园", "总承包工程", "按“总包模式”新建总承包", "总包模式"},
                 {"记事.txt", "记事", "不是工程文件", "", ""}};
    for (const auto& each : files) {
        clickRow(each.file);
        EXPECT_EQ(text("detailTitle").toStdString(), each.title);
        EXPECT_TRUE(text("detailKind").startsWith(QString::fromUtf8(each.kind)));
        EXPECT_EQ(text("detailSummary").toStdString(), each.summary);
        const QString request = part<QPlainTextEdit>("detailRequest")->toPlainText();
        EXPECT_TRUE(request.contains(QString::fromUtf8(each.inRequest)));
        EXPECT_EQ(request.isEmpty(), !*each.inRequest);
    }
}

TEST_F(MainWindowTest, AProjectCreatedFromACardStandsInTheListAndInTheJournal) {
    createFromFirstCard();
    ASSERT_EQ(host.values().history.size(), 1);
    const QString path = host.values().history.first().mid(4);  // behind "bd##"
    const auto project = ProjectFile::read(path);
    ASSERT_TRUE(project);
    EXPECT_EQ(project->summary(), QStringLiteral("按计价模式“一般甲”新建，单独计费"));

    const QString file = QFileInfo(path).fileName();
    ASSERT_TRUE(list->currentItem());
    EXPECT_EQ(list->currentItem()->text(0), file);
    EXPECT_EQ(list->currentItem()->text(1), QStringLiteral("预算工程"));
    EXPECT_EQ(text("detailSummary"), project->summary());
    EXPECT_EQ(text("projectCount"), QStringLiteral("工程文件：3 个"));
    EXPECT_TRUE(text("createdMessage").endsWith(file));

    auto* kinds = part<QComboBox>("journalKind");
    kinds->setCurrentIndex(kinds->findText(QStringLiteral("工程")));
    QAbstractItemModel* journal = part<QTreeView>("journalView")->model();
    ASSERT_TRUE(QTest::qWaitFor([&] { return journal->rowCount() == 1; }));
    EXPECT_EQ(journal->index(0, journal->columnCount() - 1).data().toString(), path);
}

TEST_F(MainWindowTest, TheMessageOfALongFileNameIsCutAndToldWholeAndGoes) {
    const QString name = QStringLiteral("青羊区社区卫生服务中心").repeated(3);
    host.setModels(QStringLiteral("Kvys"), 0, {model(name)});
    window->resize(window->minimumSizeHint());
    createFromFirstCard();
    const QSize before = window->size();
    settle();
    EXPECT_EQ(window->size(), before);
    auto* message = part<QLabel>("createdMessage");
    EXPECT_TRUE(message->text().contains(name));
    EXPECT_LE(message->geometry().right(), window->statusBar()->width());
    QHelpEvent asks(QEvent::ToolTip, {5, 5}, message->mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(message, &asks);
    EXPECT_EQ(QToolTip::text(), message->text());
    QToolTip::hideText();
    message->findChild<QTimer*>()->start(0);
    EXPECT_TRUE(QTest::qWaitFor([message] { return message->text().isEmpty(); }));
}

TEST_F(MainWindowTest, ListAndCountFollowTheProjectFolder) {
    ASSERT_TRUE(QFile::remove(contracting));
    EXPECT_TRUE(comesToCount(1)) << "a file was deleted";
    EXPECT_EQ(rows(), (Lines{"教学楼.GCFX|预算工程|2025-03-04 05:06", "记事.txt|不是工程文件|"}));
    addProject("新楼.GCFX", 4, "某模式");
    EXPECT_TRUE(comesToCount(2)) << "a file was added";
    for (const QString& path : {budget, host.path(QStringLiteral("ProjectFiles/新楼.GCFX")),
                                host.path(QStringLiteral("ProjectFiles/记事.txt"))})
        ASSERT_TRUE(QFile::remove(path));
    EXPECT_TRUE(comesToCount(0));
    EXPECT_TRUE(QTest::qWaitFor([&] { return rows().empty(); }));
    EXPECT_EQ(text("detailTitle"), QStringLiteral("还没有工程"));
}

TEST_F(MainWindowTest, F5ReadsTheProjectFolderAgain) {
    ASSERT_TRUE(QFile::remove(budget));
    EXPECT_EQ(list->topLevelItemCount(), 3) << "nobody has told the window yet";
    key(window.get(), Qt::Key_F5);
    EXPECT_EQ(list->topLevelItemCount(), 2);
    EXPECT_EQ(text("projectCount"), QStringLiteral("工程文件：1 个"));
}

TEST_F(MainWindowTest, EveryChoiceOfThePanelChangesTheHost) {
    const struct {
        const char* name;
        std::function<bool()> before;
        std::function<bool()> after;  ///< One entry further down.
    } choices[] = {{"firstPage", [this] { return host.switches().firstPage == FirstPage::Ready; },
                    [this] { return host.switches().firstPage == FirstPage::Busy; }},
                   {"firstPage", [this] { return host.switches().firstPage == FirstPage::Busy; },
                    [this] { return host.switches().firstPage == FirstPage::Absent; }},
                   {"prodAreaYN", [this] { return !host.switches().prodAreaYN; },
                    [this] { return host.switches().prodAreaYN; }},
                   {"openVersion", [this] { return host.switches().openVersion == 1.3; },
                    [this] { return host.switches().openVersion == 1.2; }},
                   {"account.login", [this] { return host.switches().account.login == Login::Ask; },
                    [this] { return host.switches().account.login == Login::Accepted; }},
                   {"skin", [] { return Host::instance().skin() == QLatin1String("light"); },
                    [] { return Host::instance().skin() == QLatin1String("dark"); }},
                   {"scale", [] { return Host::instance().scale() == 1; },
                    [] { return Host::instance().scale() == 1.25; }}};
    for (const auto& choice : choices) {
        EXPECT_TRUE(choice.before()) << choice.name;
        key(part<QComboBox>(choice.name), Qt::Key_Down);
        EXPECT_TRUE(choice.after()) << choice.name;
    }
}

TEST_F(MainWindowTest, EveryTickOfThePanelChangesTheHost) {
    const struct {
        const char* name;
        bool before;
        std::function<bool()> isOn;
    } ticks[] = {
        {"configuration", true, [this] { return host.switches().configurationPresent; }},
        {"account.loggedIn", false, [this] { return host.switches().account.loggedIn; }},
        {"cloud.slow", false, [this] { return host.switches().cloud.slow; }},
        {"cloud.refused", false, [this] { return host.switches().cloud.refused; }},
        {"cloud.broken", false, [this] { return host.switches().cloud.broken; }},
        {"cloud.foldersRefused", false, [this] { return host.switches().cloud.foldersRefused; }},
        {"pluginManager", true, [this] { return host.switches().pluginManagerPresent; }},
        {"plugins.4", false, [this] { return host.switches().plugins.value(4); }},
        {"plugins.8", false, [this] { return host.switches().plugins.value(8); }},
        {"plugins.16", false, [this] { return host.switches().plugins.value(16); }}};
    for (const auto& tick : ticks) {
        auto* box = part<QCheckBox>(tick.name);
        for (const bool before : {tick.before, !tick.before}) {
            EXPECT_EQ(tick.isOn(), before) << tick.name;
            EXPECT_EQ(box->isChecked(), before) << tick.name;
            key(box, Qt::Key_Space);
            EXPECT_EQ(tick.isOn(), !before) << tick.name;
        }
    }
}

TEST_F(MainWindowTest, TheMenuHasEverySkinAndMarksTheCurrentOne) {
    for (const char* word : {"contrast", "dark", "light"}) {
        part<QAction>((std::string("skin.") + word).c_str())->trigger();
        EXPECT_EQ(Host::instance().skin(), QLatin1String(word));
        for (const char* each : {"contrast", "dark", "light"})
            EXPECT_EQ(part<QAction>((std::string("skin.") + each).c_str())->isChecked(),
                      each == std::string(word));
    }
}

TEST_F(MainWindowTest, TheAccountOfThePanelIsTheHosts) {
    auto* user = part<QLineEdit>("account.userId");
    EXPECT_EQ(user->text(), host.switches().account.userId);
    user->selectAll();
    QTest::keyClicks(user, QStringLiteral("u27"));
    EXPECT_EQ(host.switches().account.userId, QStringLiteral("u27"));
}

TEST_F(MainWindowTest, ThePanelShowsWhatElseChangesTheHost) {
    auto* skin = part<QComboBox>("skin");
    part<QAction>("skinAction")->trigger();
    EXPECT_EQ(Host::instance().skin(), QStringLiteral("dark"));
    EXPECT_EQ(skin->currentText(), QStringLiteral("深色"));
    part<QAction>("skinAction")->trigger();
    EXPECT_EQ(Host::instance().skin(), QStringLiteral("contrast"));
    EXPECT_EQ(skin->currentText(), QStringLiteral("高对比度"));
    part<QAction>("skinAction")->trigger();
    EXPECT_EQ(skin->currentText(), QStringLiteral("浅色"));
    Host::instance().setScale(2);
    EXPECT_EQ(part<QComboBox>("scale")->currentText(), QStringLiteral("200 %"));
}

}  // namespace

}  // namespace testing_support
