#include "tests/faults/Case.h"

#include <algorithm>

#include "tests/faults/Symbols.h"
#include "tests/faults/interposer/places.h"

namespace faults {

namespace {

constexpr Deed throwing[] = {Deed::ThrowLiteral, Deed::ThrowString, Deed::ThrowStdException,
                             Deed::ThrowOther};
constexpr Deed answering[] = {Deed::AnswerMissing, Deed::AnswerRefusing, Deed::AnswerEmpty,
                              Deed::AnswerBroken,  Deed::RunEventLoop,   Deed::OpenSecondDialog,
                              Deed::DeleteDialog,  Deed::DeleteParent,   Deed::DeleteCards,
                              Deed::DeletePages};

QString callerOf(const Place& place) {
    return place.site == 0 ? QStringLiteral("Qt") : enclosing(functionAt(place.site));
}

QVector<Place> firstAndLastOfEach(const QVector<Place>& places) {
    QVector<Place> chosen;
    for (const Place& place : places) {
        const auto last = std::find_if(chosen.begin(), chosen.end(), [&](const Place& other) {
            return other.nth > 1 && other.sameCall(place);
        });
        if (last != chosen.end()) {
            *last = place;
        } else {
            chosen.append(place);
        }
    }
    return chosen;
}

}  // namespace

QString nameOf(Deed deed) {
    switch (deed) {
        case Deed::None:
            return QStringLiteral("none");
        case Deed::ThrowLiteral:
            return QStringLiteral("throws a literal");
        case Deed::ThrowString:
            return QStringLiteral("throws a QString");
        case Deed::ThrowStdException:
            return QStringLiteral("throws a std::exception");
        case Deed::ThrowOther:
            return QStringLiteral("throws an int");
        case Deed::AnswerMissing:
            return QStringLiteral("services missing from here");
        case Deed::AnswerRefusing:
            return QStringLiteral("services refusing from here");
        case Deed::AnswerEmpty:
            return QStringLiteral("answers empty from here");
        case Deed::AnswerBroken:
            return QStringLiteral("answers broken from here");
        case Deed::RunEventLoop:
            return QStringLiteral("runs the event loop");
        case Deed::OpenSecondDialog:
            return QStringLiteral("opens a second dialog");
        case Deed::DeleteDialog:
            return QStringLiteral("deletes the dialog");
        case Deed::DeleteParent:
            return QStringLiteral("deletes the dialog's parent");
        case Deed::DeleteCards:
            return QStringLiteral("deletes the cards");
        case Deed::DeletePages:
            return QStringLiteral("deletes the pages");
    }
    return {};
}

QString describe(const Case& one) {
    return QStringLiteral("%1 #%2 of %3 %4")
        .arg(demangled(operationName(one.place.operation)))
        .arg(one.place.nth)
        .arg(callerOf(one.place), nameOf(one.deed));
}

bool isService(int operation) {
    static const QString services[] = {QStringLiteral("ProjectSettingHelper::"),
                                       QStringLiteral("Communication::"),
                                       QStringLiteral("AppPluginManager::"),
                                       QStringLiteral("TranMiUtilAction::"),
                                       QStringLiteral("LibXLExcel::"),
                                       QStringLiteral("SharedInterface::"),
                                       QStringLiteral("GetProgramTypeByFile("),
                                       QStringLiteral("CpfMain::"),
                                       QStringLiteral("UserInfo::"),
                                       QStringLiteral("Users::"),
                                       QStringLiteral("zFileDialog::"),
                                       QStringLiteral("osgi::"),
                                       QStringLiteral("FirstPagePlugin::"),
                                       QStringLiteral("showInformation("),
                                       QStringLiteral("showCritical("),
                                       QStringLiteral("showInforByOneBtn(")};
    const QString name = demangled(operationName(operation));
    return std::any_of(std::begin(services), std::end(services),
                       [&](const QString& service) { return name.startsWith(service); });
}

QString nameOf(int operation) {
    const QString signature = demangled(operationName(operation));
    return signature.left(signature.indexOf(QLatin1Char('(')));
}

bool takesWindow(int operation) {
    const QString signature = demangled(operationName(operation));
    return signature.contains(QLatin1String("QWidget*")) && isService(operation);
}

bool isEvent(int operation) {
    const QString name = demangled(operationName(operation));
    return name.contains(QLatin1String("Event(")) || name.contains(QLatin1String("event(")) ||
           name.contains(QLatin1String("eventFilter("));
}

QVector<Case> casesFor(const QVector<Place>& places, bool quick) {
    QVector<Case> cases;
    int turn = 0;
    for (const Place& place : quick ? firstAndLastOfEach(places) : places) {
        const bool service = isService(place.operation);
        if (quick) {
            cases.append({place, throwing[turn % 4]});
            if (service) cases.append({place, answering[turn % int(std::size(answering))]});
            ++turn;
            continue;
        }
        for (const Deed deed : throwing) cases.append({place, deed});
        if (!service) continue;
        for (const Deed deed : answering) cases.append({place, deed});
    }
    return cases;
}

}  // namespace faults
