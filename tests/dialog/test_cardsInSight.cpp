/// A list has all its cards from the start, and shows each when its row comes into sight.
#include <QAccessible>
#include <QStyledItemDelegate>

#include "models/ProModelItemForm.h"
#include "tests/dialog/KeyboardFixture.h"

namespace {

using namespace dialog_tests;

constexpr int many = 300;

class CardsInSight : public Keyboard {
  protected:
    void SetUp() override {
        for (const int mode : {0, 1}) {
            QList<TaxTemplateInfo> models;
            for (int i = 0; i < many; ++i)
                models << model(QStringLiteral("模型%1-%2").arg(mode).arg(i));
            host.setModels(kvys, mode, models);
        }
    }
    /// @return the rows whose cards are visible.
    std::vector<int> shownRows(const char* listName = "lswGeneralTax") {
        std::vector<int> rows;
        for (int row = 0; row < list(listName)->count(); ++row) {
            if (card(listName, row)->isVisible()) rows.push_back(row);
        }
        return rows;
    }
    /// @return the rows of which anything is seen in the scrolling area.
    std::vector<int> rowsInSight(QListWidget* list) {
        const QWidget* area = find<QScrollArea>("taxPageArea")->viewport();
        std::vector<int> rows;
        for (int row = 0; row < list->count(); ++row) {
            const QRect place = list->visualItemRect(list->item(row));
            const int top = list->viewport()->mapTo(dialog.get(), place.topLeft()).y() -
                            area->mapTo(dialog.get(), QPoint(0, 0)).y();
            if (top + place.height() > 0 && top < area->height()) rows.push_back(row);
        }
        return rows;
    }
    QImage picture(int row) { return card("lswGeneralTax", row)->grab().toImage(); }
};

TEST_F(CardsInSight, AreShownAndAllOthersAreThere) {
    make()->show();
    EXPECT_EQ(shownRows(), rowsInSight(cards())) << "with the dialog, and not a moment later";
    EXPECT_GT(shownRows().size(), 5u);
    EXPECT_LT(shownRows().size(), 12u);
    settle();
    EXPECT_EQ(shownRows(), rowsInSight(cards())) << "nor are others by and by";
    ASSERT_EQ(cards()->count(), many);
    for (int row = 0; row < many; ++row) {
        auto* shown = qobject_cast<ProModelItemForm*>(card("lswGeneralTax", row));
        ASSERT_TRUE(shown) << row;
        EXPECT_EQ(shown->geometry(), cards()->visualItemRect(cards()->item(row)));
        EXPECT_EQ(child<QLabel>(shown, "lblTitle")->text(), QStringLiteral("模型0-%1").arg(row));
        EXPECT_TRUE(child<QLabel>(shown, "lblSource")->text().startsWith(QStringLiteral("依据：")));
    }
    const std::vector<int> none;
    EXPECT_EQ(shownRows("lswSimpleTax"), none) << "a list that is not shown";
}

TEST_F(CardsInSight, ComeWithTheScrolling) {
    open();
    const QImage second = picture(1);
    for (const int to : {bar()->maximum(), bar()->maximum() / 2, 37}) {
        bar()->setValue(to);
        for (const int row : rowsInSight(cards())) {
            QWidget* shown = card("lswGeneralTax", row);
            EXPECT_TRUE(shown->isVisible()) << row;
            const auto* create = child<zBaseButton>(shown, "btnNewProject");
            EXPECT_GT(create->x(), shown->width() / 2) << "laid out";
        }
    }
    EXPECT_LT(shownRows().size(), 36u);
    // The same card but for its name looks the same, whenever it was shown.
    const int last = many - 1;
    bar()->setValue(bar()->maximum());
    child<QLabel>(card("lswGeneralTax", last), "lblTitle")->setText(QStringLiteral("模型0-1"));
    EXPECT_EQ(picture(last), second);
}

TEST_F(CardsInSight, ComeWithTheKeys) {
    open();
    cards()->setFocus(Qt::TabFocusReason);
    QTest::keyClick(cards(), Qt::Key_End);
    EXPECT_EQ(ringRow(), many - 1);
    EXPECT_TRUE(card("lswGeneralTax", many - 1)->isVisible());
    key(Qt::Key_Tab);
    EXPECT_TRUE(card("lswGeneralTax", many - 1)->isAncestorOf(focused()));
}

TEST_F(CardsInSight, ComeWithTheirPageAndWithAnotherKind) {
    host.setModels(QStringLiteral("Kvzcb"), 0, {model(QStringLiteral("总包"))});
    open();
    addKindOnMainPage(contractingLabel);
    bar()->setValue(bar()->maximum());
    click(button("simpleTaxButton"));
    settle();
    QListWidget* simple = list("lswSimpleTax");
    EXPECT_TRUE(simple->isVisible());
    EXPECT_EQ(rowsInSight(simple).front(), 0);
    for (const int row : rowsInSight(simple)) EXPECT_TRUE(card("lswSimpleTax", row)->isVisible());
    EXPECT_LT(shownRows("lswSimpleTax").size(), 24u);
    click(button("generalTaxButton"));
    settle();
    for (const int row : rowsInSight(cards())) EXPECT_TRUE(card("lswGeneralTax", row)->isVisible());
    pick(contractingLabel);
    EXPECT_EQ(shownRows(), std::vector<int>{0});
    pick(budgetLabel);
    for (const int row : rowsInSight(cards())) EXPECT_TRUE(card("lswGeneralTax", row)->isVisible());
    EXPECT_LT(shownRows().size(), 12u) << "made anew";
}

TEST_F(CardsInSight, ComeWhereAHostHasHiddenRowsOrPutSpaceBetweenThem) {
    open();
    const int under = rowsInSight(cards()).back() + 2;
    for (int row = 0; row < 5; ++row) cards()->setRowHidden(row, true);
    cards()->setRowHidden(under, true);
    settle();
    const auto isThere = [this](int row) {
        return !cards()->isRowHidden(row) == card("lswGeneralTax", row)->isVisible();
    };
    for (const int row : rowsInSight(cards())) {
        EXPECT_TRUE(row < 5 || isThere(row)) << row;
    }
    bar()->setValue(80 * 4);
    EXPECT_FALSE(card("lswGeneralTax", under)->isVisible()) << "of a hidden row";
    EXPECT_TRUE(isThere(under + 1));
    cards()->setSpacing(20);
    bar()->setValue(80 * 100);
    settle();
    for (const int row : rowsInSight(cards())) EXPECT_TRUE(isThere(row)) << row;
}

/// Counts how often rows are measured, which each layout of a list does with all of them.
struct CountsRows : QStyledItemDelegate {
    mutable int measured = 0;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        ++measured;
        return QStyledItemDelegate::sizeHint(option, index);
    }
};

