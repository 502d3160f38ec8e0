/// What the targets share.
#pragma once

#include <QByteArray>
#include <QString>

namespace fuzzing {

/// Ends the process where a promise is broken. @param promise what should have held.
void require(bool kept, const char* promise);

/// @return a folder of this process alone. It lies where temporary files do; TMPDIR should name a
///         file system in memory.
QString folder();

/// Writes a file into the folder, over the one before. @return its absolute path.
QString write(const QString& name, const QByteArray& content);

/// The least that an installation's settings and history hold.
extern const char soundSettings[];
extern const char soundHistory[];

/// @return the text with all its NULs, at which QString::fromUtf8(QByteArray) would end.
QString textOf(const QByteArray& utf8);

/// Cuts the first line off. @return it, without its end.
QByteArray takeLine(QByteArray& text);

/// Holds an error of the strict readers to "file:line: place: what is wrong", with a line that the
/// file has. @param content of the file.
void requirePlaced(const QString& error, const QString& path, const QByteArray& content);

}  // namespace fuzzing
