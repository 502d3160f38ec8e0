/// Counts the host calls of a run, and does an action at one of them.
#pragma once

#include <QHash>
#include <QStringList>
#include <functional>

#include "tests/faults/Case.h"

namespace faults {

/// While it lives, it listens to the places. One at a time.
class PlaceWatch {
  public:
    /// @param wanted what to do at which place; Action::None only records.
    /// @param act    called there, before an exception is thrown; does what is no exception.
    /// @param canAct whether an action can be done, with the module's functions on the stack; where
    ///               the watch only records, each place is noted with what it can do.
    PlaceWatch(const Case& wanted, std::function<void()> act,
               std::function<bool(Action, const QStringList&)> canAct);
    ~PlaceWatch();
    PlaceWatch(const PlaceWatch&) = delete;
    PlaceWatch& operator=(const PlaceWatch&) = delete;

    /// Calls count from now on, or no more.
    void count(bool on) { counting = on; }

    const QVector<Place>& places() const { return seen; }
    bool fired() const { return hasFired; }
    /// @return the module's functions on the stack when the action was done, the innermost first.
    const QStringList& stack() const { return frames; }

  private:
    static void reached(int operation, const void* site, const void* const* frame);
    static void ended(int operation);
    void note(int operation, const void* site);
    QVector<Action> possibleAt(int operation) const;
    void fire();
    void actQuietly();

    const Case wanted;
    const std::function<void()> act;
    const std::function<bool(Action, const QStringList&)> canAct;
    QVector<Place> seen;
    QHash<QPair<int, quintptr>, int> times;  ///< Of each call, so far.
    QStringList frames;
    bool counting = false;
    bool hasFired = false;
    bool isPending = false;  ///< The action waits for the end of the operation.
    int inner = 0;           ///< Calls of the same operation inside of that one.
};

/// The text that the thrown exceptions carry.
extern const char thrownText[];

}  // namespace faults
