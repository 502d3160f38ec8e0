/// Scrolling by wheel and touchpad: by pixels, and at the cost of what is in sight.
#include <QStyleFactory>
#include <map>

#include "tests/dialog/KeyboardFixture.h"
#include "tests/support/Wheel.h"

namespace {

using namespace dialog_tests;
using testing_support::stroke;
using testing_support::turn;

class Scrolling : public Keyboard {
  protected:
    /// What widgets have to do, while it lives.
    class Work : public QObject {
      public:
        Work() { qApp->installEventFilter(this); }
        bool eventFilter(QObject* watched, QEvent* event) override {
            if (watched->isWidgetType()) ++events[event->type()];
            return false;
        }
        std::map<QEvent::Type, int> events;
    };
    /// @return what a notch of a wheel and a part of one come to, amid a list of so many models.
    std::vector<std::map<QEvent::Type, int>> workOfSteps(int models) {
        QList<TaxTemplateInfo> list;
        for (int i = 0; i < models; ++i) list << model(QString::number(i));
        host.setModels(QStringLiteral("Kvys"), 0, list);
        open();
        EXPECT_EQ(cards()->count(), models);
        std::vector<std::map<QEvent::Type, int>> steps;
        for (const int angle : {-120, -16}) {
            bar()->setValue(400);
            settle();
            const Work work;
            turn(cards()->viewport(), angle);
            settle();
            EXPECT_GT(bar()->value(), 400);
            steps.push_back(work.events);
        }
        return steps;
    }
};

TEST_F(Scrolling, IsByPixels) {
    open();
    QWidget* shown = find<QScrollArea>("taxPageArea")->viewport();
    turn(cards()->viewport(), -120);
    EXPECT_GT(bar()->value(), 0);
    EXPECT_LT(bar()->value(), 80) << "a notch is less than a card";
    const int before = bar()->value();
    turn(cards()->viewport(), -16);
    EXPECT_GT(bar()->value(), before) << "a touchpad sends parts of a notch";
    EXPECT_LT(bar()->value(), before + 12);
    const int half = bar()->value();
    stroke(cards()->viewport(), -16, -6);
    EXPECT_NEAR(bar()->value() - half, half - before, 1) << "also where it counts pixels";
    EXPECT_GT(shown->height(), 80);
    for (int i = 0; i < 40; ++i)
        host.addTemplate(QStringLiteral("kvys"), QStringLiteral("模板%1.MODX").arg(i));
    openTree();
    const int rowHeight = tree()->visualItemRect(tree()->topLevelItem(0)).height();
    turn(tree()->viewport(), -16);
    const int offset = -tree()->visualItemRect(tree()->topLevelItem(0)).top();
    EXPECT_GT(offset, 0);
    EXPECT_LT(offset, rowHeight) << "not by whole rows";
    const std::unique_ptr<QStyle> other(QStyleFactory::create(QStringLiteral("Fusion")));
    tree()->setStyle(other.get());
    EXPECT_EQ(tree()->verticalScrollMode(), QAbstractItemView::ScrollPerPixel) << "of any host";
    tree()->setStyle(nullptr);
}

TEST_F(Scrolling, IsNeverSideways) {
    open();
    taxStack()->setMinimumWidth(2 * dialog->width());
    settle();
    auto* area = find<QScrollArea>("taxPageArea");
    EXPECT_TRUE(area->verticalScrollBar()->isVisible());
    EXPECT_FALSE(area->horizontalScrollBar()->isVisible());
}

/// The time of it is measured in docs/measures.md; this is what it is made of.
TEST_F(Scrolling, IsNoMoreWorkInALongList) {
    const auto few = workOfSteps(30);
    EXPECT_GT(few[0].at(QEvent::Paint), 10);
    EXPECT_EQ(workOfSteps(3000), few);
}

}  // namespace
