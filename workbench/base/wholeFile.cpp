#include "workbench/base/wholeFile.h"

#include <QDir>
#include <QFileInfo>

#include "workbench/base/FileLock.h"
#include "workbench/base/fileSystem.h"

namespace workbench {

namespace {

/// @return the path behind links, so that a link stays one.
QString realPath(const QString& path) {
    const QString real = QFileInfo(path).canonicalFilePath();
    return real.isEmpty() ? path : real;
}

QString inFolderOf(const QString& path, const char* name) {
    return QFileInfo(realPath(path)).absoluteDir().filePath(QLatin1String(name));
}

/// A folder has one unfinished file at the most, since only the holder of its lock writes one.
QString unfinishedFile(const QString& path) {
    return inFolderOf(path, ".newpro-workbench.part");
}

/// Writes the unfinished file. @return empty, or the reason; there is no such file then.
QString prepare(const QString& part, const QByteArray& content) {
    // One that a killed writer left may be a finished file's second name: never written into.
    QFile::remove(part);
    QFile file(part);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        return file.errorString();
    QString reason;
    if (!writeAll(file, content))
        reason = file.errorString();
    else if (!isOnDisk(file))
        reason = qt_error_string();
    if (!reason.isEmpty()) file.remove();
    return reason;
}

}  // namespace

QString lockOfFolder(const QString& path) {
    return inFolderOf(path, ".newpro-workbench.lock");
}

bool writeAll(QFile& file, const QByteArray& content) {
    qint64 done = 0;
    while (done < content.size()) {
        const qint64 taken = file.write(content.constData() + done, content.size() - done);
        if (taken <= 0) return false;
        done += taken;
    }
    return true;
}

QString makeFile(const QString& path, const QByteArray& content) {
    FileLock lock(lockOfFolder(path));
    if (!lock.lock(writerPatience)) return lock.error();
    const QString part = unfinishedFile(path);
    const QString reason = prepare(part, content);
    if (!reason.isEmpty()) return reason;
    const QString refusal = giveFreeName(part, path);
    if (!refusal.isEmpty()) QFile::remove(part);
    return refusal;
}

QString replaceFile(const QString& path, const QByteArray& content) {
    QFile old(realPath(path));
    // Only the folder's permission is needed, but who takes the file's away means something by it.
    if (old.exists() && !openPatiently(old, QIODevice::ReadWrite)) return old.errorString();
    old.close();
    const QString part = unfinishedFile(path);
    const QString reason = prepare(part, content);
    if (!reason.isEmpty()) return reason;
    if (old.exists()) QFile::setPermissions(part, old.permissions());
    const QString refusal = giveName(part, old.fileName());
    if (!refusal.isEmpty()) QFile::remove(part);
    return refusal;
}

}  // namespace workbench
