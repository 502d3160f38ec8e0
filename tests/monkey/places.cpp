#include "tests/monkey/places.h"

#include <QRegularExpression>
#include <QVector>

#include "tests/faults/Symbols.h"
#include "tests/faults/interposer/places.h"
#include "workbench/journal/Journal.h"
#include "workbench/journal/hostOperations.h"

namespace monkey {

namespace {

int thrown = 0;
bool goesBack = false;

/// @return the operation's name; empty for one that asks for itself whether it shall throw, and for
///         a handler of events, which Qt lets no exception out of.
QByteArray nameAt(int operation) {
    const QString signature = faults::demangled(faults::operationName(operation));
    const QString name = signature.section(QLatin1Char('('), 0, 0);
    const bool handles = name.contains(QRegularExpression(QStringLiteral("([eE]vent|Filter)$")));
    return handles || workbench::hostOperations().contains(name) ? QByteArray() : name.toUtf8();
}

const QVector<QByteArray>& namesByOperation() {
    static const QVector<QByteArray> names = [] {
        QVector<QByteArray> list;
        for (int i = 0; i < faults::operationCount(); ++i) list.append(nameAt(i));
        return list;
    }();
    return names;
}

/// What Qt calls on the module's widgets is left to the fault matrix.
void reached(int operation, const void* site, const void* const*) {
    const QByteArray& name = namesByOperation().at(operation);
    if (name.isEmpty() || !faults::inModule(site)) return;
    try {
        workbench::Journal::instance().throwIfAsked(name.constData(), {});
    } catch (...) {
        ++thrown;
        const QString caller = faults::enclosing(faults::functionAt(faults::offsetOf(site)));
        goesBack = faults::makesBaseOfWindow(QString::fromUtf8(name), caller);
        throw;
    }
}

}  // namespace

const QStringList& placeNames() {
    static const QStringList names = [] {
        QStringList list;
        for (const QByteArray& name : namesByOperation())
            if (!name.isEmpty()) list.append(QString::fromUtf8(name));
        list.removeDuplicates();
        list.sort();
        return list;
    }();
    return names;
}

PlaceThrows::PlaceThrows() {
    thrown = 0;
    goesBack = false;
    faults::setPlaceListener(reached);
}

PlaceThrows::~PlaceThrows() {
    faults::setPlaceListener(nullptr);
}

int PlaceThrows::count() const {
    return thrown;
}

bool PlaceThrows::lastGoesBack() const {
    return goesBack;
}

}  // namespace monkey
