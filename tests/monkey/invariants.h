/// What holds of every journal, whatever a user did.
#pragma once

#include <QJsonObject>
#include <QStringList>
#include <QVector>

namespace monkey {

using Entries = QVector<QJsonObject>;

/// How often the host was asked to create a project. A template card's message 44 and the signal
/// behind it are one request.
int creationRequests(const Entries& journal);

/// @return what is wrong, each as "kind: details"; empty if nothing is. A dialog asks for one
///         project at most, and none is asked for before a dialog was opened. A journal does not
///         tell which dialog asks; but one closes for what it asks, so that a request beside an
///         open dialog that is not accepted next was another's, from before.
QStringList creationFaults(const Entries& journal);
/// Numbers without gaps, every entry with the members of its kind, and every window that was opened
/// done.
QStringList journalFaults(const Entries& journal);
/// Exceptions come from a host that throws.
QStringList exceptionFaults(const Entries& journal, bool hostThrows);

}  // namespace monkey
