/// What AT-SPI tells of each window, against what the process has and what is on the screen.
#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTreeWidget>
#include <algorithm>

#include "tests/looks/EveryWindow.h"
#include "tests/reader/Reader.h"
#include "tests/support/AccessibleTree.h"
#include "workbench/app/MainWindow.h"

namespace {

using namespace reader_tests;
using looks_tests::nameOfPage;
using looks_tests::Page;
using looks_tests::pageNamed;
using looks_tests::withKeys;
using testing_support::child;
using testing_support::settle;

/// Everything that the process has to tell, in the order in which a reader walks through it.
void gather(QAccessibleInterface* thing, QVector<QAccessibleInterface*>& found) {
    for (int i = 0; i < thing->childCount(); ++i) {
        found.append(thing->child(i));
        gather(thing->child(i), found);
    }
}

/// The roles of Qt that windows here have, in the words of AT-SPI.
const QMap<QAccessible::Role, const char*> roleWords = {
    {QAccessible::Button, "push button"},
    {QAccessible::ButtonMenu, "push button"},
    {QAccessible::CheckBox, "check box"},
    {QAccessible::Client, "filler"},
    {QAccessible::ColumnHeader, "table column header"},
    {QAccessible::ComboBox, "combo box"},
    {QAccessible::Dialog, "dialog"},
    {QAccessible::EditableText, "text"},
    {QAccessible::Graphic, "image"},
    {QAccessible::Grouping, "panel"},
    {QAccessible::LayeredPane, "layered pane"},
    {QAccessible::List, "list"},
    {QAccessible::ListItem, "list item"},
    {QAccessible::MenuBar, "menu bar"},
    {QAccessible::MenuItem, "menu item"},
    {QAccessible::PopupMenu, "popup menu"},
    {QAccessible::ProgressBar, "progress bar"},
    {QAccessible::ScrollBar, "scroll bar"},
    {QAccessible::Separator, "separator"},
    {QAccessible::Splitter, "split pane"},
    {QAccessible::StaticText, "label"},
    {QAccessible::StatusBar, "status bar"},
    {QAccessible::ToolBar, "tool bar"},
    {QAccessible::Tree, "tree"},
    {QAccessible::TreeItem, "table cell"},
    {QAccessible::Window, "frame"},
};

QString roleOf(const QAccessibleInterface* thing) {
    if (thing->state().passwordEdit) return QStringLiteral("password text");
    return QLatin1String(roleWords.value(thing->role(), "a role that no window here has"));
}

/// @return the states that reach a reader. Qt's bridge does not pass on whether something can be
///         ticked or has a pop-up: the role has to tell it.
QSet<QString> statesOf(const QAccessibleInterface* thing) {
    const QAccessible::State state = thing->state();
    const bool shown = !state.invisible && !state.offscreen;
    const std::pair<bool, const char*> words[] = {{shown, "showing"},
                                                  {shown, "visible"},
                                                  {!state.disabled, "enabled"},
                                                  {!state.disabled, "sensitive"},
                                                  {state.active, "active"},
                                                  {state.focusable, "focusable"},
                                                  {state.focused, "focused"},
                                                  {state.checked, "checked"},
                                                  {state.selectable, "selectable"},
                                                  {state.selected, "selected"},
                                                  {state.expandable, "expandable"},
                                                  {state.expanded, "expanded"},
                                                  {state.collapsed, "collapsed"},
                                                  {state.editable, "editable"},
                                                  {state.readOnly, "read-only"},
                                                  {state.defaultButton, "is-default"}};
    QSet<QString> set;
    for (const auto& word : words)
        if (word.first) set.insert(QLatin1String(word.second));
    return set;
}

/// @return these, but for what AT-SPI adds that is no matter of this moment.
QSet<QString> momentary(QSet<QString> states) {
    for (const char* lasting : {"resizable", "transient", "multi-line", "manages-descendants"})
        states.remove(QLatin1String(lasting));
    return states;
}

/// @return the text that a person reads on a widget; empty where it shows none.
QString writtenOn(const QObject* object) {
    const auto* label = qobject_cast<const QLabel*>(object);
    if (label) return label->text();
    const auto* button = qobject_cast<const QAbstractButton*>(object);
    // Two signs are set apart, which is a matter of looks.
    return button ? button->text().remove(QLatin1Char(' ')) : QString();
}

/// @return what a person reads in a field.
QString valueOf(const QObject* object) {
    const auto* combo = qobject_cast<const QComboBox*>(object);
    if (combo) return combo->currentText();
    const auto* edit = qobject_cast<const QLineEdit*>(object);
    return edit ? edit->displayText() : QString();
}

/// @return whether a person sees some of the widget, where it says that it is.
bool isSeen(const QWidget* widget) {
    // The outline of a window lies over everything and is seen through.
    if (widget->testAttribute(Qt::WA_TransparentForMouseEvents)) return widget->isVisible();
    const QRegion visible = widget->visibleRegion();
    if (!visible.isEmpty()) {
        const QWidget* there =
            QApplication::widgetAt(widget->mapToGlobal(visible.begin()->center()));
        const bool covered = there && there->window() != widget->window();  // by a menu or a list
        return covered || (there && (there == widget || widget->isAncestorOf(there)));
    }
    // All that shows of a container may be what it contains.
    const auto parts = widget->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    return std::any_of(parts.begin(), parts.end(),
                       [](const QWidget* part) { return !part->isWindow() && isSeen(part); });
}

/// Qt's own widgets are told as showing also where a scroll area has scrolled them out. The panels
/// of the main window are of such widgets.
bool isScrolledOut(const QWidget* widget) {
    return qobject_cast<const workbench::MainWindow*>(widget->window()) && widget->isVisible() &&
           !isSeen(widget);
}

void compare(const Told& told, QAccessibleInterface* thing) {
    EXPECT_EQ(told.role, roleOf(thing));
    EXPECT_EQ(told.name, thing->text(QAccessible::Name));
    EXPECT_EQ(told.description, thing->text(QAccessible::Description));
    EXPECT_EQ(momentary(told.states), statesOf(thing));
    const bool showing = told.states.contains(QStringLiteral("showing"));
    if (showing) {
        EXPECT_EQ(told.place, thing->rect());
    }
    const auto* widget = qobject_cast<QWidget*>(thing->object());
    if (!widget) return;
    EXPECT_EQ(showing, isSeen(widget) || isScrolledOut(widget));
    if (!showing) return;
    if (qobject_cast<const QAbstractButton*>(widget)) {
        EXPECT_NE(told.name, QString());
    }
    EXPECT_TRUE(told.name.contains(writtenOn(widget))) << writtenOn(widget).toStdString();
    if (!valueOf(widget).isEmpty()) {
        EXPECT_EQ(told.text, valueOf(widget));
    }
}

/// Expects that a reader is told what is there and what is seen, and can make something of it.
void expectTold() {
    settle();
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible()) continue;
        EXPECT_EQ(testing_support::accessibleFaults(window), QStringList())
            << window->metaObject()->className();
    }
    const QVector<Told> told = whatIsTold();
    QVector<QAccessibleInterface*> things;
    gather(QAccessible::queryAccessibleInterface(qApp), things);
    ASSERT_EQ(told.size(), things.size());
    int focused = 0;
    for (int i = 0; i < told.size(); ++i) {
        const QObject* object = things[i]->object();
        SCOPED_TRACE(told[i].role.toStdString() + " \"" + told[i].name.toStdString() + "\" " +
                     (object ? object->metaObject()->className() : "") + " " +
                     (object ? object->objectName().toStdString() : std::string()));
        compare(told[i], things[i]);
        focused += told[i].states.contains(QStringLiteral("focused"));
    }
    EXPECT_GE(focused, 1);
}