TEST_F(CardsInSight, AreLaidOutTogetherWhenAnotherKindIsPicked) {
    QList<TaxTemplateInfo> models;
    for (int i = 0; i < many; ++i) models << model(QStringLiteral("总包%1").arg(i));
    host.setModels(QStringLiteral("Kvzcb"), 0, models);
    CountsRows rows;
    open();
    cards()->setItemDelegate(&rows);
    addKindOnMainPage(contractingLabel);
    settle();
    for (const QString& kind : {contractingLabel, budgetLabel}) {
        rows.measured = 0;
        pick(kind);
        settle();
        EXPECT_EQ(cards()->count(), many);
        EXPECT_GE(rows.measured, many);
        EXPECT_LE(rows.measured, 4 * many) << "not once for each row that comes";
        for (int row = 0; row < many; ++row)
            EXPECT_EQ(card("lswGeneralTax", row)->geometry(),
                      cards()->visualItemRect(cards()->item(row)));
    }
    dialog.reset();  // before what measures its rows
}

TEST_F(CardsInSight, ComeWithAPictureOfTheWholeList) {
    open();
    cards()->grab();
    EXPECT_EQ(shownRows().size(), size_t(many));
}

TEST_F(CardsInSight, ComeWithAPictureOfAListThatWasJustFilled) {
    open();
    cards()->clear();
    settle();
    auto* added = new ProModelItemForm(model(QStringLiteral("新")), nullptr);
    added->waitForSight();
    cards()->addItem(QString());
    cards()->setItemWidget(cards()->item(0), added);
    cards()->grab();
    EXPECT_TRUE(added->isVisible());
}

TEST_F(CardsInSight, AreNotTheOnlyOnesThatAReaderFinds) {
    open();
    QAccessibleInterface* row = QAccessible::queryAccessibleInterface(cards())->child(many - 1);
    ASSERT_TRUE(row);
    EXPECT_EQ(row->object(), card("lswGeneralTax", many - 1));
    EXPECT_EQ(row->text(QAccessible::Name), QStringLiteral("模型0-%1").arg(many - 1));
    EXPECT_TRUE(row->text(QAccessible::Description).contains(QStringLiteral("依据：")));
    for (QAccessibleInterface* told : {row, row->child(0)}) {
        EXPECT_FALSE(told->state().invisible);
        EXPECT_TRUE(told->state().offscreen);
    }
    row->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
    EXPECT_FALSE(row->state().offscreen);
    row->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_FALSE(dialog->isVisible());
    // Where the list is not shown, its rows are not either.
    QAccessibleInterface* hidden =
        QAccessible::queryAccessibleInterface(list("lswSimpleTax"))->child(0);
    EXPECT_TRUE(hidden->state().invisible);
}

TEST_F(CardsInSight, AreNotTheOnlyOnesThatAProgramClicks) {
    open();
    QWidget* last = card("lswGeneralTax", many - 1);
    QTest::mouseClick(child<zBaseButton>(last, "btnNewProject"), Qt::LeftButton);
    EXPECT_EQ(sent.toMap().value(QStringLiteral("m_strProjectType")),
              QVariant(QStringLiteral("模型0-%1").arg(many - 1)));
}

TEST_F(CardsInSight, MayBeDeletedByOneThatComes) {
    open();
    const int next = rowsInSight(cards()).back() + 1;
    struct DeletesTheOther : QObject {
        QPointer<QWidget> other;
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::Show) delete other;
            return false;
        }
    } deletes;
    deletes.other = card("lswGeneralTax", next + 1);
    card("lswGeneralTax", next)->installEventFilter(&deletes);
    bar()->setValue(80 * 3);
    EXPECT_FALSE(deletes.other);
    EXPECT_TRUE(card("lswGeneralTax", next)->isVisible());
    EXPECT_EQ(cards()->count(), many);
}

TEST_F(CardsInSight, OfAListByItselfAreShownAtOnce) {
    ProModelItemForm alone(model(QStringLiteral("a")), nullptr);
    alone.show();
    EXPECT_TRUE(alone.isVisible());
    ProModelItemForm waits(model(QStringLiteral("b")), nullptr);
    waits.waitForSight();
    waits.show();
    EXPECT_FALSE(waits.isVisible());
    waits.comeIntoSight();
    EXPECT_TRUE(waits.isVisible());
    waits.hide();
    EXPECT_FALSE(waits.isVisible());
    waits.comeIntoSight();
    EXPECT_FALSE(waits.isVisible()) << "somebody has hidden it since";
    waits.show();
    EXPECT_TRUE(waits.isVisible());
}

}  // namespace
