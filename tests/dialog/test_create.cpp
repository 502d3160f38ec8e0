#include <QWindow>

#include "tests/dialog/DialogFixture.h"
#include "workbench/hostlibs/osgi/LoginHook.h"

namespace {

using namespace dialog_tests;
using workbench::FirstPage;

const QString counted = QStringLiteral("定额计价【四川2000定额】");

/// The log-in window, until the end of the scope.
class LoginWindowOfScope {
  public:
    explicit LoginWindowOfScope(std::function<bool()> window) {
        workbench::setLoginWindow(std::move(window));
    }
    ~LoginWindowOfScope() { workbench::setLoginWindow({}); }
    LoginWindowOfScope(const LoginWindowOfScope&) = delete;
    LoginWindowOfScope& operator=(const LoginWindowOfScope&) = delete;
};

class Create : public DialogTest {
  protected:
    void SetUp() override { host.setModels(kvys, 0, {model(counted)}); }
    zBaseButton* newButton() {
        return child<zBaseButton>(card("lswGeneralTax", 0), "btnNewProject");
    }
    static Lines whole() {
        const std::string log = "\"" + GNSJ_XJGC.toStdString() + "\"";
        return {"dialog NewProCfgDialog done 1",
                R"(call osgi::ObjectHelper::GetService("firstPagePlugin"))",
                "call FirstPagePlugin::canStartNew(true)",
                R"(call SharedInterface::UseFunc(13015, ""))",
                "call SharedInterface::InsertFunLog(" + log + R"(, 4, "m"))",
                "call SharedInterface::EndFunLog(" + log + ", false, -1)",
                "signal SignalCreatePro(4, 95)"};
    }
    static Lines first(int count) {
        const Lines all = whole();
        return Lines(all.begin(), all.begin() + count);
    }
};

TEST_F(Create, AClickOnACardCreatesAProjectInThisOrder) {
    open();
    click(newButton());
    EXPECT_EQ(flowLines(), whole());
    EXPECT_EQ(sent.toMap().value(QStringLiteral("m_strProjectType")), QVariant(counted));
    EXPECT_EQ(dialog->result(), int(QDialog::Accepted));
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(Create, ADoubleClickOnACardDoesTheSame) {
    open();
    doubleClick(card("lswGeneralTax", 0));
    EXPECT_EQ(flowLines(), whole());
}

TEST_F(Create, AClosedDialogMayBeShownAndUsedAgain) {
    open();
    for (int i = 0; i < 3; ++i) {
        dialog->show();
        clearJournal();
        click(newButton());
        EXPECT_EQ(flowLines(), whole());
    }
}

TEST_F(Create, AHostThatIsNotReadyClosesTheDialogAndSendsNothing) {
    for (const auto& [state, count] :
         {std::pair(FirstPage::Absent, 2), std::pair(FirstPage::Busy, 3)}) {
        host.switches().firstPage = state;
        open();
        click(newButton());
        EXPECT_EQ(flowLines(), first(count));
        EXPECT_FALSE(dialog->isVisible());
    }
}

TEST_F(Create, TheKindDecidesTheProgramTypeSent) {
    const struct {
        const char* label;
        int type;
    } rows[] = {
        {"概算工程", 4}, {"结算工程", 8}, {"全过程工程", 32}, {"审核工程", 4}, {"预算工程", 4}};
    open();
    for (const char* label : {"概算工程", "结算工程", "全过程工程"}) {
        addKindOnMainPage(QString::fromUtf8(label));
    }
    for (const auto& row : rows) {
        dialog->show();
        pick(QString::fromUtf8(row.label));
        clearJournal();
        ASSERT_TRUE(callNewPro(model(counted)));
        EXPECT_EQ(flowLines().back(),
                  "signal SignalCreatePro(" + std::to_string(row.type) + ", 95)");
    }
}

TEST_F(Create, AContractingModelIsSentWithItsType) {
    open();
    addKindOnMainPage(contractingLabel);
    pick(contractingLabel);
    clearJournal();
    click(newButton());
    EXPECT_EQ(flowLines().back(), "signal SignalCreatePro(16, 95)");
}

TEST_F(Create, EveryHostCallOfTheFlowMayThrowAndASecondTrySucceeds) {
    const struct {
        const char* call;
        int before;  ///< Lines ahead of the call's own.
    } rows[] = {{"osgi::ObjectHelper::GetService", 1},
                {"FirstPagePlugin::canStartNew", 2},
                {"SharedInterface::UseFunc", 3},
                {"SharedInterface::InsertFunLog", 4},
                {"SharedInterface::EndFunLog", 5}};
    for (const auto& row : rows) {
        for (const auto& thrown : testing_support::thrownKinds()) {
            SCOPED_TRACE(std::string(row.call) + " throws " + thrown.name);
            open();
            throwAt(row.call, thrown.as);
            click(newButton());
            Lines expected = first(row.before + 1);
            expected.push_back(std::string("exception NewProCfgDialog::slotNewPro: ") +
                               thrown.reported);
            EXPECT_EQ(flowLines(), expected);
            const QJsonArray report = testing_support::entriesOf("NewProCfgDialog::slotNewPro")
                                          .value(0)
                                          .value(QLatin1String("args"))
                                          .toArray();
            EXPECT_EQ(report.at(0).toString(), QStringLiteral("NewProCfgDialog"));
            EXPECT_GT(report.at(1).toInt(), 0);

            throwNoMore();
            dialog->show();
            clearJournal();
            click(newButton());
            EXPECT_EQ(flowLines(), whole());
        }
    }
}

TEST_F(Create, AReceiverThatThrowsIsReportedOnce) {
    open();
    QObject::connect(dialog.get(), &NewProCfgDialog::SignalCreatePro,
                     [] { throw QStringLiteral("boom"); });
    click(newButton());
    EXPECT_EQ(journalLines({"exception"}), Lines{"exception NewProCfgDialog::slotNewPro: boom"});
}

TEST_F(Create, AHostMayDeleteTheDialogInTheReceiver) {
    const auto deleting = [this](const std::function<void()>& act) {
        open();
        const QPointer<NewProCfgDialog> alive = dialog.get();
        QObject::connect(dialog.get(), &NewProCfgDialog::SignalCreatePro,
                         [this] { dialog.reset(); });
        act();
        EXPECT_FALSE(alive);
        EXPECT_EQ(countOf("exception"), 0);
        settle();
    };
    deleting([this] { click(newButton()); });
    deleting([this] { doubleClick(card("lswGeneralTax", 0)); });
    deleting([this] { callNewPro(model(counted)); });
    host.configure(counted, testing_support::pricing(
                                counted, {QStringLiteral("整体计费"), QStringLiteral("单独计费")},
                                QStringLiteral("整体计费")));
    deleting([this] { click(newButton()->findChildren<zBaseButton*>().at(0)); });
    deleting([this] {
        newButton()->findChildren<zBaseButton*>().at(1)->menu()->actions().at(0)->trigger();
    });
}

TEST_F(Create, AHostMayDeleteTheDialogWhenItIsAccepted) {
    open();
    const QPointer<NewProCfgDialog> alive = dialog.get();
    QObject::connect(dialog.get(), &QDialog::accepted, [this] { dialog.reset(); });
    click(newButton());
    EXPECT_FALSE(alive);
    EXPECT_EQ(countOf("exception") + countOf("signal"), 0);
}

TEST_F(Create, AReceiverMayOpenTheNextDialog) {
    open();
    std::unique_ptr<NewProCfgDialog> next;
    QObject::connect(dialog.get(), &NewProCfgDialog::SignalCreatePro, [&next] {
        next = std::make_unique<NewProCfgDialog>(0, true, nullptr);
        next->show();
    });
    click(newButton());
    ASSERT_TRUE(next);
    EXPECT_TRUE(next->isVisible());
}

TEST_F(Create, PageDataIsSentThroughTheSlot) {
    host.switches().plugins.insert(4, true);
    open();
    ASSERT_TRUE(callCreatePro(
        {{QStringLiteral("TemplateName"), counted}, {QStringLiteral("GcLj"), QStringLiteral("/p")}},
        5));
    EXPECT_EQ(flowLines(),
              (Lines{R"(call SharedInterface::UseFunc(11017, ""))",
                     "call AppPluginManager::pluginText(5)", "call AppPluginManager::isLoaded(4)",
                     ("call Communication::SendMsgToPlugin(4, 103, "
                      R"({"GcLj":"/p","GcLx":"定额计价【四川2000定额】","apptype":"Kvys",)"
                      R"("client_pid":4}))"),
                     R"(call SharedInterface::EndUseFun(11017, ""))"}));
    EXPECT_TRUE(dialog->isVisible()) << "the slot does not close the dialog";
}

TEST_F(Create, EveryHostCallOfPageDataMayThrowAndASecondTrySucceeds) {
    const QVariantMap values{{QStringLiteral("TemplateName"), counted}};
    for (const char* call : {"SharedInterface::UseFunc", "AppPluginManager::pluginText",
                             "AppPluginManager::isLoaded", "AppPluginManager::load",
                             "Communication::SendMsgToPlugin", "SharedInterface::EndUseFun"}) {
        for (const auto& thrown : testing_support::thrownKinds()) {
            SCOPED_TRACE(std::string(call) + " throws " + thrown.name);
            host.switches().plugins.clear();
            open();
            throwAt(call, thrown.as);
            ASSERT_TRUE(callCreatePro(values, 4));
            EXPECT_EQ(
                journalLines({"exception"}),
                Lines{std::string("exception NewProCfgDialog::slotCreatePro: ") + thrown.reported});
            EXPECT_TRUE(dialog->isVisible());
            throwNoMore();
            clearJournal();
            ASSERT_TRUE(callCreatePro(values, 4));
            EXPECT_EQ(countOf("exception"), 0);
            EXPECT_EQ(countOf("Communication::SendMsgToPlugin"), 1);
        }
    }
}

TEST_F(Create, WithoutPluginManagerPageDataIsStillSent) {
    host.switches().pluginManagerPresent = false;
    open();
    ASSERT_TRUE(callCreatePro({}, 16));
    EXPECT_EQ(flowLines(), Lines{"call Communication::SendMsgToPlugin(16, 105, "
                                 R"({"GcLx":"","apptype":"Kvzcb"}))"});
}

TEST_F(Create, TheSecondClickOfADoubleClickAsksForNoSecondProject) {
    open();
    auto* create = child<zBaseButton>(card("lswGeneralTax", 0), "btnNewProject");
    QWindow* window = dialog->windowHandle();
    const QPoint place = create->mapTo(dialog.get(), create->rect().center());
    QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, place);
    EXPECT_EQ(countOf("SignalCreatePro"), 1);
    // Shown again, it is a dialog like any other.
    dialog->show();
    settle();
    click(create);
    EXPECT_EQ(countOf("SignalCreatePro"), 2);
}

TEST_F(Create, AFlowThatWaitsForTheLogInAsksForNothingOnceAnotherHasClosedTheDialog) {
    const LoginWindowOfScope login([this] {
        host.switches().account.loggedIn = true;
        click(child<zBaseButton>(find<QWidget>("auditPage"), "newButton"));
        return true;
    });
    open();
    pick(QStringLiteral("审核工程"));
    child<QComboBox>(find<QWidget>("auditPage"), "fileCombo")
        ->setEditText(QStringLiteral("个人云盘/练习/甲.GCF"));
    click(child<zBaseButton>(find<QWidget>("auditPage"), "newButton"));
    EXPECT_EQ(countOf("FirstPagePlugin::showLogin"), 1);
    EXPECT_EQ(countOf("Communication::SendMsgToPlugin"), 1);
    EXPECT_FALSE(dialog->isVisible());
}

TEST_F(Create, ADialogThatItsHostHadDisabledStaysSo) {
    open();
    dialog->setEnabled(false);
    ASSERT_TRUE(callNewPro(model(QStringLiteral("x"))));
    dialog->show();
    EXPECT_FALSE(dialog->isEnabled());
}

}  // namespace
