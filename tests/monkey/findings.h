/// From a seed that failed to a scenario file that shows why.
#pragma once

#include "tests/monkey/Herd.h"

namespace monkey {

/// @return what a fault is a case of: its first two parts, between colons.
QString kindOf(const QString& fault);

/// Shrinks the sequence of a failure, each candidate played in a process of its own, and keeps the
/// scenario as FOLDER/SEED.json. Its title is the fault; what a scenario can expect itself, it
/// expects.
/// @return a sentence for people, with the command that shows the fault again.
QString keepShrunk(const Failure& failure, const Traps& traps, const QString& folder);

/// @param ms how long it took. @return a sentence for people.
QString summary(const Herd& herd, qint64 ms);

}  // namespace monkey
