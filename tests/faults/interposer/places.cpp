#include "tests/faults/interposer/places.h"

#include "osgi.h"

namespace {

faults::PlaceListener current = nullptr;

const char* const found[] = {
#include "places.inc"
};
constexpr int foundCount = int(sizeof found / sizeof *found);

// The first page's operations are virtual, so that no symbol leads to them.
const char* const ofFirstPage[] = {"_ZN15FirstPagePlugin11canStartNewEb",
                                   "_ZN15FirstPagePlugin9showLoginERK11QJsonObject"};

void reached(int operation, const void* site, const void* const* frame = nullptr) {
    if (current) current(operation, site, frame);
}

/// The host's first page, seen through two places. An operation that the interface gains has to be
/// added here before this compiles.
class FirstPagePlaces : public FirstPagePlugin {
  public:
    FirstPagePlugin* real = nullptr;

    bool canStartNew(bool newWork) override {
        reached(foundCount, __builtin_return_address(0));
        return real->canStartNew(newWork);
    }
    void showLogin(const QJsonObject& options) override {
        reached(foundCount + 1, __builtin_return_address(0));
        real->showLogin(options);
    }
};

}  // namespace

extern "C" void faultPlaceReached(int operation, const void* site, const void* const* frame) {
    reached(operation, site, frame);
}

namespace faults {

void setPlaceListener(PlaceListener listener) {
    current = listener;
}

int operationCount() {
    return foundCount + int(sizeof ofFirstPage / sizeof *ofFirstPage);
}

const char* operationName(int operation) {
    return operation < foundCount ? found[operation] : ofFirstPage[operation - foundCount];
}

}  // namespace faults

/// What the module gets in place of osgi::ObjectHelper::GetService.
extern "C" void* firstPageThroughPlaces(const std::string& name) {
    static FirstPagePlaces places;
    places.real = static_cast<FirstPagePlugin*>(osgi::ObjectHelper::GetService(name));
    return places.real ? static_cast<FirstPagePlugin*>(&places) : nullptr;
}
