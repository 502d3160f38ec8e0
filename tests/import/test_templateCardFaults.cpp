// What goes wrong around a template card: it is reported once, and the card still offers its file.
#include <QSignalSpy>
#include <memory>

#include "tests/import/TemplateCard.h"

namespace {

using namespace testing_support;

TEST_F(TemplateCard, reports_a_receiver_s_exception_and_stays_usable) {
    TemplateProListItem card(file);
    card.show();
    int asked = 0;
    QObject::connect(&card, &TemplateProListItem::signalCreateProByTemaplte, [&] {
        if (++asked % 2) throw QStringLiteral("receiver");
    });
    click(newButton(&card));
    EXPECT_TRUE(newButton(&card)->isEnabled());
    doubleClick(&card);
    doubleClick(&card);
    EXPECT_EQ(asked, 3);
    EXPECT_EQ(journalLines({"exception"}),
              Lines({"exception TemplateProListItem::slotNewProject: receiver",
                     "exception TemplateProListItem::mouseDoubleClickEvent: receiver"}));
}

TEST_F(TemplateCard, reports_every_kind_of_exception_once_and_still_offers_its_file) {
    for (const Thrown& thrown : thrownKinds()) {
        SCOPED_TRACE(thrown.name);
        clearJournal();
        throwNoMore();
        throwAt("CpfMain::GetAreaConfigValue", thrown.as);
        TemplateProListItem card(file);
        card.show();
        const QVector<QJsonObject> reports = entriesOf("TemplateProListItem::InitWidgetDisplay");
        ASSERT_EQ(reports.size(), 1);
        const QJsonArray args = reports.first().value(QLatin1String("args")).toArray();
        EXPECT_EQ(args.at(0).toString(), QStringLiteral("TemplateProListItem"));
        EXPECT_GT(args.at(1).toInt(), 0);
        EXPECT_EQ(args.at(3).toString(), QString::fromUtf8(thrown.reported));
        EXPECT_EQ(countOf("exception"), 1);
        EXPECT_EQ(text(&card, "lblTitle"), QStringLiteral("住宅楼.v2"));
        const QSignalSpy created(&card, &TemplateProListItem::signalCreateProByTemaplte);
        click(newButton(&card));
        EXPECT_EQ(created.count(), 1);
    }
}

/// Throws at the nth of these: a card gets its title, a layout gets another one in it. (Not where a
/// widget gets a part: Qt does not take back its own constructors.)
class FailingEvents : public QObject {
  public:
    explicit FailingEvents(int nth) : left(nth) { qApp->installEventFilter(this); }
    bool threw() const { return left <= 0; }
    bool eventFilter(QObject* watched, QEvent* event) override {
        const auto wanted =
            watched->isWidgetType() ? QEvent::WindowTitleChange : QEvent::ChildAdded;
        if (event->type() == wanted && --left == 0) throw QStringLiteral("event");
        return false;
    }

  private:
    int left;
};

/// Everything that a host may call, on a card that may have been built only in part.
void useEverything(TemplateProListItem& card, const QString& file) {
    const QSignalSpy created(&card, &TemplateProListItem::signalCreateProByTemaplte);
    EXPECT_TRUE(QMetaObject::invokeMethod(&card, "InitWidgetDisplay"));
    EXPECT_TRUE(QMetaObject::invokeMethod(&card, "slotNewProject"));
    card.show();
    settle();
    doubleClick(&card);
    ASSERT_EQ(created.count(), 2);
    EXPECT_EQ(created.at(0).at(0).toString(), file);
    const auto* button = card.findChild<zBaseButton*>();
    EXPECT_TRUE(!button || button->isEnabled());
    EXPECT_EQ(countOf("exception"), 1);
}

TEST_F(TemplateCard, offers_its_file_however_little_of_it_was_built) {
    // Neither layouts nor parts; no parts; its title and its button alone.
    const int labels[] = {0, 0, 1};
    for (int nth = 1; nth <= 3; ++nth) {
        SCOPED_TRACE(nth);
        clearJournal();
        auto failing = std::make_unique<FailingEvents>(nth);
        TemplateProListItem card(file);
        ASSERT_TRUE(failing->threw());
        failing.reset();
        EXPECT_EQ(card.findChildren<QLabel*>().size(), labels[nth - 1]);
        useEverything(card, file);
    }
}

TEST_F(TemplateCard, stays_usable_whichever_host_call_of_it_throws) {
    SharedInterface::firstOpenClose = 1;
    for (const char* call : {scalingCalls[0], scalingCalls[1], "CpfMain::GetInstance",
                             "CpfMain::GetAreaConfigValue"}) {
        std::unique_ptr<TemplateProListItem> card;
        const auto make = [&] {
            clearJournal();
            card = std::make_unique<TemplateProListItem>(file, QString(), QString(), nullptr);
        };
        EXPECT_GT(withEveryCallThrowing(call, make, [&] { useEverything(*card, file); }), 0);
    }
}

}  // namespace
