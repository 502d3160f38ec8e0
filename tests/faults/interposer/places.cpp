#include "tests/faults/interposer/places.h"

#include <cstring>

#include "osgi.h"
#include "zControl.h"

namespace {

faults::PlaceListener current = nullptr;
faults::EndListener atEnd = nullptr;

struct Found {
    const char* symbol;
    bool tellsEnd;
};

const Found found[] = {
#include "places.inc"
};
constexpr int foundCount = int(sizeof found / sizeof *found);

// The first page's operations are virtual, so that no symbol leads to them.
const char* const ofFirstPage[] = {"_ZN15FirstPagePlugin11canStartNewEb",
                                   "_ZN15FirstPagePlugin9showLoginERK11QJsonObject"};

void reached(int operation, const void* site, const void* const* frame = nullptr) {
    if (current) current(operation, site, frame);
}

void ended(const char* symbol) {
    for (int i = 0; atEnd && i < foundCount; ++i) {
        if (std::strcmp(found[i].symbol, symbol) == 0) return atEnd(i);
    }
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

void setPlaceListener(PlaceListener listener, EndListener end) {
    current = listener;
    atEnd = end;
}

int operationCount() {
    return foundCount + int(sizeof ofFirstPage / sizeof *ofFirstPage);
}

const char* operationName(int operation) {
    return operation < foundCount ? found[operation].symbol : ofFirstPage[operation - foundCount];
}

bool tellsItsEnd(int operation) {
    return operation < foundCount && found[operation].tellsEnd;
}

}  // namespace faults

/// What the module gets in place of osgi::ObjectHelper::GetService.
extern "C" void* firstPageThroughPlaces(const std::string& name) {
    static FirstPagePlaces places;
    places.real = static_cast<FirstPagePlugin*>(osgi::ObjectHelper::GetService(name));
    return places.real ? static_cast<FirstPagePlugin*>(&places) : nullptr;
}

// What the module gets in place of operations of widgets that may run receivers of signals and
// event loops. Their names are the operations' own, which places.cmake looks for.
extern "C" {

void ended_ZN12KVBaseDialog4doneEi(KVBaseDialog* dialog, int result) {
    dialog->KVBaseDialog::done(result);
    ended("_ZN12KVBaseDialog4doneEi");
}

int ended_ZN11zTitleModal9ShowModalEv(zTitleModal* dialog) {
    const int answer = dialog->ShowModal();
    ended("_ZN11zTitleModal9ShowModalEv");
    return answer;
}

QAction* ended_ZN19RibbonNavigationBar6addTabERKN6RIBBON10CentralTabE(
    RibbonNavigationBar* bar, const RIBBON::CentralTab& tab) {
    QAction* action = bar->addTab(tab);
    ended("_ZN19RibbonNavigationBar6addTabERKN6RIBBON10CentralTabE");
    return action;
}

void ended_ZN9RibbonTab10setCheckedEb(RibbonTab* tab, bool checked) {
    tab->setChecked(checked);
    ended("_ZN9RibbonTab10setCheckedEb");
}

void ended_ZN11zBaseCombox7addItemERK7QStringRK8QVariant(zBaseCombox* combo, const QString& text,
                                                         const QVariant& data) {
    combo->addItem(text, data);
    ended("_ZN11zBaseCombox7addItemERK7QStringRK8QVariant");
}

void ended_ZN11zBaseCombox12addItemStateERK7QStringbS2_RK8QVariant(zBaseCombox* combo,
                                                                   const QString& icon, bool state,
                                                                   const QString& text,
                                                                   const QVariant& data) {
    combo->addItemState(icon, state, text, data);
    ended("_ZN11zBaseCombox12addItemStateERK7QStringbS2_RK8QVariant");
}

}  // extern "C"
