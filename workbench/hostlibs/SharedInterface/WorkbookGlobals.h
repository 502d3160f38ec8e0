/// The part of a binary workbook that tells what it is.
#pragma once

#include <QByteArray>

class QFile;

namespace workbench {

/// Copies what tells what a binary workbook is (its version, password, code page and list of
/// sheets) into a small compound file of its own. All else in it is written here: a reader of the
/// copy meets no length, place or chain of the file's own. Reads neither texts nor sheets.
/// @param file open for reading; its position changes.
/// @return the small compound file. Empty where `file` is cut, damaged or holds no workbook.
QByteArray globalsAlone(QFile& file);

}  // namespace workbench
