#include "dialog/SlidingStackedWidget.h"

#include <QGraphicsOpacityEffect>
#include <QParallelAnimationGroup>
#include <QPropertyAnimation>
#include <QSignalSpy>

#include "tests/support/TestSupport.h"

namespace {

using Stack = SlidingStackedWidget;
using testing_support::settle;

class Sliding : public testing::Test {
  protected:
    Sliding() {
        for (QWidget*& page : pages) stack.addWidget(page = new QWidget);
        stack.resize(200, 100);
        stack.show();
        settle();
    }

    /// The running slide, held still; null when none runs.
    QParallelAnimationGroup* slide() {
        auto* group = stack.findChild<QParallelAnimationGroup*>();
        if (group && group->state() == QAbstractAnimation::Running) group->pause();
        return group;
    }
    QPropertyAnimation* part(int i) {
        QParallelAnimationGroup* group = slide();
        return group ? qobject_cast<QPropertyAnimation*>(group->animationAt(i)) : nullptr;
    }
    void finish() {
        QParallelAnimationGroup* group = slide();
        ASSERT_TRUE(group);
        group->setCurrentTime(group->totalDuration());
        settle();
        EXPECT_FALSE(slide());
    }
    void expectSlide(QPoint leavingEnd, QPoint comingStart) {
        ASSERT_TRUE(slide());
        EXPECT_EQ(part(0)->endValue().toPoint(), leavingEnd);
        EXPECT_EQ(part(1)->startValue().toPoint(), comingStart);
        EXPECT_EQ(part(1)->endValue().toPoint(), QPoint(0, 0));
    }
    int w() const { return stack.frameRect().width(); }
    int h() const { return stack.frameRect().height(); }

