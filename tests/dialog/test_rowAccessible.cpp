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

TEST_F(Told, ACardTellsItsLinesWhole) {
    open();
    QWidget* shown = card("lswGeneralTax", 0);
    const Lines lines{child<QLabel>(shown, "lblSource")->text().toStdString(),
                      child<QLabel>(shown, "lblDescription")->accessibleName().toStdString()};
    EXPECT_EQ(toldOf(shown)->text(QAccessible::Name), child<QLabel>(shown, "lblTitle")->text());
    EXPECT_EQ(toldOf(shown)->text(QAccessible::Description).toStdString(),
              lines[0] + '\n' + lines[1]);
}

TEST_F(Told, TheCardsOfAListThatIsNotLaidOutHaveTheirNumbers) {
    host.setModels(QStringLiteral("Kvys"), 1,
                   {model(QStringLiteral("甲")), model(QStringLiteral("乙"))});
    open();
    QAccessibleInterface* view = toldOf(list("lswSimpleTax"));
    for (int row = 0; row < 2; ++row)
        EXPECT_EQ(view->indexOfChild(toldOf(card("lswSimpleTax", row))), row);
}

TEST_F(Told, ARowKnowsItsButtonAtAPlace) {
    open();
    QWidget* shown = card("lswGeneralTax", 0);
    auto* create = child<QWidget>(shown, "btnNewProject");
    const QPoint on = create->mapToGlobal(create->rect().center());
    const QPoint beside = shown->mapToGlobal(QPoint(5, 5));
    QAccessibleInterface* there = toldOf(shown)->childAt(on.x(), on.y());
    ASSERT_TRUE(there);
    EXPECT_EQ(there->object(), create);
    EXPECT_FALSE(toldOf(shown)->childAt(beside.x(), beside.y()));
}

TEST_F(Told, ARowOffersToBePressedWhereItHasAButton) {
    openTree();
    using Actions = QAccessibleActionInterface;
    const QStringList focus{Actions::setFocusAction()}, both{Actions::pressAction(), focus[0]};
    const auto offered = [](QWidget* row) { return toldOf(row)->actionInterface()->actionNames(); };
    EXPECT_EQ(offered(card("lswGeneralTax", 0)), both);
    EXPECT_EQ(offered(treeRow(folder()->child(0))), both);
    EXPECT_EQ(offered(treeRow(folder())), focus);
}

TEST_F(Told, ASplitButtonIsAGroupOfAButtonAndAMenu) {
    open();
    auto* frame = child<QWidget>(card("lswGeneralTax", 1), "btnNewProject");
    EXPECT_EQ(toldOf(frame)->role(), QAccessible::Grouping);
    EXPECT_EQ(toldOf(frame)->actionInterface()->actionNames(), QStringList());
    const QList<zBaseButton*> parts = frame->findChildren<zBaseButton*>();
    ASSERT_EQ(parts.size(), 2);
    using Actions = QAccessibleActionInterface;
    const std::pair<QAccessible::Role, QString> expected[] = {
        {QAccessible::Button, Actions::pressAction()},
        {QAccessible::ButtonMenu, Actions::showMenuAction()}};
    for (int i = 0; i < 2; ++i) {
        QAccessibleInterface* part = toldOf(parts[i]);
        EXPECT_EQ(part->role(), expected[i].first);
        EXPECT_EQ(part->state().hasPopup, i == 1);
        EXPECT_EQ(part->actionInterface()->actionNames(), QStringList{expected[i].second});
        part->actionInterface()->doAction(QStringLiteral("no such action"));
    }
    settle();
    EXPECT_EQ(countOf("SignalCreatePro"), 0);
    toldOf(parts[0])->actionInterface()->doAction(Actions::pressAction());
    EXPECT_TRUE(QTest::qWaitFor([] { return countOf("SignalCreatePro") == 1; }));
}

TEST_F(Told, ARowThatIsScrolledOutIsOffTheScreenWithItsButton) {
    open();
    for (const int row : {0, 29}) {
        QWidget* shown = card("lswGeneralTax", row);
        EXPECT_EQ(toldOf(shown)->state().offscreen, row == 29);
        auto* create = child<QWidget>(shown, "btnNewProject");
        EXPECT_EQ(toldOf(create)->state().offscreen, row == 29);
    }
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
