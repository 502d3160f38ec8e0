#include <QFile>
#include <QLayout>

#include "tests/models/CardFixture.h"
#include "tests/support/StyleOf.h"

namespace {

using namespace card_tests;
using testing_support::StyleOf;

TEST_F(Card, AsksTheConfigurationOfTheBudgetTypeOnce) {
    make(model(name));
    EXPECT_EQ(journalLines({"ProjectSettingHelper::GetPricingModelInfoMap"}),
              Lines{R"(call ProjectSettingHelper::GetPricingModelInfoMap("Kvys", ""))"});
}

TEST_F(Card, ThePlainButtonCreatesTheModelAsItIs) {
    TaxTemplateInfo info = model(name, QStringLiteral("甲"), QStringLiteral("乙"));
    info.carriedText = QStringLiteral("carried");
    info.flag = 9;
    make(info);
    click(newButton());
    ASSERT_EQ(created.size(), 1);
    const TaxTemplateInfo& got = created.at(0);
    EXPECT_EQ(got.name, name);
    EXPECT_EQ(got.key, info.key);
    EXPECT_EQ(got.description, info.description);
    EXPECT_EQ(got.basis, info.basis);
    EXPECT_EQ(got.basisDocument, info.basisDocument);
    EXPECT_EQ(got.carriedText, QStringLiteral("carried"));
    EXPECT_EQ(got.feeMode, QStringLiteral("甲"));
    EXPECT_EQ(got.alternativeFeeMode, QStringLiteral("乙"));
    EXPECT_EQ(got.flag, 9);
    EXPECT_EQ(got.leadingBasisDocument, info.leadingBasisDocument);
}

TEST_F(Card, WithoutRecordOrModesTheButtonStaysPlain) {
    make(model(name));
    EXPECT_EQ(parts().size(), 0);
    configure({}, whole);
    make(model(name, QStringLiteral("甲"), QStringLiteral("乙")));
    EXPECT_EQ(parts().size(), 0);
    EXPECT_EQ(newButton()->text(), QStringLiteral("新建"));
    click(newButton());
    ASSERT_EQ(created.size(), 1);
    EXPECT_EQ(created.at(0).feeMode, QStringLiteral("甲"));
    EXPECT_EQ(created.at(0).alternativeFeeMode, whole);
}

TEST_F(Card, TheButtonIsCalledByTheModelThatItCreatesFrom) {
    make(model(name));
    EXPECT_EQ(newButton()->accessibleName(), QStringLiteral("新建：某模式"));
    configure({whole, single}, whole);
    make(model(name));
    EXPECT_EQ(newButton()->accessibleName(), QStringLiteral("新建：某模式"));
    EXPECT_EQ(left()->accessibleName(), QStringLiteral("新建：某模式"));
    EXPECT_EQ(right()->accessibleName(), QStringLiteral("选择计费方式"));
    QDialog dialog;
    card->setParent(&dialog);
    EXPECT_FALSE(left()->autoDefault() || right()->autoDefault()) << "Enter presses no button";
    card->setParent(nullptr);
    const QString description = QStringLiteral("按此计价模型新建工程");
    EXPECT_EQ(left()->accessibleDescription(), description);
    EXPECT_EQ(newButton()->accessibleDescription(), QString());
    card->UpdateDataDisplay();
    EXPECT_EQ(left()->accessibleDescription(), description);
    EXPECT_EQ(newButton()->accessibleDescription(), QString()) << "it is said of the part";
}

TEST_F(Card, ExactlyOneModeIsTheModeOfTheProject) {
    configure({whole}, single);
    make(model(name, QStringLiteral("甲")));
    EXPECT_EQ(parts().size(), 0);
    click(newButton());
    ASSERT_EQ(created.size(), 1);
    EXPECT_EQ(created.at(0).feeMode, whole);
    EXPECT_EQ(created.at(0).alternativeFeeMode, single);
}

TEST_F(Card, WithoutConfigurationTheButtonStaysPlain) {
    configure({whole, single}, whole);
    host.switches().configurationPresent = false;
    make(model(name));
    EXPECT_EQ(parts().size(), 0);
    EXPECT_EQ(testing_support::countOf("exception"), 0);
}

TEST_F(Card, TheRecordIsFoundByItsKeyAndNotByItsName) {
    host.values().pricing.clear();
    host.configure(name, pricing(QStringLiteral("another key"), {whole, single}, whole));
    host.configure(QStringLiteral("z"), pricing(name, {single}, QStringLiteral("second")));
    host.configure(QStringLiteral("a"), pricing(name, {whole}, QStringLiteral("first")));
    make(model(name));
    click(newButton());
    ASSERT_EQ(created.size(), 1);
    EXPECT_EQ(created.at(0).feeMode, whole) << "the first record with the key counts";
    EXPECT_EQ(created.at(0).alternativeFeeMode, QStringLiteral("first"));
}

TEST_F(Card, TwoModesMakeASplitButton) {
    configure({whole, single}, whole);
    make(model(name));
    ASSERT_EQ(parts().size(), 2);
    EXPECT_TRUE(newButton()->text().isEmpty());
    const QMargins margins = newButton()->layout()->contentsMargins();
    EXPECT_EQ(margins, QMargins(1, 0, 1, 0));
    EXPECT_EQ(newButton()->layout()->spacing(), 0);
    EXPECT_EQ(left()->text(), QStringLiteral("新建"));
    EXPECT_LT(left()->x(), right()->x());
    EXPECT_TRUE(right()->text().isEmpty());
    ASSERT_TRUE(qobject_cast<zBaseMenu*>(right()->menu()));
    EXPECT_EQ(right()->menu()->minimumWidth(), 240);
    EXPECT_EQ(right()->menu()->maximumWidth(), 240);
    ASSERT_EQ(entries().size(), 2);
    EXPECT_EQ(entries().at(0)->text(), QStringLiteral("整体计费(措施等费用在项目级计取)"));
    EXPECT_EQ(entries().at(1)->text(), QStringLiteral("单独计费(措施等费用在单位工程计取)"));
}

TEST_F(Card, TheLeftPartCreatesWithTheDefaultMode) {
    for (const QString& mode : {whole, single, QString()}) {
        configure({whole, single}, mode);
        created.clear();
        make(model(name));
        click(left());
        ASSERT_EQ(created.size(), 1);
        EXPECT_EQ(created.at(0).feeMode, mode);
        EXPECT_TRUE(left()->isEnabled());
    }
}

TEST_F(Card, BothEntriesCreateWithThePerUnitModeThatTheBuildLeft) {
    configure({whole, single}, whole);
    make(model(name));
    for (int entry : {0, 1}) {
        created.clear();
        pick(entry);
        ASSERT_EQ(created.size(), 1) << entry;
        EXPECT_EQ(created.at(0).feeMode, single) << entry;
    }
}

TEST_F(Card, APickAfterTheLeftPartCreatesWithTheDefaultMode) {
    configure({whole, single}, whole);
    make(model(name));
    click(left());
    entries().at(1)->trigger();
    ASSERT_EQ(created.size(), 2);
    EXPECT_EQ(created.at(1).feeMode, whole);
}

TEST_F(Card, WithoutThePerUnitModeAPickLeavesTheModelsMode) {
    const QString other = QStringLiteral("其他");
    configure({whole, other, whole}, other);
    make(model(name, QStringLiteral("甲")));
    ASSERT_EQ(entries().size(), 3);
    EXPECT_TRUE(entries().at(1)->text().isEmpty());
    for (QAction* entry : entries()) entry->trigger();
    ASSERT_EQ(created.size(), 3);
    for (const TaxTemplateInfo& each : qAsConst(created)) {
        EXPECT_EQ(each.feeMode, QStringLiteral("甲"));
    }
}

TEST_F(Card, TheLeftPartIsDisabledWhileTheModelIsEmitted) {
    configure({whole, single}, whole);
    make(model(name));
    int checked = 0;
    QObject::connect(card.get(), &ProModelItemForm::signalNewPro, [&] {
        ++checked;
        EXPECT_FALSE(left()->isEnabled());
        EXPECT_TRUE(right()->isEnabled());
    });
    click(left());
    entries().at(0)->trigger();
    EXPECT_EQ(checked, 2);
    EXPECT_TRUE(left()->isEnabled());
}

TEST_F(Card, AClickOnTheFrameOfTheSplitButtonCreatesTheModelAsItStands) {
    configure({whole, single}, whole);
    make(model(name));
    // The frame is the one pixel beside each part that belongs to neither.
    for (const QPoint& edge : {QPoint(0, newButton()->height() / 2),
                               QPoint(newButton()->width() - 1, newButton()->height() / 2)}) {
        created.clear();
        ASSERT_FALSE(newButton()->childAt(edge)) << edge.x();
        QTest::mouseClick(newButton(), Qt::LeftButton, Qt::NoModifier, edge);
        ASSERT_EQ(created.size(), 1);
        EXPECT_EQ(created.at(0).feeMode, single) << "what the build of the menu left";
    }
    click(left());
    ASSERT_EQ(created.size(), 2) << "a click on a part is not one on the frame as well";
    EXPECT_EQ(created.at(1).feeMode, whole);
}

TEST_F(Card, TheControlsHaveTheTypesAndAlignmentsOfTheDesign) {
    configure({whole, single}, whole);
    make(model(name));
    EXPECT_EQ(StyleOf::widget(card.get()).type, 9);
    for (const char* text : {"lblTitle", "lblSource", "lblDescription"}) {
        EXPECT_EQ(StyleOf::widget(label(text)).type, 2) << text;
    }
    EXPECT_EQ(StyleOf::widget(newButton()).type, 88);
    ASSERT_EQ(parts().size(), 2);
    EXPECT_EQ(StyleOf::widget(left()).type, 18);
    EXPECT_EQ(StyleOf::widget(left()).textAlignment, 2);
    EXPECT_EQ(StyleOf::widget(right()).type, 18);
    EXPECT_EQ(StyleOf::widget(right()).iconAlignment, 132);
    for (const QString& picture : StyleOf::widget(right()).icons) {
        EXPECT_EQ(picture, QStringLiteral(":/Image/Home/xjXl.svg")) << "no state has its own";
    }
    EXPECT_TRUE(QFile::exists(QStringLiteral(":/Image/Home/xjXl.svg")));
    EXPECT_EQ(StyleOf::widget(left()).icons[0], QString());
    for (QAction* entry : entries()) EXPECT_TRUE(entry->icon().isNull());
    EXPECT_EQ(newButton()->layout()->contentsMargins(), QMargins(1, 0, 1, 0));
    EXPECT_EQ(newButton()->layout()->spacing(), 0);
}

TEST_F(Card, ADoubleClickCreatesWithTheLeftButtonOnly) {
    make(model(name, whole));
    doubleClick(card.get(), Qt::RightButton);
    doubleClick(card.get(), Qt::MiddleButton);
    EXPECT_EQ(created.size(), 0);
    doubleClick(card.get());
    ASSERT_EQ(created.size(), 1);
    EXPECT_EQ(created.at(0).feeMode, whole);
}

TEST_F(Card, ADoubleClickOnALabelCreatesToo) {
    make(model(name));
    doubleClick(label("lblTitle"));
    EXPECT_EQ(created.size(), 1);
}

TEST_F(Card, ADoubleClickReachesTheWidgetBehind) {
    struct Behind : QWidget {
        int clicks = 0;
        void mouseDoubleClickEvent(QMouseEvent*) override { ++clicks; }
    } behind;
    auto* inside = new ProModelItemForm(model(name), &behind);
    behind.show();
    doubleClick(inside);
    EXPECT_EQ(behind.clicks, 1);
}

class DeletingReceiver : public Card {
  protected:
    void SetUp() override {
        configure({whole, single}, whole);
        form = new ProModelItemForm(model(name), nullptr);
        QObject::connect(form.data(), &ProModelItemForm::signalNewPro, [this] { delete form; });
        form->show();
        settle();
    }
    zBaseButton* part(int i) {
        return child<zBaseButton>(form, "btnNewProject")->findChildren<zBaseButton*>().value(i);
    }
    QPointer<ProModelItemForm> form;
};

TEST_F(DeletingReceiver, MayDeleteTheCardOnADoubleClick) {
    doubleClick(form);
    EXPECT_FALSE(form);
}

TEST_F(DeletingReceiver, MayDeleteTheCardFromTheLeftPart) {
    click(part(0));
    EXPECT_FALSE(form);
}

TEST_F(DeletingReceiver, MayDeleteTheCardFromTheMenu) {
    part(1)->menu()->actions().at(0)->trigger();
    EXPECT_FALSE(form);
}

TEST_F(DeletingReceiver, MayDeleteTheCardFromThePlainButton) {
    auto* plain = new ProModelItemForm(model(QStringLiteral("plain")), nullptr);
    const QPointer<ProModelItemForm> alive = plain;
    QObject::connect(plain, &ProModelItemForm::signalNewPro, [plain] { delete plain; });
    plain->show();
    click(child<zBaseButton>(plain, "btnNewProject"));
    EXPECT_FALSE(alive);
    delete form;
}

TEST_F(Card, AnExceptionOfTheConfigurationIsReportedOnceAndTheCardStillCreates) {
    for (const auto& thrown : testing_support::thrownKinds()) {
        SCOPED_TRACE(thrown.name);
        testing_support::clearJournal();
        testing_support::throwNoMore();
        testing_support::throwAt("ProjectSettingHelper::GetPricingModelInfoMap", thrown.as);
        created.clear();
        make(model(name));
        EXPECT_EQ(journalLines({"exception"}),
                  Lines{"exception ProModelItemForm::UpdateDataDisplay: " +
                        std::string(thrown.reported)});
        click(newButton());
        EXPECT_EQ(created.size(), 1);
    }
}

TEST_F(Card, AnExceptionOfAReceiverIsReportedAndThePartIsEnabledAgain) {
    configure({whole, single}, whole);
    make(model(name));
    QObject::connect(card.get(), &ProModelItemForm::signalNewPro, [] { throw "boom"; });
    click(left());
    entries().at(0)->trigger();
    EXPECT_EQ(journalLines({"exception"}),
              Lines(2, "exception ProModelItemForm::initXjButton: boom"));
    EXPECT_TRUE(left()->isEnabled());
    doubleClick(card.get());
    EXPECT_EQ(testing_support::countOf("exception"), 3);
    const QJsonArray args = testing_support::entriesOf("ProModelItemForm::initXjButton")
                                .at(0)
                                .value(QLatin1String("args"))
                                .toArray();
    EXPECT_EQ(args.at(0).toString(), QStringLiteral("ProModelItemForm"));
}

}  // namespace
