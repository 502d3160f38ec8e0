// Search over projects, context menus, empty lists, and copied lines of the journal.
#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QJsonDocument>
#include <QLineEdit>
#include <QTreeView>

#include "tests/workbench/MainWindowFixture.h"
#include "tests/workbench/OpenedUrls.h"
#include "workbench/app/PinyinSearch.h"

namespace testing_support {

namespace {

class SearchTest : public MainWindowTest {
  protected:
    Lines shown() {
        Lines lines;
        for (int row = 0; row < list->topLevelItemCount(); ++row)
            if (!list->topLevelItem(row)->isHidden())
                lines.push_back(list->topLevelItem(row)->text(0).toStdString());
        std::sort(lines.begin(), lines.end());
        return lines;
    }
    void search(const char* words) {
        auto* field = part<QLineEdit>("projectSearch");
        field->setFocus();
        field->selectAll();
        field->insert(QString::fromUtf8(words));  // as an input method does: keys have no Chinese
    }
    QString emptyText(const char* view) {
        auto* state = child<QLabel>(part<QAbstractItemView>(view), "emptyState");
        return state->isVisible() ? state->accessibleName().section(QLatin1Char('\n'), 0, 0)
                                  : QString();
    }
    /// Opens a view's context menu by the menu key's event and clicks one of its entries.
    void chooseInMenu(const char* view, const char* action) {
        auto* menuOf = part<QAbstractItemView>(view);
        const QString text = part<QAction>(action)->text();
        const auto driver = whenModal<QMenu>([text](QMenu* menu) {
            for (QAction* entry : menu->actions())
                if (entry->text() == text)
                    return QTest::mouseClick(menu, Qt::LeftButton, {},
                                             menu->actionGeometry(entry).center());
            ADD_FAILURE() << "no entry " << text.toStdString();
            menu->close();
        });
        QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5),
                                menuOf->mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(menuOf, &event);
    }
    static QString clipboard() { return QGuiApplication::clipboard()->text(); }
};

}  // namespace

TEST(PinyinSearch, FindsATextByItsCharactersItsSoundAndItsInitials) {
    workbench::PinyinSearch search;
    const struct {
        const char* words;
        const char* text;
        bool found;
    } rows[] = {{"学楼", "教学楼.GCFX", true},
                {"jxl", "教学楼.GCFX", true},
                {"JXL", "教学楼.GCFX", true},
                {"xl", "教学楼.GCFX", true},
                {"jiaoxue", "教学楼.GCFX", true},
                {"jiao lou", "教学楼.GCFX", true},
                {"lou jiao", "教学楼.GCFX", true},
                {"gcfx", "教学楼.GCFX", true},
                {"1hjxl", "1号教学楼", true},
                {"", "教学楼", true},
                {"  ", "教学楼", true},
                {"jl", "教学楼.GCFX", false},
                {"桥", "教学楼.GCFX", false},
                {"jxl q", "教学楼", false},
                {"lvdao", "绿道", false},
                {"ld", "府河绿道", true},
                {"x", "😀", false},
                {"😀", "a😀b", true}};
    for (const auto& row : rows)
        EXPECT_EQ(search.finds(QString::fromUtf8(row.words), QString::fromUtf8(row.text)),
                  row.found)
            << row.words << " in " << row.text;
}

TEST(PinyinSearch, FiveThousandNamesAreSearchedAtOnce) {
    workbench::PinyinSearch search;
    QStringList names;
    for (int i = 0; i < 5000; ++i)
        names.append(QStringLiteral("锦江区第%1中学教学综合楼.GCFX").arg(i));
    QElapsedTimer clock;
    clock.start();
    int found = 0;
    for (const QString& name : names) found += search.finds(QStringLiteral("jxzhl"), name);
    EXPECT_EQ(found, 5000);
    EXPECT_LT(clock.elapsed(), 2000);
}

TEST_F(SearchTest, TheListShowsWhatIsFoundByNameKindAndInitials) {
    EXPECT_EQ(shown().size(), 3u);
    const struct {
        const char* words;
        Lines found;
    } rows[] = {{"教学", {"教学楼.GCFX"}}, {"jxl", {"教学楼.GCFX"}}, {"总承包", {"产业园.GCFZ"}},
                {"zcb", {"产业园.GCFZ"}},  {"txt", {"记事.txt"}},    {"没有", {}}};
    for (const auto& row : rows) {
        search(row.words);
        EXPECT_EQ(shown(), row.found) << row.words;
        EXPECT_EQ(text("projectCount"),
                  QStringLiteral("工程文件：2 个，找到 %1 个").arg(row.found.size()));
    }
    EXPECT_EQ(emptyText("projectList"), QStringLiteral("没有找到工程"));
    EXPECT_EQ(text("detailTitle"), QStringLiteral("没有找到工程"));
}

TEST_F(SearchTest, KeysLeadIntoTheFieldOnToTheListAndOut) {
    key(window.get(), Qt::Key_F, Qt::ControlModifier);
    auto* field = part<QLineEdit>("projectSearch");
    ASSERT_TRUE(field->hasFocus());
    QTest::keyClicks(field, QStringLiteral("cyy"));
    EXPECT_EQ(shown(), Lines{"产业园.GCFZ"});
    EXPECT_EQ(text("detailTitle"), QStringLiteral("产业园")) << "what is found is shown";
    key(field, Qt::Key_Down);
    EXPECT_TRUE(list->hasFocus());
    key(window.get(), Qt::Key_F, Qt::ControlModifier);
    key(field, Qt::Key_Escape);
    EXPECT_EQ(field->text(), QString());
    EXPECT_EQ(shown().size(), 3u);
}

