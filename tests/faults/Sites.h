/// The calls of the host that stand in the module's code, reached or not.
#pragma once

#include <QStringList>
#include <QVector>

#include "tests/faults/Case.h"

namespace faults {

/// @param reached the calls of all flows.
/// @return the operations that none of them calls, and the calls that none of them comes by, a line
///         each, but for those that are known and tested otherwise. Calls are looked at where
///         nothing is inlined only.
QStringList unreached(const QVector<Place>& reached);

/// @return how many calls the module's code has.
int siteCount();

}  // namespace faults
