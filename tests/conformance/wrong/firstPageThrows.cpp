// the first page lets a project be started
#include <osgi.h>

#include <stdexcept>

namespace {

class FirstPage : public FirstPagePlugin {
  public:
    bool canStartNew(bool) override { throw std::runtime_error("no licence"); }
    void showLogin(const QJsonObject&) override {}
};

}  // namespace

void* osgi::ObjectHelper::GetService(const std::string& name) {
    static FirstPage page;
    return name == "firstPagePlugin" ? static_cast<FirstPagePlugin*>(&page) : nullptr;
}
