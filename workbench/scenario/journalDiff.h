/// What differs between two journals.
#pragma once

#include <QJsonObject>
#include <QStringList>
#include <QVector>

namespace workbench {

/// Reads a journal file, one JSON object per line.
/// @param error set to "file:line: what is wrong" on failure.
/// @return whether every line is one of a journal; `into` is only changed on success.
bool readJournal(const QString& file, QVector<QJsonObject>& into, QString& error);

/// Compares two journals by all that lasts from play to play, over a longest common subsequence:
/// number, time, the folder of a temporary copy, and the day in the name of a project file do not.
/// Takes memory in proportion to the entries.
/// @return the lines of a unified difference, with the number of the left entry, of an added one
///         that of the right; empty where nothing differs.
QStringList journalDifference(const QVector<QJsonObject>& left, const QVector<QJsonObject>& right);

}  // namespace workbench
