/// What a screen reader is told of the views and their rows.
#include <QAccessible>

#include "tests/dialog/KeyboardFixture.h"

namespace {

using namespace dialog_tests;

QAccessibleInterface* toldOf(QWidget* widget) {
    return QAccessible::queryAccessibleInterface(widget);
}

class Told : public Keyboard {
  protected:
    QTreeWidgetItem* folder() {
        QTreeWidgetItem* first = tree()->topLevelItem(0);
        return first->childCount() > 0 ? first : tree()->topLevelItem(1);
    }
};

TEST_F(Told, TheRowsOfTheTreeAreItsChildren) {
    openTree();
    QAccessibleInterface* view = toldOf(tree());
    QTreeWidgetItemIterator it(tree());
    int row = 0;
    for (; *it; ++it, ++row) {
        ASSERT_TRUE(view->child(row)) << row;
        EXPECT_EQ(view->child(row)->object(), treeRow(*it));
        EXPECT_EQ(view->indexOfChild(view->child(row)), row);
    }
    EXPECT_EQ(view->childCount(), row);
}

TEST_F(Told, ARowOfTheTreeCanBeFocusedSelectedAndFolded) {
    openTree();
    tree()->setCurrentItem(folder());
    const QAccessible::State open = toldOf(treeRow(folder()))->state();
    EXPECT_TRUE(open.focusable && open.selectable && open.selected && open.expandable);
    EXPECT_TRUE(open.expanded && !open.collapsed);
    folder()->setExpanded(false);
    EXPECT_TRUE(toldOf(treeRow(folder()))->state().collapsed);
    folder()->setExpanded(true);
    const QAccessible::State file = toldOf(treeRow(folder()->child(0)))->state();
    EXPECT_TRUE(file.focusable && file.selectable);
    EXPECT_FALSE(file.selected || file.expandable || file.collapsed);
}

TEST_F(Told, TheTreeKnowsItsRowAtAPlaceAndTheOneWithTheFocus) {
    openTree();
    tree()->setFocus(Qt::TabFocusReason);
    tree()->setCurrentItem(folder());
    QWidget* row = treeRow(folder());
    QAccessibleInterface* focused = toldOf(tree())->focusChild();
    ASSERT_TRUE(focused);
    EXPECT_EQ(focused->object(), row);
    const QPoint middle = row->mapToGlobal(row->rect().center());
    QAccessibleInterface* there = toldOf(tree())->childAt(middle.x(), middle.y());
    ASSERT_TRUE(there);
    EXPECT_EQ(there->object(), row);
}

TEST_F(Told, ACardCanBeFocused) {
    open();
    const QAccessible::State state = toldOf(card("lswGeneralTax", 1))->state();
    EXPECT_TRUE(state.focusable);
    EXPECT_FALSE(state.selectable || state.expandable);
}

TEST_F(Told, ACardIsFocusedByOneActionAndCreatesByTheOther) {
    open();
    button("generalTaxButton")->setFocus();
    ASSERT_FALSE(cards()->hasFocus());
    QAccessibleActionInterface* actions = toldOf(card("lswGeneralTax", 2))->actionInterface();
    actions->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_EQ(cards()->currentRow(), 2);
    EXPECT_TRUE(cards()->hasFocus());
    EXPECT_TRUE(dialog->isVisible());
    actions->doAction(QStringLiteral("no such action"));
    EXPECT_TRUE(dialog->isVisible());
    actions->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(countOf("SignalCreatePro"), 1);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(Told, ARowOfTheTreeIsAFolderOrAFile) {
    openTree();
    const auto description = [this](QTreeWidgetItem* item) {
        return toldOf(treeRow(item))->text(QAccessible::Description);
    };
    EXPECT_EQ(description(folder()), QStringLiteral("文件夹"));
    EXPECT_EQ(description(folder()->child(0)), QStringLiteral("模板工程文件"));
}

TEST_F(Told, ButtonsOfARowAreItsPartsAndOthersAreAsQtTellsThem) {
    open();
    QAccessibleInterface* row = toldOf(card("lswGeneralTax", 0));
    ASSERT_EQ(row->childCount(), 1);
    EXPECT_EQ(row->indexOfChild(row->child(0)), 0);
    EXPECT_EQ(row->indexOfChild(nullptr), -1);
    EXPECT_EQ(row->indexOfChild(toldOf(button("generalTaxButton"))), -1);
    EXPECT_EQ(row->child(0)->role(), QAccessible::Button);
    EXPECT_EQ(toldOf(button("generalTaxButton"))->role(), QAccessible::CheckBox);
}

TEST_F(Told, TheRowThatBecomesTheCurrentOneIsScrolledTo) {
    for (int i = 0; i < 60; ++i)
        host.addTemplate(QStringLiteral("kvys"), QStringLiteral("%1.MODX").arg(i));
    openTree();
    QTreeWidgetItem* last = tree()->topLevelItem(tree()->topLevelItemCount() - 1);
    const int room = tree()->viewport()->height();
    ASSERT_GT(tree()->visualItemRect(last).top(), room);
    tree()->setCurrentItem(last);
    EXPECT_GE(tree()->visualItemRect(last).top(), 0);
    EXPECT_LE(tree()->visualItemRect(last).bottom(), room);
}

}  // namespace
