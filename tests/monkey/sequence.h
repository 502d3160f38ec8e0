/// Random users, as scenarios.
#pragma once

#include <QJsonObject>
#include <QStringList>

namespace monkey {

/// @return what one random user does, as the content of a scenario file: the same for the same
///         seed. Steps that turn out to be impossible are meant to be skipped.
QJsonObject sequence(quint32 seed);

/// @return the verbs that sequences are made of.
QStringList sequenceVerbs();

}  // namespace monkey
