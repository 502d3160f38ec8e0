/// What the keys do among cards and rows: where they lead, and what they create.
#include <QMenu>
#include <cmath>

#include "tests/dialog/KeyboardFixture.h"

namespace {

using namespace dialog_tests;

struct Paints : QObject {
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == QEvent::Paint;
        return false;
    }
    int count = 0;
};

/// As the Web Content Accessibility Guidelines define it.
double luminance(QRgb colour) {
    const auto linear = [](int value) {
        const double part = value / 255.0;
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(colour)) + 0.7152 * linear(qGreen(colour)) +
           0.0722 * linear(qBlue(colour)) + 0.05;
}

/// A keyboard that also looks at the screen.
class KeyboardLooks : public Keyboard {
  protected:
    /// Expects that the keys are seen to leave a row, all around it.
    void expectRing(QWidget* row, const char* skin) {
        const QRect place(row->mapTo(dialog.get(), QPoint()), row->size());
        const QImage with = dialog->grab(place).toImage();
        key(Qt::Key_Down);
        const QImage without = dialog->grab(place).toImage();
        int clear = 0;
        for (int y = 0; y < with.height(); ++y)
            for (int x = 0; x < with.width(); ++x) {
                const double one = luminance(with.pixel(x, y));
                const double other = luminance(without.pixel(x, y));
                clear += qMax(one, other) / qMin(one, other) >= 3;
            }
        EXPECT_GT(clear, 2 * (row->width() + row->height()))
            << skin << ": " << row->metaObject()->className();
    }
};

TEST_F(Keyboard, ACardThatIsClickedIsCurrentAndNotSelected) {
    open();
    QTest::mouseClick(card("lswGeneralTax", 1), Qt::LeftButton, Qt::NoModifier, QPoint(4, 4));
    key(Qt::Key_Down);
    EXPECT_EQ(cards()->currentRow(), 2);
    EXPECT_TRUE(cards()->selectedItems().isEmpty());
}

TEST_F(Keyboard, OpensOnTheFirstCard) {
    open();
    EXPECT_EQ(focused(), cards());
    EXPECT_EQ(cards()->currentRow(), 0);
    EXPECT_EQ(ringRow(), 0);
}

TEST_F(Keyboard, ACardThatIsCurrentBeforeTheFocusComesIsNoStop) {
    make();
    cards()->setCurrentRow(0);
    auto* create = child<QWidget>(card("lswGeneralTax", 0), "btnNewProject");
    EXPECT_FALSE(create->focusPolicy() & Qt::TabFocus);
}

TEST_F(Keyboard, NothingMovesUnderTheMouseThatPresses) {
    open();
    ASSERT_EQ(cards()->currentRow(), 0);
    focused()->clearFocus();
    bar()->setValue(bar()->maximum() / 2 + 13);
    settle();
    const int place = bar()->value();
    QWidget* create = child<QWidget>(card("lswGeneralTax", cards()->count() / 2), "btnNewProject");
    const QPoint at = create->mapTo(dialog.get(), create->rect().center());
    ASSERT_EQ(dialog->childAt(at), create);
    clearJournal();
    QTest::mousePress(dialog->windowHandle(), Qt::LeftButton, {}, at);
    EXPECT_EQ(bar()->value(), place);
    QTest::mouseRelease(dialog->windowHandle(), Qt::LeftButton, {}, at);
    EXPECT_EQ(countOf("SignalCreatePro"), 1);
}

TEST_F(Keyboard, MovesTheRingFromCardToCardAndScrolls) {
    open();
    const int page = find<QScrollArea>("taxPageArea")->viewport()->height() / 80;
    const struct {
        Qt::Key code;
        int row;
    } steps[] = {
        {Qt::Key_Down, 1}, {Qt::Key_Down, 2},  {Qt::Key_Up, 1},        {Qt::Key_PageDown, 1 + page},
        {Qt::Key_End, 29}, {Qt::Key_Down, 29}, {Qt::Key_PageDown, 29}, {Qt::Key_PageUp, 29 - page},
        {Qt::Key_Home, 0}, {Qt::Key_Up, 0},    {Qt::Key_PageUp, 0}};
    for (const auto& step : steps) {
        SCOPED_TRACE(step.code);
        key(step.code);
        EXPECT_EQ(cards()->currentRow(), step.row);
        EXPECT_EQ(ringRow(), step.row);
        QWidget* shown = card("lswGeneralTax", step.row);
        EXPECT_EQ(shown->visibleRegion().boundingRect(), shown->rect()) << "scrolled into sight";
    }
    EXPECT_EQ(bar()->value(), 0);
    EXPECT_EQ(journalLines(), Lines{}) << "moving asks the host for nothing";
}