    Stack stack;
    QWidget* pages[3] = {};
};

TEST_F(Sliding, ConsistsOfTwoMovesAndTwoFades) {
    stack.slideInIdx(2);
    ASSERT_TRUE(slide());
    ASSERT_EQ(slide()->animationCount(), 4);
    EXPECT_EQ(part(0)->targetObject(), pages[0]);
    EXPECT_EQ(part(0)->propertyName(), QByteArray("pos"));
    EXPECT_EQ(part(1)->targetObject(), pages[2]);
    EXPECT_EQ(part(1)->propertyName(), QByteArray("pos"));
    EXPECT_EQ(part(2)->targetObject(), pages[0]->graphicsEffect());
    EXPECT_EQ(part(2)->propertyName(), QByteArray("opacity"));
    EXPECT_EQ(part(2)->startValue().toDouble(), 1.0);
    EXPECT_EQ(part(2)->endValue().toDouble(), 0.0);
    EXPECT_EQ(part(3)->targetObject(), pages[2]->graphicsEffect());
    EXPECT_EQ(part(3)->propertyName(), QByteArray("opacity"));
    EXPECT_EQ(part(3)->startValue().toDouble(), 0.0);
    EXPECT_EQ(part(3)->endValue().toDouble(), 1.0);
}

TEST_F(Sliding, TakesThreeHundredMillisecondsWithAnOutQuartEaseUnlessSet) {
    stack.slideInIdx(1);
    ASSERT_TRUE(slide());
    for (int i : {0, 1}) {
        EXPECT_EQ(part(i)->duration(), 300);
        EXPECT_EQ(int(part(i)->easingCurve().type()), 10);
    }
    for (int i : {2, 3}) EXPECT_EQ(part(i)->duration(), 150);
}

TEST_F(Sliding, TakesTheSpeedAndEaseThatWereSetAndFadesInHalfOfItRoundedDown) {
    stack.setSpeed(301);
    stack.setAnimation(QEasingCurve::OutQuint);
    stack.slideInIdx(1);
    ASSERT_TRUE(slide());
    for (int i : {0, 1}) {
        EXPECT_EQ(part(i)->duration(), 301);
        EXPECT_EQ(int(part(i)->easingCurve().type()), 14);
    }
    for (int i : {2, 3}) EXPECT_EQ(part(i)->duration(), 150);
}

TEST_F(Sliding, EachDirectionHasItsOffsets) {
    const struct {
        Stack::t_direction direction;
        QPoint leavingEnd;
        QPoint comingStart;
    } rows[] = {
        {Stack::LEFT2RIGHT, {w(), 0}, {-w(), 0}},
        {Stack::RIGHT2LEFT, {-w(), 0}, {w(), 0}},
        // In a vertical slide the coming page starts where the leaving page goes.
        {Stack::TOP2BOTTOM, {0, h()}, {0, h()}},
        {Stack::BOTTOM2TOP, {0, -h()}, {0, -h()}},
    };
    int page = 0;
    for (const auto& row : rows) {
        SCOPED_TRACE(int(row.direction));
        page = 1 - page;
        stack.slideInWgt(pages[page], row.direction);
        expectSlide(row.leavingEnd, row.comingStart);
        finish();
        EXPECT_EQ(stack.currentIndex(), page);
    }
}

TEST_F(Sliding, TheDirectionsHaveTheirNumbers) {
    EXPECT_EQ(int(Stack::LEFT2RIGHT), 0);
    EXPECT_EQ(int(Stack::RIGHT2LEFT), 1);
    EXPECT_EQ(int(Stack::TOP2BOTTOM), 2);
    EXPECT_EQ(int(Stack::BOTTOM2TOP), 3);
    EXPECT_EQ(int(Stack::AUTOMATIC), 4);
}

TEST_F(Sliding, TheAutomaticDirectionFollowsTheOrderOfThePages) {
    stack.slideInIdx(2);
    expectSlide({-w(), 0}, {w(), 0});
    finish();
    stack.slideInIdx(0);
    expectSlide({w(), 0}, {-w(), 0});
    finish();
    stack.setVerticalMode(true);
    stack.slideInIdx(1);
    expectSlide({0, h()}, {0, h()});
    finish();
    stack.slideInIdx(0);
    expectSlide({0, -h()}, {0, -h()});
    finish();
}

TEST_F(Sliding, TheComingPageGetsTheSizeOfTheFrameAndIsShownOnTop) {
    stack.setFrameShape(QFrame::Box);
    stack.setLineWidth(3);
    settle();
    stack.slideInIdx(1);
    ASSERT_TRUE(slide());
    EXPECT_EQ(pages[1]->size(), stack.frameRect().size());
    EXPECT_TRUE(pages[1]->isVisible());
    EXPECT_TRUE(pages[0]->isVisible());
    const QObjectList& order = stack.children();
    EXPECT_GT(order.indexOf(pages[1]), order.indexOf(pages[0]));
    EXPECT_EQ(part(0)->startValue().toPoint(), QPoint(3, 3));
    EXPECT_EQ(part(0)->endValue().toPoint(), QPoint(3 - w(), 3));
}

TEST_F(Sliding, TheEndMakesTheComingPageCurrentAndPutsTheLeavingPageBack) {
    QSignalSpy finished(&stack, &Stack::animationFinished);
    const QPoint before = pages[0]->pos();
    stack.slideInIdx(2);
    EXPECT_EQ(stack.currentIndex(), 0);
    finish();
    EXPECT_EQ(stack.currentIndex(), 2);
    EXPECT_FALSE(pages[0]->isVisible());
    EXPECT_EQ(pages[0]->pos(), before);
    EXPECT_TRUE(pages[2]->isVisible());
    EXPECT_EQ(pages[2]->pos(), QPoint(0, 0));
    ASSERT_EQ(finished.size(), 1);
    EXPECT_EQ(finished.at(0).at(0).toInt(), 2);
}

TEST_F(Sliding, TheOpacityEffectsGoWhenTheFadesEndAndNotWithTheSlide) {
    stack.slideInIdx(1);
    ASSERT_TRUE(slide());
    const QPointer<QGraphicsEffect> leaving = pages[0]->graphicsEffect();
    const QPointer<QGraphicsEffect> coming = pages[1]->graphicsEffect();
    ASSERT_TRUE(leaving && coming);
    EXPECT_EQ(qobject_cast<QGraphicsOpacityEffect*>(coming)->opacity(), 0.0);
    slide()->setCurrentTime(149);
    settle();
    EXPECT_TRUE(leaving && coming);
    slide()->setCurrentTime(150);
    settle();
    EXPECT_FALSE(leaving);
    EXPECT_FALSE(coming);
    EXPECT_TRUE(slide());
    finish();
    EXPECT_FALSE(pages[1]->graphicsEffect());
}

TEST_F(Sliding, ARequestDuringASlideIsDropped) {
    QSignalSpy finished(&stack, &Stack::animationFinished);
    stack.slideInIdx(1);
    QParallelAnimationGroup* running = slide();
    stack.slideInIdx(2);
    stack.slideInWgt(pages[0], Stack::AUTOMATIC);
    EXPECT_EQ(stack.findChildren<QParallelAnimationGroup*>().size(), 1);
    EXPECT_EQ(slide(), running);
    finish();
    EXPECT_EQ(stack.currentIndex(), 1);
    EXPECT_EQ(finished.size(), 1);
}

TEST_F(Sliding, ASlideToTheCurrentPageEndsAtOnceAndEmitsNothing) {
    QSignalSpy finished(&stack, &Stack::animationFinished);
    stack.slideInIdx(0);
    EXPECT_FALSE(slide());
    EXPECT_EQ(finished.size(), 0);
    stack.slideInIdx(1);
    EXPECT_TRUE(slide()) << "the running mark was left set";
}

TEST_F(Sliding, AWidgetThatIsNoPageChangesNothing) {
    QWidget foreign;
    for (QWidget* widget : {static_cast<QWidget*>(nullptr), &foreign}) {
        stack.slideInWgt(widget, Stack::LEFT2RIGHT);
        EXPECT_FALSE(slide());
        EXPECT_EQ(stack.currentIndex(), 0);
    }
    EXPECT_FALSE(foreign.isVisible());
    stack.slideInIdx(1);
    EXPECT_TRUE(slide()) << "the running mark was left set";
}

TEST_F(Sliding, AnIndexAtTheCountGoesToPageZeroRightToLeft) {
    stack.setCurrentIndex(1);
    stack.slideInIdx(3);
    expectSlide({-w(), 0}, {w(), 0});
    finish();
    EXPECT_EQ(stack.currentIndex(), 0);
}

TEST_F(Sliding, MinusOneGoesToTheLastPageLeftToRight) {
    stack.slideInIdx(-1);
    expectSlide({w(), 0}, {-w(), 0});
    finish();
    EXPECT_EQ(stack.currentIndex(), 2);
}

TEST_F(Sliding, BeyondTheEndsAVerticalStackSlidesVertically) {
    stack.setVerticalMode(true);
    stack.slideInIdx(-1, Stack::LEFT2RIGHT);
    expectSlide({0, -h()}, {0, -h()});
    finish();
    stack.slideInIdx(3, Stack::LEFT2RIGHT);
    expectSlide({0, h()}, {0, h()});
    finish();
}

TEST_F(Sliding, IndexesBeyondOneTurnAreTakenRoundUpwardsAndIgnoredDownwards) {
    stack.slideInIdx(7);
    ASSERT_TRUE(slide());
    finish();
    EXPECT_EQ(stack.currentIndex(), 1);
    stack.slideInIdx(-4);
    EXPECT_FALSE(slide());
    stack.slideInIdx(0);
    EXPECT_TRUE(slide()) << "the running mark was left set";
}

TEST_F(Sliding, NextStopsAtTheLastPageUnlessItWraps) {
    EXPECT_TRUE(stack.slideInNext());
    finish();
    EXPECT_EQ(stack.currentIndex(), 1);
    stack.setCurrentIndex(2);
    EXPECT_FALSE(stack.slideInNext());
    EXPECT_FALSE(slide());
    EXPECT_EQ(stack.currentIndex(), 2);
    stack.setWrap(true);
    EXPECT_TRUE(stack.slideInNext());
    expectSlide({-w(), 0}, {w(), 0});
    finish();
    EXPECT_EQ(stack.currentIndex(), 0);
}

TEST_F(Sliding, PreviousStopsAtTheFirstPageUnlessItWraps) {
    EXPECT_FALSE(stack.slideInPrev());
    EXPECT_FALSE(slide());
    EXPECT_EQ(stack.currentIndex(), 0);
    stack.setWrap(true);
    EXPECT_TRUE(stack.slideInPrev());
    expectSlide({w(), 0}, {-w(), 0});
    finish();
    EXPECT_EQ(stack.currentIndex(), 2);
    stack.setWrap(false);
    EXPECT_TRUE(stack.slideInPrev());
    finish();
    EXPECT_EQ(stack.currentIndex(), 1);
}

TEST_F(Sliding, AtSpeedZeroTheSlideEndsInsideTheCall) {
    QSignalSpy finished(&stack, &Stack::animationFinished);
    stack.setSpeed(0);
    for (int page : {2, 1, 0}) {
        stack.slideInIdx(page);
        EXPECT_EQ(stack.currentIndex(), page);
    }
    EXPECT_EQ(finished.size(), 3);
    settle();
    EXPECT_FALSE(slide());
    for (QWidget* page : pages) EXPECT_FALSE(page->graphicsEffect());
    EXPECT_TRUE(pages[0]->isVisible());
    EXPECT_FALSE(pages[1]->isVisible() || pages[2]->isVisible());
}

TEST_F(Sliding, AReceiverOfTheEndMaySlideOn) {
    stack.setSpeed(0);
    QObject::connect(&stack, &Stack::animationFinished, &stack, [this](int page) {
        if (page == 1) stack.slideInIdx(2);
    });
    stack.slideInIdx(1);
    EXPECT_EQ(stack.currentIndex(), 2);
}

TEST(SlidingStackedWidgets, AnEmptyStackIgnoresEveryRequest) {
    Stack stack;
    stack.slideInIdx(0);
    stack.slideInIdx(3);
    stack.slideInIdx(-1);
    stack.slideInWgt(nullptr, Stack::AUTOMATIC);
    EXPECT_FALSE(stack.slideInPrev());
    EXPECT_EQ(stack.currentIndex(), -1);
    auto* first = new QWidget;
    auto* second = new QWidget;
    stack.addWidget(first);
    stack.addWidget(second);
    stack.setSpeed(0);
    stack.slideInIdx(1);
    EXPECT_EQ(stack.currentIndex(), 1) << "the running mark was left set";
}

TEST(SlidingStackedWidgets, MayGoWhileASlideRuns) {
    auto stack = std::make_unique<Stack>();
    stack->addWidget(new QWidget);
    stack->addWidget(new QWidget);
    stack->show();
    stack->slideInIdx(1);
    EXPECT_TRUE(stack->findChild<QParallelAnimationGroup*>());
    stack.reset();
    settle();
}

TEST(SlidingStackedWidgets, TheMetaObjectReachesTheSlotsInTheirOrder) {
    const QMetaObject& meta = Stack::staticMetaObject;
    int last = meta.methodOffset() - 1;
    for (const char* slot :
         {"setSpeed(int)", "setAnimation(QEasingCurve::Type)", "setVerticalMode(bool)",
          "setWrap(bool)", "slideInNext()", "slideInPrev()", "animationDoneSlot()"}) {
        const int index = meta.indexOfSlot(slot);
        EXPECT_GT(index, last) << slot;
        last = index;
    }
}

}  // namespace