class Reader : public testing::TestWithParam<Page> {
  protected:
    Reader() { testing_support::clearJournal(); }
    looks_tests::SampleHost host;
};

TEST_P(Reader, IsToldWhatIsOnTheScreen) {
    const std::unique_ptr<QWidget> window = withKeys(GetParam());
    expectTold();
}

class ReaderOfDialog : public testing::Test {
  protected:
    looks_tests::SampleHost host;
};

TEST_F(ReaderOfDialog, IsToldOfAMenuThatIsOpen) {
    const std::unique_ptr<QWidget> dialog = withKeys(pageNamed("general"));
    auto* row = child<QWidget>(dialog.get(), "lswGeneralTax")
                    ->findChild<QWidget*>(QStringLiteral("btnNewProject"));
    for (auto* button : row->findChildren<QPushButton*>())
        if (button->menu()) button->menu()->popup(button->mapToGlobal(QPoint(0, button->height())));
    ASSERT_TRUE(QApplication::activePopupWidget());
    expectTold();
}

TEST_F(ReaderOfDialog, IsToldOfAListThatIsOpen) {
    const std::unique_ptr<QWidget> dialog = withKeys(pageNamed("excel"));
    dialog->findChild<QComboBox*>()->showPopup();
    ASSERT_TRUE(QApplication::activePopupWidget());
    expectTold();
}

TEST_F(ReaderOfDialog, IsToldOfANotice) {
    const std::unique_ptr<QWidget> window = withKeys(pageNamed("mainWindow"));
    static_cast<workbench::MainWindow*>(window.get())
        ->tellBroken(QStringLiteral("/工程"),
                     QStringLiteral("models.json:3: name: must be a text"));
    ASSERT_TRUE(child<QWidget>(window.get(), "notice")->isVisible());
    expectTold();
}

/// Each row once, and the button that Tab leads to.
TEST_F(ReaderOfDialog, HearsWhereTheKeysGoAmongTheCards) {
    const std::unique_ptr<QWidget> dialog = withKeys(pageNamed("general"));
    auto* list = child<QListWidget>(dialog.get(), "lswGeneralTax");
    list->setFocus();
    settle();
    Listener listener;
    QString title;
    for (const int row : {1, 2, 3}) {
        QTest::keyClick(list, Qt::Key_Down);
        title = child<QLabel>(list->itemWidget(list->item(row)), "lblTitle")->text();
        EXPECT_EQ(listener.next(), title);
    }
    QTest::keyClick(list, Qt::Key_Tab);
    EXPECT_EQ(listener.next(), QStringLiteral("新建：") + title);
}

TEST_F(ReaderOfDialog, HearsWhereTheKeysGoInTheTree) {
    const std::unique_ptr<QWidget> dialog = withKeys(pageNamed("templates"));
    auto* tree = child<QTreeWidget>(dialog.get(), "templateTree");
    tree->setFocus();
    settle();
    Listener listener;
    for (const int row : {1, 2, 3}) {
        QTest::keyClick(tree, Qt::Key_Down);
        const QWidget* shown = tree->itemWidget(tree->topLevelItem(row), 0);
        EXPECT_EQ(listener.next(), shown->findChild<QLabel*>()->text());
    }
}

INSTANTIATE_TEST_SUITE_P(Pages, Reader, testing::ValuesIn(looks_tests::allPages()), nameOfPage);

}  // namespace
