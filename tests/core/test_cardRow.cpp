/// Rows that show a card: their place and height, their items, and what waits for them.
#include "core/cardRow.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include "core/listItemPool.h"
#include "core/polish.h"
#include "core/rowButtons.h"
#include "core/scale.h"
#include "tests/support/TestSupport.h"

namespace {

using newpro::ListItemPool;

/// Counts the events of one type that reach a widget or what is in it.
class EventCount : public QObject {
  public:
    EventCount(QWidget* widget, QEvent::Type type) : type(type) {
        widget->installEventFilter(this);
        for (QObject* part : widget->children()) part->installEventFilter(this);
    }
    int count = 0;

  private:
    bool eventFilter(QObject*, QEvent* event) override {
        count += event->type() == type;
        return false;
    }
    QEvent::Type type;
};

bool isPolished(const QWidget& widget) {
    return widget.testAttribute(Qt::WA_WState_Polished);
}

class CardRows : public testing::Test {
  protected:
    /// @return the card, which has joined the list.
    QLabel* append(const QString& text,
                   std::unique_ptr<QListWidgetItem> item = std::make_unique<QListWidgetItem>()) {
        auto card = std::make_unique<QLabel>(text);
        QLabel* shown = card.get();
        newpro::appendCard(&list, std::move(item), std::move(card));
        return shown;
    }
    QSize rowSize(int row) const { return list.item(row)->sizeHint(); }

    testing_support::TemporaryInstallation host;
    QListWidget list;
};

TEST_F(CardRows, StandAtTheEndOfTheListInTheirOrder) {
    list.addItem(QStringLiteral("already there"));
    for (const char* name : {"a", "b", "c"}) {
        QLabel* card = append(QLatin1String(name));
        QListWidgetItem* last = list.item(list.count() - 1);
        EXPECT_EQ(list.itemWidget(last), card);
    }
    EXPECT_EQ(list.count(), 4);
    EXPECT_EQ(list.item(0)->text(), QStringLiteral("already there"));
}

TEST_F(CardRows, TakeTheItemThatTheyAreGiven) {
    auto item = std::make_unique<QListWidgetItem>();
    QListWidgetItem* given = item.get();
    given->setData(Qt::UserRole, 17);
    append(QStringLiteral("a"), std::move(item));
    EXPECT_EQ(list.item(0), given);
    EXPECT_EQ(given->data(Qt::UserRole), 17);
}

TEST_F(CardRows, AreEightyHighAtEveryScaleAndAsWideAsTheItemWas) {
    append(QStringLiteral("a"));
    auto wide = std::make_unique<QListWidgetItem>();
    wide->setSizeHint({33, 7});
    append(QStringLiteral("b"), std::move(wide));
    EXPECT_EQ(rowSize(0), QSize(-1, 80));
    EXPECT_EQ(rowSize(1), QSize(33, 80));
    workbench::Host::instance().setScale(1.5);
    append(QStringLiteral("c"));
    EXPECT_EQ(rowSize(2), QSize(-1, 120));
}

TEST_F(CardRows, HaveTheirStyleAndLeaveNoRequestInTheQueue) {
    list.resize(300, 300);
    list.show();
    testing_support::settle();
    auto frame = std::make_unique<QWidget>();
    auto* layout = new QVBoxLayout(frame.get());
    auto* text = new QLabel(QStringLiteral("a"), frame.get());
    layout->addWidget(text);
    EventCount polish(frame.get(), QEvent::PolishRequest);
    EventCount layoutRequest(frame.get(), QEvent::LayoutRequest);
    QWidget* card = frame.get();
    newpro::appendCard(&list, std::make_unique<QListWidgetItem>(), std::move(frame));
    EXPECT_TRUE(isPolished(*card));
    testing_support::settle();
    EXPECT_EQ(polish.count, 0);
    EXPECT_EQ(layoutRequest.count, 0);
    EXPECT_TRUE(text->isVisible());
}

/// A card that nobody can show.
class HiddenCard : public QLabel {
  public:
    using QLabel::QLabel;
    void setVisible(bool visible) override {
        if (!visible) QLabel::setVisible(false);
    }
};

TEST_F(CardRows, ThatTheirMakerHidHaveNoStyleAndLeaveNoRequestEither) {
    list.show();
    testing_support::settle();
    auto hidden = std::make_unique<HiddenCard>(QStringLiteral("a"));
    hidden->hide();
    QWidget* card = hidden.get();
    EventCount polish(card, QEvent::PolishRequest);
    newpro::appendCard(&list, std::make_unique<QListWidgetItem>(), std::move(hidden));
    EXPECT_EQ(list.itemWidget(list.item(0)), card);
    testing_support::settle();
    EXPECT_FALSE(isPolished(*card));
    EXPECT_EQ(polish.count, 0);
    EXPECT_EQ(card->geometry(), list.visualItemRect(list.item(0)))
        << "it has its place all the same";
}

TEST_F(CardRows, AreOneStopOfTheKeyboardTheirButtonsArePassedBy) {
    auto card = std::make_unique<QWidget>();
    const auto* button = new QPushButton(card.get());
    ASSERT_NE(button->focusPolicy(), Qt::NoFocus);
    newpro::appendCard(&list, std::make_unique<QListWidgetItem>(), std::move(card));
    EXPECT_EQ(button->focusPolicy(), Qt::NoFocus);
}

/// A card whose place in memory is taken by the next one.
class PlacedCard : public QLabel {
  public:
    using QLabel::QLabel;
    static void* operator new(std::size_t) { return place; }
    static void operator delete(void*) {}

