/// Plays a flow with a fault in it, and then once more without.
#pragma once

#include <QStringList>

#include "tests/faults/Case.h"
#include "workbench/scenario/Scenario.h"

namespace faults {

/// What one play of a flow came to.
struct Record {
    QString ended;         ///< Why it ended before its last step; empty if it did not.
    QStringList messages;  ///< Signals and messages, in order, the installation's folder left out.
    QStringList boxes;
    QStringList reports;  ///< "source|function|text" of each exception reported.
    int openedAt = -1;    ///< The step at which the dialog was made; -1 if none was.
    int closedAt = -1;    ///< The step at which it closed; -1 if it did not.
};

/// What a case came to.
struct Outcome {
    QVector<Place> places;
    bool fired = false;
    bool acted = false;  ///< The action found what it needed, or it was an exception.
    QStringList stack;   ///< Of the action, by function.
    Record faulty;
    bool dialogLeft = false;  ///< The dialog was open after the faulty play, and was used on.
    Record goneOn;            ///< What came of using it on, where a part of it was deleted.
    Record again;             ///< The second try, without a fault.
    QStringList broken;       ///< Promises that its windows did not keep after the fault.
    QStringList warnings;     ///< Of Qt, from both.
    QStringList strays;       ///< Widgets that are left when all is over, by class.
};

/// @param flow  a scenario without expectations. One that only opens the dialog counts the calls of
///        its making; the others count from where the dialog stands.
/// @param wanted what to do at which call; Action::None for a play without a fault.
Outcome playWith(const workbench::Scenario& flow, const Case& wanted);

}  // namespace faults
