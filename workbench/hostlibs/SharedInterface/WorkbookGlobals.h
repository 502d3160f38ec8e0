/// The part of a binary workbook that tells what it is.
#pragma once

#include <QByteArray>

class QFile;

namespace workbench {

/// Copies what stands before the texts and the sheets of a binary workbook (its version, password
/// and list of sheets) into a small compound file of its own, so that a reader which steps over
/// every record has few of them. Reads neither texts nor sheets.
/// @param file open for reading; its position changes.
/// @return the small compound file. Empty where `file` is laid out otherwise (cut, damaged, with an
///         old or a tiny workbook inside): it must be judged whole then.
QByteArray globalsAlone(QFile& file);

/// FreeXL takes the name of each entry by the length that the entry gives, whatever that is.
/// @param file open for reading; its position changes.
/// @return whether the directory of a compound file ends, has an entry for a workbook, and no name
///         of impossible length.
bool hasSoundDirectory(QFile& file);

}  // namespace workbench