TEST_F(Keyboard, EnterCreatesFromTheCardWithTheRing) {
    for (const Qt::Key code : {Qt::Key_Return, Qt::Key_Enter}) {
        open();
        key(Qt::Key_Down);
        key(Qt::Key_Down);
        key(code);
        EXPECT_FALSE(dialog->isVisible());
        EXPECT_EQ(countOf("SignalCreatePro"), 1);
        EXPECT_EQ(sent.toMap().value(QStringLiteral("m_strProjectType")), QStringLiteral("模型2"));
    }
}

TEST_F(Keyboard, AHeldKeyCreatesOnce) {
    open();
    hold(Qt::Key_Return, 5);
    EXPECT_EQ(countOf("SignalCreatePro"), 1);
    // Where the host is busy the tree's dialog stays open, and the host is asked once.
    host.switches().firstPage = workbench::FirstPage::Busy;
    openTree();
    tree()->setCurrentItem(tree()->topLevelItem(0));
    clearJournal();
    hold(Qt::Key_Return, 5);
    EXPECT_EQ(countOf("FirstPagePlugin::canStartNew"), 1);
    key(Qt::Key_Tab);
    clearJournal();
    hold(Qt::Key_Return, 5);
    hold(Qt::Key_Space, 5);
    EXPECT_EQ(countOf("FirstPagePlugin::canStartNew"), 1);
}

TEST_F(Keyboard, AKeyThatIsHeldWhileTheDialogOpensCreatesNothing) {
    open();
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"), true);
    QApplication::sendEvent(focused(), &held);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(countOf("signal"), 0);
}

TEST_F(Keyboard, TheListIsOneStopAndTabGoesIntoTheFocusedCard) {
    open();
    key(Qt::Key_Down);
    key(Qt::Key_Tab);
    QWidget* split = card("lswGeneralTax", 1);
    EXPECT_TRUE(split->isAncestorOf(focused()));
    EXPECT_EQ(qobject_cast<QAbstractButton*>(focused())->text(), QStringLiteral("新建"));
    EXPECT_EQ(ringRow(), -1) << "the button shows its own";
    key(Qt::Key_Tab);
    EXPECT_TRUE(split->isAncestorOf(focused()));
    EXPECT_EQ(focused()->accessibleName(), QStringLiteral("选择计费方式"));
    key(Qt::Key_Tab);
    EXPECT_EQ(focused(), button("generalTaxButton")) << "and on, whatever cards there are";
    key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focused(), cards()) << "from behind the list is one stop, too";
    EXPECT_EQ(ringRow(), 1);
}

TEST_F(Keyboard, ArrowsInACardsButtonLeadToTheNextCard) {
    open();
    key(Qt::Key_Tab);
    EXPECT_NE(focused(), cards());
    key(Qt::Key_Down);
    EXPECT_EQ(focused(), cards());
    EXPECT_EQ(ringRow(), 1);
    key(Qt::Key_Tab);
    EXPECT_TRUE(card("lswGeneralTax", 1)->isAncestorOf(focused()));
}

TEST_F(Keyboard, TheMenuOfFeeModesOpensByKeyAndCreates) {
    const struct {
        Qt::Key code;
        Qt::KeyboardModifiers modifiers;
    } ways[] = {{Qt::Key_Menu, Qt::NoModifier}, {Qt::Key_Down, Qt::AltModifier}};
    for (const auto& way : ways) {
        open();
        key(Qt::Key_Down);
        bool seen = false;
        QTimer::singleShot(0, dialog.get(), [&seen] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            ASSERT_TRUE(menu);
            seen = true;
            EXPECT_EQ(menu->activeAction(), menu->actions().constFirst());
            QTest::keyClick(menu, Qt::Key_Down);
            QTest::keyClick(menu, Qt::Key_Return);
        });
        key(way.code, way.modifiers);
        EXPECT_TRUE(seen);
        EXPECT_EQ(countOf("SignalCreatePro"), 1);
    }
}

