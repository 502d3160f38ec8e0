/// One cell of the matrix: a flow, a host call in it, and what happens there.
#pragma once

#include <QString>
#include <QVector>

namespace faults {

/// What happens at the place.
enum class Action {
    None,
    // The operation throws.
    ThrowLiteral,
    ThrowString,
    ThrowStdException,
    ThrowOther,
    // From this call on the host answers otherwise.
    AnswerMissing,
    AnswerRefusing,
    AnswerEmpty,
    AnswerBroken,
    // The host does something else before it answers.
    RunEventLoop,
    OpenSecondDialog,
    PickKinds,
    DeleteDialog,
    DeleteParent,
    DeleteCards,
    DeletePages,
};

inline bool throws(Action action) {
    return action >= Action::ThrowLiteral && action <= Action::ThrowOther;
}

/// @return whether the host answers otherwise from there on.
inline bool changesAnswers(Action action) {
    return action >= Action::AnswerMissing && action <= Action::AnswerBroken;
}

/// @return whether the host only takes its time, which changes nothing.
inline bool onlyDelays(Action action) {
    return action == Action::RunEventLoop || action == Action::OpenSecondDialog;
}

/// @return whether the action takes the dialog or a part of it away, which no user would go on
/// with.
inline bool deletes(Action action) {
    return action >= Action::DeleteDialog;
}

/// A host call of a flow. Two calls of one operation from one line are told apart by their number.
struct Place {
    int operation = 0;
    quintptr site = 0;  ///< Offset in the module to which the call returns.
    int nth = 1;        ///< From 1.
    /// What can be done there beside throwing: there is a dialog to be deleted, or a card.
    QVector<Action> possible;

    bool sameCall(const Place& other) const {
        return operation == other.operation && site == other.site;
    }
};

struct Case {
    Place place;
    Action action = Action::None;
};

/// @return a name for people and for the command line.
QString nameOf(Action action);
QString describe(const Case& one);

/// @return whether an operation is a service, which may answer otherwise or re-enter, as a new one
///         is until it is told otherwise; the others make and dress widgets.
bool isService(int operation);

/// @return whether an operation that is no service may do something else before it comes to its
///         end: run an event loop, or call receivers that delete something.
bool reenters(int operation);

/// @return the name of an operation as the journal has it.
QString nameOf(int operation);
/// @return whether an operation is given a window to open another over.
bool takesWindow(int operation);

/// @return whether an operation is the one that tells every size.
bool isSize(int operation);

/// @return whether an operation answers events of Qt's.
bool isEvent(int operation);

/// @return the cases for the places of a flow.
/// @param quick the first and the last of each call only, with the actions taken in turn.
/// @param turn where the turns begin: flows that share calls shall not share what happens there.
QVector<Case> casesFor(const QVector<Place>& places, bool quick, int turn);

}  // namespace faults
