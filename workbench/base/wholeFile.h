/// Files that are whole or not there at all, at whatever moment their writer is killed.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

#include "workbench/base/WorkbenchApi.h"

namespace workbench {

/// How long a writer waits for another one, in milliseconds. Writing takes some of them.
constexpr int writerPatience = 10000;

/// @return the file whose lock a writer of this file holds. It lies in the folder of the file, so
///         that it is the same for every file there and for every process.
WORKBENCH_API QString lockOfFolder(const QString& path);

/// Writes everything to an unbuffered file. A disk that is about to be full takes a part without a
/// word: the rest is offered again, to learn the reason.
/// @return whether it was written; else file.errorString() is the reason.
WORKBENCH_API bool writeAll(QFile& file, const QByteArray& content);

/// Makes a file of a name that nobody has yet. It holds the whole content from the first moment.
/// @return empty, or the reason. A file that has the name already is left alone.
WORKBENCH_API QString makeFile(const QString& path, const QByteArray& content);

/// Gives a file another content. Whoever opens it finds the old or the new one.
/// The caller holds the lock of `lockOfFolder`, and has since it read what it changes.
/// @return empty, or the reason; the old content then stays.
WORKBENCH_API QString replaceFile(const QString& path, const QByteArray& content);

}  // namespace workbench
