#include "osgi.h"

#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/osgi/LoginHook.h"
#include "workbench/journal/Journal.h"

namespace workbench {

namespace {

std::function<bool()>& loginWindow() {
    static std::function<bool()> window;
    return window;
}

bool loginAccepted(Login login) {
    if (login != Login::Ask) return login == Login::Accepted;
    // A copy: the window may be replaced while it is open.
    const std::function<bool()> window = loginWindow();
    return window && window();
}

class FirstPageOfWorkbench : public FirstPagePlugin {
  public:
    bool canStartNew(bool newWork) override {
        return journalled("FirstPagePlugin::canStartNew", {newWork},
                          [] { return Host::instance().switches().firstPage == FirstPage::Ready; });
    }

    void showLogin(const QJsonObject& options) override {
        Journal::instance().call("FirstPagePlugin::showLogin", {options});
        logIn();
    }
};

FirstPagePlugin* firstPage() {
    static FirstPageOfWorkbench service;
    const bool absent = Host::instance().switches().firstPage == FirstPage::Absent;
    return absent ? nullptr : &service;
}

}  // namespace

void setLoginWindow(std::function<bool()> window) {
    loginWindow() = std::move(window);
}

bool logIn() {
    if (loginAccepted(Host::instance().switches().account.login))
        Host::instance().switches().account.loggedIn = true;
    return Host::instance().switches().account.loggedIn;
}

}  // namespace workbench

FirstPagePlugin::~FirstPagePlugin() = default;

void* osgi::ObjectHelper::GetService(const std::string& name) {
    FirstPagePlugin* service = name == "firstPagePlugin" ? workbench::firstPage() : nullptr;
    return workbench::accessed("osgi::ObjectHelper::GetService", service,
                               {QString::fromStdString(name)});
}
