// a log-in can be cancelled
#include <osgi.h>

#include <stdexcept>

namespace {

class FirstPage : public FirstPagePlugin {
  public:
    bool canStartNew(bool) override { return true; }
    void showLogin(const QJsonObject&) override { throw std::runtime_error("no cloud disk"); }
};

}  // namespace

void* osgi::ObjectHelper::GetService(const std::string& name) {
    static FirstPage page;
    return name == "firstPagePlugin" ? static_cast<FirstPagePlugin*>(&page) : nullptr;
}