TEST_F(SearchTest, WhatIsSearchedStaysWhenTheFolderChangesAndANewProjectIsShown) {
    search("cyy");
    addProject("新楼.GCFX", 4, "某模式");

    EXPECT_TRUE(QTest::qWaitFor([this] { return list->topLevelItemCount() == 4; }));
    EXPECT_EQ(shown(), Lines{"产业园.GCFZ"});
    createFromFirstCard();
    EXPECT_EQ(shown().size(), 5u) << "the search ends where it would hide the new project";
    EXPECT_TRUE(list->currentItem() && !list->currentItem()->isHidden());
}

TEST_F(SearchTest, EveryListSaysWhyItIsEmpty) {
    EXPECT_EQ(emptyText("projectList"), QString());
    for (const char* file : {"教学楼.GCFX", "产业园.GCFZ", "记事.txt"})
        ASSERT_TRUE(
            QFile::remove(host.path(QStringLiteral("ProjectFiles/") + QString::fromUtf8(file))));
    key(window.get(), Qt::Key_F5);
    EXPECT_EQ(emptyText("projectList"), QStringLiteral("还没有工程"));
    click(part<QWidget>("journalClear"));
    EXPECT_EQ(emptyText("journalView"), QStringLiteral("还没有日志"));
    workbench::Journal::instance().call("A::a");
    EXPECT_TRUE(QTest::qWaitFor([this] { return emptyText("journalView").isEmpty(); }));
    part<QLineEdit>("journalFilter")->setText(QStringLiteral("zzz"));
    EXPECT_EQ(emptyText("journalView"), QStringLiteral("没有符合筛选条件的日志"));
    EXPECT_LE(part<QTreeView>("journalView")->viewport()->width(),
              child<QLabel>(part<QTreeView>("journalView"), "emptyState")->width());
}

TEST_F(SearchTest, LinesOfTheJournalAreCopiedWholeAndInOrder) {
    clearJournal();
    workbench::Journal& journal = workbench::Journal::instance();
    const QString longText(3000, QLatin1Char('x'));
    journal.call("A::a", {longText});
    journal.signal(QStringLiteral("SignalCreateMB"), {4, 44, QStringLiteral("楼")});
    auto* view = part<QTreeView>("journalView");
    ASSERT_TRUE(QTest::qWaitFor([view] { return view->model()->rowCount() == 2; }));
    view->setFocus();
    const auto clickRow = [view](int row, Qt::KeyboardModifiers modifiers) {
        QTest::mouseClick(view->viewport(), Qt::LeftButton, modifiers,
                          view->visualRect(view->model()->index(row, 0)).center());
    };
    clickRow(1, {});
    clickRow(0, Qt::ControlModifier);
    key(view, Qt::Key_C, Qt::ControlModifier);
    const QStringList lines = clipboard().split(QLatin1Char('\n'));
    ASSERT_EQ(lines.size(), 3);
    EXPECT_EQ(QJsonDocument::fromJson(lines[0].toUtf8()).object(), journal.entries().at(0));
    EXPECT_EQ(QJsonDocument::fromJson(lines[1].toUtf8()).object(), journal.entries().at(1));
    EXPECT_TRUE(lines[2].isEmpty());
    clickRow(1, {});
    chooseInMenu("journalView", "copyJournalTexts");
    EXPECT_EQ(clipboard(), QStringLiteral("SignalCreateMB(4, 44, \"楼\")\n"));
    chooseInMenu("journalView", "onlyThisKind");
    EXPECT_EQ(view->model()->rowCount(), 1);
    chooseInMenu("journalView", "allJournal");
    EXPECT_EQ(view->model()->rowCount(), 2);
    chooseInMenu("journalView", "clearJournal");
    EXPECT_EQ(journal.entries().size(), 0);
}

#ifdef Q_OS_UNIX  // Windows has a program of its own for it.
TEST_F(SearchTest, AProjectIsShownInItsFolder) {
    OpenedUrls opened;
    clickRow("教学楼.GCFX");
    chooseInMenu("projectList", "showProjectInFolder");
    const QUrl folder = QUrl::fromLocalFile(QFileInfo(budget).path());
    EXPECT_TRUE(QTest::qWaitFor([&] { return opened.urls == QList<QUrl>{folder}; }));
    part<QAction>("openFolderAction")->trigger();
    EXPECT_EQ(opened.urls, (QList<QUrl>{folder, folder}));
}
#endif

TEST_F(SearchTest, ThePathTheNameAndTheRequestOfAProjectAreCopied) {
    clickRow("教学楼.GCFX");
    chooseInMenu("projectList", "copyProjectPath");
    EXPECT_EQ(clipboard(), QDir::toNativeSeparators(budget));
    chooseInMenu("projectList", "copyProjectName");
    EXPECT_EQ(clipboard(), QStringLiteral("教学楼.GCFX"));
    chooseInMenu("projectList", "copyProjectRequest");
    EXPECT_TRUE(clipboard().contains(QStringLiteral("某模式")));
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    list->setFocus();
    key(list, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(clipboard(), QDir::toNativeSeparators(budget));
}

}  // namespace testing_support
