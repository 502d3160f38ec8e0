/// What reads foreign bytes: each target feeds any bytes to one reader and holds it to its
/// promises.
#pragma once

#include <QByteArray>
#include <vector>

namespace fuzzing {

/// Returns on any input; ends the process where a promise is broken. Leaves no state behind.
using FuzzOne = void (*)(const QByteArray& input);

struct Target {
    const char* name;  ///< Also the name of its folder in corpus/.
    FuzzOne fuzzOne;
};

/// @return all targets, in the order of their names.
const std::vector<Target>& targets();

/// @param name of a target. @return its function; null for an unknown name.
FuzzOne targetNamed(const char* name);

}  // namespace fuzzing
