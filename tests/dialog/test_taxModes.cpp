#include <QParallelAnimationGroup>
#include <QPropertyAnimation>
#include <QSignalSpy>

#include "tests/dialog/DialogFixture.h"

namespace {

using namespace dialog_tests;

class TaxModes : public DialogTest {
  protected:
    void SetUp() override { host.addTemplate(QStringLiteral("kvys"), QStringLiteral("t.MODX")); }
    bool callTax(const char* slot, int i) {
        return QMetaObject::invokeMethod(dialog.get(), slot, Qt::DirectConnection, Q_ARG(int, i));
    }
};

TEST_F(TaxModes, AClickShowsThePageAtOnceAndChecksItsButtonAlone) {
    open();
    for (int i : {1, 2, 3, 0, 3, 1, 1}) {
        click(button(taxButtons[i]));
        EXPECT_EQ(taxStack()->currentIndex(), i);
        EXPECT_EQ(checkedTaxButtons(), Lines{taxButtons[i]});
        settle();
        for (int page = 0; page < 5; ++page) {
            EXPECT_EQ(taxStack()->widget(page)->isVisible(), page == i) << page;
        }
    }
    EXPECT_EQ(journalLines(), Lines{}) << "a tax mode is no business of the host's";
}

TEST_F(TaxModes, TheContractingPageUnchecksTheFourAndItsButtonKeepsItsOwnClick) {
    open();
    addKindOnMainPage(contractingLabel);
    pick(contractingLabel);
    click(button("budgetButton"));
    EXPECT_EQ(taxStack()->currentIndex(), 4);
    EXPECT_TRUE(find<QWidget>("contractingPage")->isVisible());
    EXPECT_EQ(checkedTaxButtons(), Lines{"budgetButton"});
    click(button("budgetButton"));
    EXPECT_EQ(taxStack()->currentIndex(), 4);
    EXPECT_EQ(checkedTaxButtons(), Lines{}) << "its second click unchecks it";
    click(button("generalTaxButton"));
    EXPECT_EQ(checkedTaxButtons(), Lines{"generalTaxButton"});
}

TEST_F(TaxModes, TheSlotsAreReachedThroughTheMetaObject) {
    open();
    ASSERT_TRUE(callTax("slotCalculationTaxClicked", 2));
    EXPECT_EQ(taxStack()->currentIndex(), 2);
    EXPECT_EQ(checkedTaxButtons(), Lines{"businessTaxButton"});
    ASSERT_TRUE(callTax("slotCalculationTaxAnimationFinished", 3));
    EXPECT_EQ(taxStack()->currentIndex(), 2) << "this slot sets check marks only";
    EXPECT_EQ(checkedTaxButtons(), Lines{"templateButton"});
    ASSERT_TRUE(callTax("slotCalculationTaxAnimationFinished", 4));
    EXPECT_EQ(checkedTaxButtons(), Lines{});
}

TEST_F(TaxModes, NumbersThatAreNoPageLeaveThePage) {
    open();
    ASSERT_EQ(taxStack()->count(), 5);
    // Not the first page: going round the stack's end would lead there.
    click(button("simpleTaxButton"));
    for (int i : {5, 6, -1, 99, -99}) {
        ASSERT_TRUE(callTax("slotCalculationTaxClicked", i));
        EXPECT_EQ(taxStack()->currentIndex(), 1) << i;
        EXPECT_EQ(checkedTaxButtons(), Lines{"simpleTaxButton"}) << i;
    }
    EXPECT_EQ(countOf("exception"), 0);
}

TEST_F(TaxModes, TheCheckMarksDoNotWaitForTheSlide) {
    open();
    taxStack()->setSpeed(100000);
    click(button("simpleTaxButton"));
    EXPECT_EQ(taxStack()->currentIndex(), 0) << "the slide still runs";
    EXPECT_EQ(checkedTaxButtons(), Lines{"simpleTaxButton"});
    auto* slide = taxStack()->findChild<QParallelAnimationGroup*>();
    ASSERT_TRUE(slide);
    slide->setCurrentTime(slide->totalDuration());
    EXPECT_EQ(taxStack()->currentIndex(), 1);
}

TEST_F(TaxModes, TheSlideOfTheDialogIsImmediateWithAnOutQuintEase) {
    open();
    QSignalSpy finished(taxStack(), &SlidingStackedWidget::animationFinished);
    click(button("simpleTaxButton"));
    EXPECT_EQ(finished.size(), 1);
    settle();
    // Slowed down only, so that the slide can be looked at.
    taxStack()->setSpeed(100000);
    click(button("generalTaxButton"));
    int slides = 0;
    for (const auto* animation : taxStack()->findChildren<QPropertyAnimation*>()) {
        if (animation->propertyName() != "pos") continue;
        ++slides;
        EXPECT_EQ(int(animation->easingCurve().type()), 14);
    }
    EXPECT_EQ(slides, 2);
}

TEST_F(TaxModes, RefreshingShowsTheListsOfTheCheckedButtonsOnly) {
    open();
    click(button("simpleTaxButton"));
    list("lswBusinessTax")->show();
    ASSERT_TRUE(call("flushListWidget"));
    EXPECT_TRUE(list("lswGeneralTax")->isHidden());
    EXPECT_FALSE(list("lswSimpleTax")->isHidden());
    EXPECT_TRUE(list("lswBusinessTax")->isHidden());
    EXPECT_TRUE(taxStack()->currentWidget()->isVisible());
}

TEST_F(TaxModes, MoreThanOneCheckedButtonShowsMoreThanOneList) {
    open();
    button("businessTaxButton")->setChecked(true);
    ASSERT_TRUE(call("flushListWidget"));
    EXPECT_FALSE(list("lswGeneralTax")->isHidden());
    EXPECT_TRUE(list("lswSimpleTax")->isHidden());
    EXPECT_FALSE(list("lswBusinessTax")->isHidden());
}

TEST_F(TaxModes, RefreshingGoesToTheFirstCheckedListFromOneThatIsNot) {
    open();
    button("simpleTaxButton")->setChecked(true);
    button("businessTaxButton")->setChecked(true);
    button("generalTaxButton")->setChecked(false);
    ASSERT_EQ(taxStack()->currentIndex(), 0);
    ASSERT_TRUE(call("flushListWidget"));
    EXPECT_EQ(taxStack()->currentIndex(), 1);
}

TEST_F(TaxModes, AfterARefreshTheCurrentPageIsVisible) {
    open();
    for (const char* name : taxButtons) {
        if (button(name)->isHidden()) continue;
        click(button(name));
        ASSERT_TRUE(call("flushListWidget"));
        EXPECT_TRUE(taxStack()->currentWidget()->isVisible()) << name;
    }
}

TEST_F(TaxModes, ARefreshWithNoButtonCheckedKeepsTheCurrentPageVisible) {
    open();
    ASSERT_TRUE(callTax("slotCalculationTaxAnimationFinished", 4));
    ASSERT_EQ(checkedTaxButtons(), Lines{});
    ASSERT_TRUE(call("flushListWidget"));
    EXPECT_EQ(taxStack()->currentIndex(), 0);
    EXPECT_TRUE(list("lswGeneralTax")->isVisible());
}

}  // namespace
