#include "tests/faults/Case.h"

#include <algorithm>
#include <iterator>

#include "tests/faults/Symbols.h"
#include "tests/faults/interposer/places.h"

namespace faults {

namespace {

constexpr Action throwing[] = {Action::ThrowLiteral, Action::ThrowString, Action::ThrowStdException,
                               Action::ThrowOther};
QString callerOf(const Place& place) {
    return place.site == 0 ? QStringLiteral("Qt") : enclosing(functionAt(place.site));
}

/// A call that comes no more often is tried each time: it makes a thing of a few, such as an entry.
constexpr int few = 4;

/// @return the first and the last of each call, and all of a call that comes a few times.
QVector<Place> chosenOf(const QVector<Place>& places) {
    const auto timesOf = [&](const Place& place) {
        return std::count_if(places.begin(), places.end(),
                             [&](const Place& other) { return other.sameCall(place); });
    };
    QVector<Place> chosen;
    std::copy_if(places.begin(), places.end(), std::back_inserter(chosen), [&](const auto& place) {
        const auto times = timesOf(place);
        return place.nth == 1 || place.nth == times || times <= few;
    });
    return chosen;
}

}  // namespace

QString nameOf(Action action) {
    switch (action) {
        case Action::None:
            return QStringLiteral("none");
        case Action::ThrowLiteral:
            return QStringLiteral("throws a literal");
        case Action::ThrowString:
            return QStringLiteral("throws a QString");
        case Action::ThrowStdException:
            return QStringLiteral("throws a std::exception");
        case Action::ThrowOther:
            return QStringLiteral("throws an int");
        case Action::AnswerMissing:
            return QStringLiteral("services missing from here");
        case Action::AnswerRefusing:
            return QStringLiteral("services refusing from here");
        case Action::AnswerEmpty:
            return QStringLiteral("answers empty from here");
        case Action::AnswerBroken:
            return QStringLiteral("answers broken from here");
        case Action::RunEventLoop:
            return QStringLiteral("runs the event loop");
        case Action::OpenSecondDialog:
            return QStringLiteral("opens a second dialog");
        case Action::PickKinds:
            return QStringLiteral("lets the user pick each kind");
        case Action::DeleteDialog:
            return QStringLiteral("deletes the dialog");
        case Action::DeleteParent:
            return QStringLiteral("deletes the dialog's parent");
        case Action::DeleteCards:
            return QStringLiteral("deletes the cards");
        case Action::DeletePages:
            return QStringLiteral("deletes the pages");
    }
    return {};
}

QString describe(const Case& one) {
    return QStringLiteral("%1 #%2 of %3 %4")
        .arg(demangled(operationName(one.place.operation)))
        .arg(one.place.nth)
        .arg(callerOf(one.place), nameOf(one.action));
}

bool isService(int operation) {
    static const QString looks[] = {QStringLiteral("ButtonStyleOption::"),
                                    QStringLiteral("ComStyleOption::"),
                                    QStringLiteral("FramelessDialog::"),
                                    QStringLiteral("InterfaceAdaptation::"),
                                    QStringLiteral("KVBaseDialog::"),
                                    QStringLiteral("ProcExceptionNew("),
                                    QStringLiteral("Ribbon"),
                                    QStringLiteral("RoundedDialog::"),
                                    QStringLiteral("SkinManager::"),
                                    QStringLiteral("TBaseTool::"),
                                    QStringLiteral("zBase"),
                                    QStringLiteral("zTitleModal::")};
    const QString name = demangled(operationName(operation));
    return std::none_of(std::begin(looks), std::end(looks),
                        [&](const QString& prefix) { return name.startsWith(prefix); });
}

bool reenters(int operation) {
    return tellsItsEnd(operation) || nameOf(operation).endsWith(QLatin1String("MaxDialogMode"));
}

QString nameOf(int operation) {
    const QString signature = demangled(operationName(operation));
    return signature.left(signature.indexOf(QLatin1Char('(')));
}

bool takesWindow(int operation) {
    const QString signature = demangled(operationName(operation));
    return signature.contains(QLatin1String("QWidget*")) && isService(operation);
}

bool isSize(int operation) {
    static const int sizes = [] {
        int found = operationCount() - 1;
        while (found >= 0 &&
               nameOf(found) != QLatin1String("InterfaceAdaptation::getResolutionRatioH"))
            --found;
        return found;
    }();
    return operation == sizes;
}

bool isEvent(int operation) {
    const QString name = demangled(operationName(operation));
    return name.contains(QLatin1String("Event(")) || name.contains(QLatin1String("event(")) ||
           name.contains(QLatin1String("eventFilter("));
}

QVector<Case> casesFor(const QVector<Place>& places, bool quick, int turn) {
    QVector<Case> cases;
    for (const Place& place : quick ? chosenOf(places) : places) {
        if (quick) {
            cases.append({place, throwing[turn % 4]});
            if (const int count = place.possible.size())
                cases.append({place, place.possible[turn % count]});
            ++turn;
            continue;
        }
        for (const Action action : throwing) cases.append({place, action});
        for (const Action action : place.possible) cases.append({place, action});
    }
    return cases;
}

}  // namespace faults
