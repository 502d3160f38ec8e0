/// Plays one sequence in this process and judges what came of it.
#pragma once

#include <QStringList>

#include "workbench/scenario/Scenario.h"

namespace monkey {

struct Performance {
    QStringList faults;   ///< Each as "kind: details".
    bool spoilt = false;  ///< The process must not play another one.
    int steps = 0;        ///< Steps that were done.
    int skipped = 0;      ///< Steps that were impossible.
    int dialogs = 0;      ///< Dialogs opened.
    int requests = 0;     ///< Creation requests.
    int exceptions = 0;   ///< Exceptions reported to the host.
    int atPlaces = 0;     ///< Exceptions thrown where no journal tells of calls.
};

/// Faults made on purpose, to try out what finds and shrinks the real ones.
struct Traps {
    QStringList never;    ///< Names of journal entries that count as a fault.
    QStringList crashAt;  ///< Names of journal entries that end the process.
};

Performance perform(const workbench::Scenario& scenario, const Traps& traps);

/// Reads the content of a scenario file. @return whether it is one.
bool readScenario(const QJsonObject& content, workbench::Scenario& into);

}  // namespace monkey
