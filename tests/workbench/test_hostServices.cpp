#include <QFile>
#include <stdexcept>

#include "kvcore.h"
#include "osgi.h"
#include "tests/support/TestSupport.h"
#include "workbench/hostlibs/fileDialog/LoginWindow.h"
#include "workbench/hostlibs/osgi/LoginHook.h"
#include "zCpf.h"

namespace testing_support {

using workbench::FirstPage;
using workbench::Host;
using workbench::Login;

namespace {

FirstPagePlugin* firstPage() {
    return static_cast<FirstPagePlugin*>(osgi::ObjectHelper::GetService("firstPagePlugin"));
}

/// Takes the real log-in window off until the end of the scope.
struct OtherLogInWindow {
    explicit OtherLogInWindow(std::function<bool()> window) {
        workbench::setLoginWindow(std::move(window));
    }
    ~OtherLogInWindow() { workbench::setLoginWindow(&workbench::LoginWindow::ask); }
    OtherLogInWindow(const OtherLogInWindow&) = delete;
    OtherLogInWindow& operator=(const OtherLogInWindow&) = delete;
};

}  // namespace

TEST(HostServices, TheFirstPageIsReadyBusyOrAbsent) {
    TemporaryInstallation installation;
    ASSERT_TRUE(firstPage());
    EXPECT_TRUE(firstPage()->canStartNew(true));
    installation.switches().firstPage = FirstPage::Busy;
    ASSERT_TRUE(firstPage());
    EXPECT_FALSE(firstPage()->canStartNew(true));
    installation.switches().firstPage = FirstPage::Absent;
    EXPECT_FALSE(firstPage());
    EXPECT_EQ(answered("osgi::ObjectHelper::GetService"), QJsonValue(true));
    EXPECT_TRUE(entriesOf("osgi::ObjectHelper::GetService")
                    .constLast()
                    .value(QLatin1String("answer"))
                    .isNull());
    installation.switches().firstPage = FirstPage::Ready;
    EXPECT_FALSE(osgi::ObjectHelper::GetService("anotherPlugin"));
}

TEST(HostServices, TheLogInAnswersAsTheSwitchesSay) {
    const struct {
        Login login;
        bool windowAnswers;
        bool loggedIn;
        int shown;
    } rows[] = {{Login::Accepted, false, true, 0},
                {Login::Cancelled, true, false, 0},
                {Login::Ask, true, true, 1},
                {Login::Ask, false, false, 1}};
    for (const auto& row : rows) {
        TemporaryInstallation installation;
        int shown = 0;
        const OtherLogInWindow window([&] {
            ++shown;
            return row.windowAnswers;
        });
        installation.switches().account.login = row.login;
        UserInfo* user = Users::Instance()->Kvy();
        EXPECT_FALSE(user->IsLogin());
        EXPECT_EQ(user->UserID(), QString()) << "nobody is logged in";
        firstPage()->showLogin({});
        EXPECT_EQ(user->IsLogin(), row.loggedIn);
        EXPECT_EQ(user->UserID(), row.loggedIn ? QStringLiteral("u1") : QString());
        EXPECT_EQ(shown, row.shown);
    }
}

TEST(HostServices, WithoutALogInWindowNobodyIsLoggedIn) {
    TemporaryInstallation installation;
    const OtherLogInWindow none({});
    firstPage()->showLogin({});
    EXPECT_FALSE(installation.switches().account.loggedIn);
}

TEST(HostServices, ThePluginManagerLoadsThePluginItWasAskedAboutLast) {
    TemporaryInstallation installation;
    AppPluginManager* manager = AppPluginManager::instance();
    ASSERT_TRUE(manager);
    EXPECT_FALSE(manager->isLoaded(4));
    EXPECT_FALSE(manager->isLoaded(16));
    manager->load();
    EXPECT_TRUE(manager->isLoaded(16));
    EXPECT_FALSE(manager->isLoaded(4));
    manager->load(4);
    EXPECT_TRUE(manager->isLoaded(4));
    installation.switches().pluginManagerPresent = false;
    EXPECT_FALSE(AppPluginManager::instance());
}

TEST(HostServices, AFreshHostHasForgottenWhichPlugInWasAskedFor) {
    {
        TemporaryInstallation installation;
        EXPECT_FALSE(AppPluginManager::instance()->isLoaded(16));
    }
    TemporaryInstallation installation;
    AppPluginManager::instance()->load();
    EXPECT_TRUE(installation.switches().plugins.isEmpty());
}

TEST(HostServices, MessagesReachTheReceiverAfterTheyWereJournalled) {
    TemporaryInstallation installation;
    Lines seen;
    Host::instance().setReceiver([&](int client, int code, const QVariant& payload) {
        seen.push_back(std::to_string(client) + " " + std::to_string(code) + " " +
                       payload.toString().toStdString() + " " + std::to_string(countOf("call")));
    });
    Communication* communication = Communication::GetInstance();
    communication->SendMsg(4, 44, QStringLiteral("p"));
    communication->SendMsgToPlugin(16, 114, {{QStringLiteral("pro_file"), QStringLiteral("x")}});
    EXPECT_EQ(seen, (Lines{"-1 44 p 2", "16 114  3"}));
    EXPECT_EQ(flowLines(),
              (Lines{R"(call Communication::SendMsg(4, 44, "p"))",
                     R"(call Communication::SendMsgToPlugin(16, 114, {"pro_file":"x"}))"}));
}

TEST(HostServices, SwitchesStandOverTheInstallationsOwnSettings) {
    TemporaryInstallation installation;
    ASSERT_EQ(Host::instance().loadInstallation(QStringLiteral(SAMPLE_INSTALLATION)), QString());
    CpfMain* main = CpfMain::GetInstance();
    TranMiUtilAction* action = TranMiUtilAction::Instance();
    const QString area = QStringLiteral("AreaVer");
    const QString key = QStringLiteral("CJZ新建");
    EXPECT_EQ(main->GetAreaConfigValue(area), QStringLiteral("SC"));
    EXPECT_EQ(main->GetAreaConfigValue(QStringLiteral("none")), QString());
    installation.switches().areaConfig.insert(area, QStringLiteral("JL2"));
    EXPECT_EQ(main->GetAreaConfigValue(area), QStringLiteral("JL2"));

    EXPECT_EQ(action->JudageValue(key, QStringLiteral("f")), QStringLiteral("f"));
    installation.switches().transactions.insert(key, QStringLiteral("1"));
    EXPECT_EQ(action->JudageValue(key, QString()), QStringLiteral("1"));
    installation.switches().transactions.insert(key, QString());
    EXPECT_EQ(action->JudageValue(key, QStringLiteral("f")), QString());

    EXPECT_TRUE(main->GetOpenVersion(1.3));
    EXPECT_FALSE(main->GetOpenVersion(1.4));
    EXPECT_FALSE(main->IsProdAreaYN());
    ASSERT_EQ(Host::instance().loadInstallation(QStringLiteral(YUNNAN_INSTALLATION)), QString());
    EXPECT_TRUE(main->IsProdAreaYN());
}

TEST(HostServices, TheSettingsHelperIsMissingWithoutConfiguration) {
    TemporaryInstallation installation;
    EXPECT_TRUE(ProjectSettingHelper::GetProjectSettingHelper());
    installation.switches().configurationPresent = false;
    EXPECT_FALSE(ProjectSettingHelper::GetProjectSettingHelper());
}

TEST(HostServices, ListsOfRecordsAreJournalledByTheirCount) {
    TemporaryInstallation installation;
    ProjectSettingHelper* helper = ProjectSettingHelper::GetProjectSettingHelper();
    const QString kvys = QStringLiteral("Kvys");
    EXPECT_EQ(helper->GetProTaxTemplateInfoList(kvys, kvys).size(), 3);
    EXPECT_EQ(answered("ProjectSettingHelper::GetProTaxTemplateInfoList"), QJsonValue(3));
    EXPECT_TRUE(helper->GetProTaxTemplateInfoList(QStringLiteral("Kvjs"), QString()).isEmpty());
}

TEST(HostServices, SuffixesAreAppendedByKind) {
    TemporaryInstallation installation;
    ASSERT_EQ(Host::instance().loadInstallation(QStringLiteral(SAMPLE_INSTALLATION)), QString());
    QStringList all{QStringLiteral("说明")};
    SharedInterface::GetSuffix(1, &all, 0);
    EXPECT_EQ(all.first(), QStringLiteral("说明"));
    EXPECT_TRUE(all.contains(QStringLiteral("SGCFG")));
    for (int kind : {2, 8}) {
        QStringList some;
        SharedInterface::GetSuffix(kind, &some, 0);
        EXPECT_EQ(some.size(), all.size() - 3) << "all but the description and two";
        EXPECT_FALSE(some.contains(QStringLiteral("GCFG")));
        EXPECT_FALSE(some.contains(QStringLiteral("SGCFG")));
    }
    QStringList none;
    SharedInterface::GetSuffix(99, &none, 0);
    EXPECT_TRUE(none.isEmpty());
}

TEST(HostServices, AReportedExceptionIsJournalledAndNeverThrows) {
    TemporaryInstallation installation;
    throwAt("ProcExceptionNew", workbench::ThrowRule::As::Other);
    EXPECT_NO_THROW(ProcExceptionNew(std::runtime_error("未知异常"), "S", 12, "S::f"));
    EXPECT_EQ(journalLines(), Lines{"exception S::f: 未知异常"});
}

TEST(HostServices, AResetHostIsAsNew) {
    TemporaryInstallation installation;
    Host& host = Host::instance();
    host.setScale(2.0);
    host.setSkin(QStringLiteral("dark"));
    installation.switches().account.loggedIn = true;
    bool delivered = false;
    host.setReceiver([&](int, int, const QVariant&) { delivered = true; });
    host.reset();
    host.deliver(4, 100, QVariant());
    EXPECT_FALSE(delivered);
    EXPECT_EQ(host.scale(), 1.0);
    EXPECT_EQ(host.skin(), QStringLiteral("light"));
    EXPECT_FALSE(host.switches().account.loggedIn);
    EXPECT_EQ(host.installation().folder, QString());
}

}  // namespace testing_support