TEST_F(Keyboard, ACardWithoutFeeModesHasNoMenu) {
    open();
    key(Qt::Key_Menu);
    key(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(cards()->currentRow(), 0);
    EXPECT_FALSE(QApplication::activePopupWidget());
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(Keyboard, TheTreeIsOneStopAndItsKeysMoveFoldAndCreate) {
    openTree();
    QTreeWidgetItem* file = tree()->topLevelItem(0);
    QTreeWidgetItem* folder = tree()->topLevelItem(1);
    if (folder->childCount() == 0) std::swap(file, folder);
    ASSERT_EQ(folder->childCount(), 1);
    key(Qt::Key_Home);
    tree()->setCurrentItem(folder);
    key(Qt::Key_Left);
    EXPECT_FALSE(folder->isExpanded());
    key(Qt::Key_Return);
    EXPECT_TRUE(folder->isExpanded()) << "Enter on a folder unfolds it";
    key(Qt::Key_Tab);
    EXPECT_FALSE(tree()->isAncestorOf(focused())) << "a folder has no button";
    key(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(focused(), tree());
    tree()->setCurrentItem(folder->child(0));
    EXPECT_TRUE(treeRow(folder->child(0))->findChild<QWidget*>(QStringLiteral("focusRing")));
    key(Qt::Key_Tab);
    EXPECT_TRUE(treeRow(folder->child(0))->isAncestorOf(focused()));
    key(Qt::Key_Up);
    EXPECT_EQ(focused(), tree());
    tree()->setCurrentItem(file);
    clearJournal();
    key(Qt::Key_Return);
    EXPECT_EQ(journalLines({"SignalCreateMB"}),
              Lines{"signal SignalCreateMB(4, 44, \"" +
                    host.path(QStringLiteral("MBSC/kvys/甲.MODX")).toStdString() + "\")"});
}

TEST_F(Keyboard, ATreeThatIsHigherThanItsPageBringsTheCurrentRowIntoSight) {
    for (int i = 0; i < 60; ++i)
        host.addTemplate(QStringLiteral("kvys"), QStringLiteral("丙%1.MODX").arg(i));
    openTree();
    // As a reader does; Qt itself follows keys alone.
    tree()->setAutoScroll(false);
    QTreeWidgetItem* last = tree()->topLevelItem(tree()->topLevelItemCount() - 1);
    tree()->setFocus(Qt::TabFocusReason);
    tree()->setCurrentItem(last);
    EXPECT_TRUE(tree()->viewport()->rect().contains(tree()->visualItemRect(last).center()));
}

TEST_F(Keyboard, ARowThatIsSelectedIsPaintedSo) {
    openTree();
    QTreeWidgetItem* row = tree()->topLevelItem(0);
    tree()->setCurrentItem(row);
    settle();
    const auto shown = [&] {
        return tree()->viewport()->grab(tree()->visualItemRect(row)).toImage();
    };
    const QImage selected = shown();
    Paints paints;
    tree()->viewport()->installEventFilter(&paints);
    tree()->clearSelection();
    settle();
    EXPECT_GT(paints.count, 0);
    EXPECT_NE(shown(), selected);
}

TEST_F(Keyboard, AReceiverMayDeleteTheDialog) {
    QPointer<NewProCfgDialog> alive;
    const auto expectGone = [&](Qt::Key code) {
        alive = dialog.get();
        QObject::connect(dialog.get(), &QDialog::finished, [this] { dialog.reset(); });
        QTest::keyClick(focused(), code);
        settle();
        EXPECT_FALSE(alive);
        EXPECT_EQ(countOf("exception"), 0);
    };
    open();
    expectGone(Qt::Key_Return);
    open();
    key(Qt::Key_Tab);
    expectGone(Qt::Key_Return);
    openTree();
    tree()->setCurrentItem(tree()->topLevelItem(tree()->topLevelItem(0)->childCount() ? 1 : 0));
    expectGone(Qt::Key_Return);
    open();
    key(Qt::Key_Down);
    QTimer::singleShot(0, dialog.get(), [] {
        QWidget* menu = QApplication::activePopupWidget();
        ASSERT_TRUE(menu);
        QTest::keyClick(menu, Qt::Key_Down);
        QTest::keyClick(menu, Qt::Key_Return);
    });
    expectGone(Qt::Key_Menu);
}

TEST_F(Keyboard, ListsAreRefilledUnderTheRing) {
    open();
    key(Qt::Key_End);
    host.setModels(QStringLiteral("Kvys"), 0, {model(QStringLiteral("单"))});
    call("GetModelCfgAndInitData");
    settle();
    key(Qt::Key_Home);
    EXPECT_EQ(ringRow(), 0);
    host.clearModels();
    call("GetModelCfgAndInitData");
    settle();
    for (const Qt::Key code :
         {Qt::Key_Down, Qt::Key_End, Qt::Key_PageUp, Qt::Key_Return, Qt::Key_Menu, Qt::Key_Space}) {
        key(code);
    }
    EXPECT_EQ(ringRow(), -1);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(countOf("signal") + countOf("exception"), 0);
}

TEST_F(Keyboard, TheMouseMovesTheCurrentCardWithoutARing) {
    open();
    button("generalTaxButton")->setFocus(Qt::TabFocusReason);
    QWidget* third = card("lswGeneralTax", 2);
    QTest::mouseClick(dialog->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                      third->mapTo(dialog.get(), QPoint(20, 20)));
    EXPECT_EQ(focused(), cards());
    EXPECT_EQ(cards()->currentRow(), 2);
    EXPECT_EQ(ringRow(), -1);
    key(Qt::Key_Down);
    EXPECT_EQ(ringRow(), 3);
}

TEST_F(KeyboardLooks, TheRingIsSeenInEverySkin) {
    for (const char* skin : {"light", "dark", "contrast"}) {
        workbench::Host::instance().setSkin(QLatin1String(skin));
        open();
        expectRing(card("lswGeneralTax", 0), skin);
        openTree();
        expectRing(treeRow(tree()->topLevelItem(0)), skin);
    }
}

}  // namespace
