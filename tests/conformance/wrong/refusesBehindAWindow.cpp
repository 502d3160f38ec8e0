// the template tree asks for one project
#include <osgi.h>

#include <QApplication>
#include <QWidget>

namespace {

class FirstPage : public FirstPagePlugin {
  public:
    bool canStartNew(bool) override {
        for (const QWidget* window : QApplication::topLevelWidgets())
            if (window->isVisible()) return false;
        return true;
    }
    void showLogin(const QJsonObject&) override {}
};

}  // namespace

void* osgi::ObjectHelper::GetService(const std::string& name) {
    static FirstPage page;
    return name == "firstPagePlugin" ? static_cast<FirstPagePlugin*>(&page) : nullptr;
}
