#include "tests/faults/Places.h"

#include <dlfcn.h>

#include <QHash>
#include <QScopedValueRollback>
#include <cstring>
#include <stdexcept>

#include "tests/faults/Symbols.h"
#include "tests/faults/interposer/places.h"

namespace faults {

const char thrownText[] = "boom";

namespace {

PlaceWatch* watch = nullptr;

bool isEventLoop(const void* address) {
    static QHash<const void*, bool> known;
    const auto found = known.constFind(address);
    if (found != known.constEnd()) return *found;
    Dl_info info{};
    const bool is = dladdr(address, &info) && info.dli_sname &&
                    std::strncmp(info.dli_sname, "_ZN10QEventLoop", 15) == 0;
    known.insert(address, is);
    return is;
}

/// A virtual operation is called by Qt. It is the module's call where the module called Qt, but for
/// handlers of events: Qt lets no exception out of those, whoever sent the event.
bool calledByModule(int operation, const void* site) {
    if (inModule(site)) return true;
    if (isEvent(operation)) return false;
    const QVector<const void*> stack = callers();
    // Outwards from the call: the module comes before an event loop, or the call is not its own.
    for (int i = stack.indexOf(site); i >= 0 && i < stack.size(); ++i) {
        if (inModule(stack[i])) return true;
        if (isEventLoop(stack[i])) return false;
    }
    return false;
}

/// @return the module's functions that are running, the innermost first.
QStringList functionsOnStack() {
    QStringList functions;
    for (const void* address : callers()) {
        if (inModule(address)) functions.append(functionAt(offsetOf(address)));
    }
    return functions;
}

/// Every size goes to the host through one function: it is its caller that tells the place.
const void* placeOf(int operation, const void* site, const void* const* frame) {
#ifdef FRAMES_ON_STACK
    if (isSize(operation) && frame) return frame[1];
#else
    Q_UNUSED(operation)
    Q_UNUSED(frame)
#endif
    return site;
}

}  // namespace

PlaceWatch::PlaceWatch(const Case& wanted, std::function<void()> act,
                       std::function<bool(Action, const QStringList&)> canAct)
    : wanted(wanted), act(std::move(act)), canAct(std::move(canAct)) {
    watch = this;
    setPlaceListener(&PlaceWatch::reached, &PlaceWatch::ended);
}

PlaceWatch::~PlaceWatch() {
    setPlaceListener(nullptr);
    watch = nullptr;
}

void PlaceWatch::reached(int operation, const void* site, const void* const* frame) {
    if (watch->isPending && operation == watch->wanted.place.operation) ++watch->inner;
    if (watch->counting && calledByModule(operation, site))
        watch->note(operation, placeOf(operation, site, frame));
}

void PlaceWatch::ended(int operation) {
    if (!watch->isPending || operation != watch->wanted.place.operation) return;
    if (watch->inner-- > 0) return;
    watch->isPending = false;
    watch->actQuietly();
}

void PlaceWatch::note(int operation, const void* site) {
    // Where Qt stands in between, the operation alone tells the place.
    Place place{operation, inModule(site) ? offsetOf(site) : 0, 1, {}};
    place.nth = ++times[{place.operation, place.site}];
    if (wanted.action == Action::None) place.possible = possibleAt(operation);
    seen.append(place);
    if (hasFired || wanted.action == Action::None) return;
    if (!place.sameCall(wanted.place) || place.nth != wanted.place.nth) return;
    fire();
}

QVector<Action> PlaceWatch::possibleAt(int operation) const {
    QVector<Action> possible;
    if (!isService(operation) && !reenters(operation)) return possible;
    const QStringList stack = functionsOnStack();
    const Action first = isService(operation) ? Action::AnswerMissing : Action::RunEventLoop;
    for (int i = int(first); i <= int(Action::DeletePages); ++i) {
        if (canAct(Action(i), stack)) possible.append(Action(i));
    }
    return possible;
}

void PlaceWatch::fire() {
    hasFired = true;
    frames = functionsOnStack();
    // A widget must not go before its operation has come to its end, neither by the action itself
    // nor by what comes in an event loop.
    isPending = (deletes(wanted.action) || onlyDelays(wanted.action)) &&
                tellsItsEnd(wanted.place.operation);
    if (!isPending) actQuietly();
    switch (wanted.action) {
        case Action::ThrowLiteral:
            throw static_cast<const char*>(thrownText);
        case Action::ThrowString:
            throw QString::fromLatin1(thrownText);
        case Action::ThrowStdException:
            throw std::runtime_error(thrownText);
        case Action::ThrowOther:
            throw 1;
        default:
            break;
    }
}

void PlaceWatch::actQuietly() {
    // What the action does itself is no call of this run.
    const QScopedValueRollback<bool> quiet(counting, false);
    act();
}

}  // namespace faults
