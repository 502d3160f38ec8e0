/// Screen scaling is asked hundreds of times, from everywhere, and may fail at any of them.
#include <QLayout>
#include <QStackedWidget>

#include "tests/dialog/HostileUse.h"

namespace {

using namespace dialog_tests;

using As = workbench::ThrowRule::As;

using testing_support::scalingCalls;

class Scaling : public HostileUse {
  protected:
    void SetUp() override {
        // One card of each sort keeps the number of places small.
        host.clearModels();
        host.setModels(QStringLiteral("Kvys"), 0, {model(QStringLiteral("甲"))});
        host.addTemplate(QStringLiteral("kvys"), QStringLiteral("t.MODX"));
    }
    /// @return how often `act` calls a host operation.
    template <typename Act>
    static int callsOf(const char* call, Act act) {
        throwNoMore();
        throwAt(call, As::StdException, -1);
        act();
        const int seen = workbench::Host::instance().switches().throws.constFirst().seen;
        throwNoMore();
        return seen;
    }
    /// The kinds take turns, so that each of them comes out of every region.
    static const testing_support::Thrown& kindOf(int nth) {
        const auto& kinds = testing_support::thrownKinds();
        return kinds[size_t(nth) % kinds.size()];
    }
};

TEST_F(Scaling, MayFailAtEveryCallOfTheConstructor) {
    for (const char* call : scalingCalls) {
        const int calls = callsOf(call, [this] { make(); });
        ASSERT_GT(calls, 50);
        for (int nth = 1; nth <= calls; ++nth) {
            SCOPED_TRACE(std::string(call) + " #" + std::to_string(nth) + " throws " +
                         kindOf(nth).name);
            dialog.reset();
            throwAt(call, kindOf(nth).as, nth);
            make();
            const Lines reported = reports();
            throwNoMore();
            ASSERT_EQ(reported.size(), 1u);
            const std::string text = std::string(": ") + kindOf(nth).reported;
            EXPECT_EQ(reported[0].substr(reported[0].size() - text.size()), text);
            useEverything();
            host.switches().firstPage = workbench::FirstPage::Ready;
        }
    }
}

TEST_F(Scaling, LeavesNoPartOfTheWindowOutsideItsLayouts) {
    const int calls = callsOf(scalingCalls[0], [this] { make(); });
    int stayed = 0;
    for (int nth = 1; nth <= calls; ++nth) {
        SCOPED_TRACE(nth);
        dialog.reset();
        throwAt(scalingCalls[0], kindOf(nth).as, nth);
        make();
        throwNoMore();
        const auto* header = dialog->findChild<QWidget*>(QStringLiteral("header"));
        EXPECT_TRUE(!header || dialog->layout()->indexOf(find<QWidget>("header")) == 0);
        const auto* stack = dialog->findChild<QStackedWidget*>(QStringLiteral("m_StackedWidget"));
        if (!stack) continue;
        EXPECT_TRUE(dialog->layout()->itemAt(1) && dialog->layout()->itemAt(1)->layout() &&
                    dialog->layout()->itemAt(1)->layout()->indexOf(pageStack()) == 0);
        if (!dialog->findChild<QWidget*>(QStringLiteral("pMiddlePanelV"))) continue;
        EXPECT_EQ(pageStack()->indexOf(find<QWidget>("pMiddlePanelV")), 0);
        ++stayed;
    }
    EXPECT_GT(stayed, 0);
}

TEST_F(Scaling, LeavesTheCardsPlacedSoFarWithinReach) {
    QList<TaxTemplateInfo> models;
    for (int i = 0; i < 20; ++i) models << model(QString::number(i));
    const auto load = [&](int count) {
        host.setModels(QStringLiteral("Kvys"), 0, models.mid(0, count));
        call("GetModelCfgAndInitData");
    };
    open();
    const int calls = callsOf(scalingCalls[0], [&] { load(models.size()); });
    const int roomOfTheWindow = taxStack()->parentWidget()->height();
    int highest = 0;
    for (int nth = calls / 2; nth <= calls; ++nth) {
        load(1);  // so that the list is low again
        throwAt(scalingCalls[0], kindOf(nth).as, nth);
        load(models.size());
        throwNoMore();
        settle();
        const int needed = list("lswGeneralTax")->count() * 80;
        EXPECT_GE(taxStack()->height(), needed) << "at call " << nth;
        highest = qMax(highest, needed);
    }
    EXPECT_GT(highest, roomOfTheWindow) << "some of the loads must need the scroll bar";
}

TEST_F(Scaling, MayFailAtEveryCallOfTheLoaderAndAReloadSucceeds) {
    for (const char* call : scalingCalls) {
        open();
        const int calls = callsOf(call, [this] { this->call("GetModelCfgAndInitData"); });
        ASSERT_GT(calls, 10);
        for (int nth = 1; nth <= calls; ++nth) {
            SCOPED_TRACE(std::string(call) + " #" + std::to_string(nth) + " throws " +
                         kindOf(nth).name);
            open();
            throwAt(call, kindOf(nth).as, nth);
            ASSERT_TRUE(this->call("GetModelCfgAndInitData"));
            throwNoMore();
            EXPECT_EQ(reports().size(), 1u);
            clearJournal();
            ASSERT_TRUE(this->call("GetModelCfgAndInitData"));
            settle();
            EXPECT_EQ(reports(), Lines{});
            EXPECT_EQ(titles("lswGeneralTax"), QStringList{QStringLiteral("甲")});
            EXPECT_EQ(list("lswTemplateEng")->count(), 1);
            click(child<zBaseButton>(card("lswGeneralTax", 0), "btnNewProject"));
            EXPECT_EQ(flowLines().back(), "signal SignalCreatePro(4, 95)");
            dialog.reset();
            expectNoStrays();
        }
    }
}

TEST_F(Scaling, MayFailWhileTheDialogIsShownResizedAndUsed) {
    const auto use = [this] {
        dialog->show();
        settle();
        for (const char* name : {"simpleTaxButton", "templateButton", "generalTaxButton"}) {
            button(name)->click();
        }
        tree()->resize(333, 200);
        entry(auditLabel)->trigger();
        entry(budgetLabel)->trigger();
        settle();
        dialog->grab();
    };
    const char* const call = scalingCalls[0];
    make();
    const int calls = callsOf(call, use);
    ASSERT_GT(calls, 10);
    for (int nth = 1; nth <= calls; ++nth) {
        SCOPED_TRACE(nth);
        make();
        throwAt(call, kindOf(nth).as, nth);
        use();
        throwNoMore();
        EXPECT_EQ(reports().size(), 1u);
        clearJournal();
        use();
        EXPECT_EQ(reports(), Lines{});
        EXPECT_EQ(list("lswGeneralTax")->count(), 1);
        dialog.reset();
        expectNoStrays();
    }
}

TEST_F(Scaling, MayFailInTheDestructor) {
    open();
    throwAt("InterfaceAdaptation::getInstance", As::Literal);
    dialog.reset();
    EXPECT_EQ(reports(), Lines{"NewProCfgDialog NewProCfgDialog::~NewProCfgDialog: boom"});
    throwNoMore();
    expectNoStrays();
}

}  // namespace