  private:
    alignas(QLabel) static char place[sizeof(QLabel)];
};
alignas(QLabel) char PlacedCard::place[sizeof(QLabel)];

TEST_F(CardRows, ForgetACardThatIsDeleted) {
    list.resize(300, 300);
    list.show();
    auto* card = new PlacedCard(QStringLiteral("a"));
    newpro::appendCard(&list, std::make_unique<QListWidgetItem>(), std::unique_ptr<QWidget>(card));
    append(QStringLiteral("b"));
    testing_support::settle();
    ASSERT_EQ(list.itemWidget(list.item(0)), card);
    delete card;
    EXPECT_FALSE(list.itemWidget(list.item(0)));

    // A list that still held the deleted card would take this window for it, show and move it.
    const std::unique_ptr<QLabel> window(new PlacedCard(QStringLiteral("c")));
    ASSERT_EQ(window.get(), card);
    list.scrollToBottom();
    list.doItemsLayout();
    list.resize(200, 100);
    EXPECT_FALSE(list.grab().isNull());
    testing_support::settle();
    EXPECT_FALSE(window->isVisible());
    list.clear();
    testing_support::settle();
    EXPECT_EQ(list.count(), 0);
    EXPECT_FALSE(window->isVisible());
    EXPECT_EQ(window->text(), QStringLiteral("c"));
}

TEST(Polish, NowIsDoneOnceAndNotAgainByTheQueue) {
    QWidget widget;
    auto* part = new QLabel(QStringLiteral("a"), &widget);
    EventCount requests(&widget, QEvent::PolishRequest);
    newpro::polishNow(&widget);
    EXPECT_TRUE(isPolished(widget));
    testing_support::settle();
    EXPECT_EQ(requests.count, 0);
    widget.show();
    EXPECT_TRUE(isPolished(*part));
}

TEST(Polish, OfAWidgetThatSomebodyHidIsToldFromThatOfANewOne) {
    QWidget window;
    QWidget part(&window);
    EXPECT_FALSE(newpro::isKeptHidden(&part));
    part.hide();
    EXPECT_TRUE(newpro::isKeptHidden(&part));
    part.show();
    EXPECT_FALSE(newpro::isKeptHidden(&part));
}

TEST(Polish, WhenShownWaitsForTheShowing) {
    QWidget widget;
    auto* part = new QLabel(QStringLiteral("a"), &widget);
    newpro::polishWhenShown(&widget);
    testing_support::settle();
    EXPECT_FALSE(isPolished(widget));
    EXPECT_FALSE(isPolished(*part));
    widget.show();
    EXPECT_TRUE(isPolished(widget));
    EXPECT_TRUE(isPolished(*part));
}

TEST(RowButtons, AreThePartsOfASplitButtonAndNoneWithoutARow) {
    QWidget row;
    auto* plain = new QPushButton(&row);
    auto* split = new QPushButton(&row);
    auto* part = new QPushButton;
    (new QHBoxLayout(split))->addWidget(part);
    EXPECT_EQ(newpro::rowButtons(&row), (QVector<QAbstractButton*>{plain, part}));
    EXPECT_TRUE(newpro::rowButtons(nullptr).isEmpty());
    newpro::offerToTab(nullptr, true);
    newpro::offerToTab(&row, true);
    EXPECT_EQ(part->focusPolicy(), Qt::TabFocus);
    newpro::offerToTab(&row, false);
    EXPECT_EQ(part->focusPolicy(), Qt::NoFocus);
}

TEST(Scaled, SizesFollowTheScreen) {
    const testing_support::TemporaryInstallation host;
    EXPECT_EQ(newpro::scaled(80), 80);
    workbench::Host::instance().setScale(1.5);
    EXPECT_EQ(newpro::scaled(80), 120);
    EXPECT_EQ(newpro::scaled(0), 0);
}

TEST(ItemPool, MakesAnItemWhereItKeepsNone) {
    ListItemPool pool;
    EXPECT_TRUE(pool.take());
}

TEST(ItemPool, HandsOutWhatItKeepsEmptiedAndEachOnce) {
    ListItemPool pool;
    auto* kept = new QListWidgetItem(QStringLiteral("a"));
    kept->setData(Qt::UserRole, 17);
    kept->setSizeHint({3, 4});
    pool.keep(kept);
    const std::unique_ptr<QListWidgetItem> item = pool.take();
    EXPECT_EQ(item.get(), kept);
    EXPECT_EQ(item->text(), QString());
    EXPECT_FALSE(item->data(Qt::UserRole).isValid());
    EXPECT_EQ(item->sizeHint(), QSize());
    const std::unique_ptr<QListWidgetItem> another = pool.take();
    EXPECT_TRUE(another);
    EXPECT_NE(another, item);
}

}  // namespace
