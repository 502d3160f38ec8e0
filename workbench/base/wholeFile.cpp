#include "workbench/base/wholeFile.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QThread>
#include <filesystem>

#include "workbench/base/FileLock.h"

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <unistd.h>

#include <cerrno>
#endif

namespace workbench {

namespace fs = std::filesystem;

namespace {

fs::path pathOf(const QString& path) {
    return fs::u8path(path.toStdString());
}

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

/// Asks for the content to be on the disk before a name stands for it.
bool synced(const QFile& file) {
#ifdef Q_OS_WIN
    return _commit(file.handle()) == 0;
#else
    // Not every file system has something to wait for.
    return fsync(file.handle()) == 0 || errno == EINVAL || errno == ENOTSUP;
#endif
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
    else if (!synced(file))
        reason = qt_error_string();
    if (!reason.isEmpty()) file.remove();
    return reason;
}

/// Gives the unfinished file its name, unless somebody has it.
void claim(const fs::path& part, const fs::path& name, std::error_code& failure) {
    fs::create_hard_link(part, name, failure);
    if (!failure || failure == std::errc::file_exists) return;
    // A file system without hard links. No other workbench is here, and one program alone cannot
    // ask for a free name and take it in one step.
    if (fs::exists(name, failure))
        failure = std::make_error_code(std::errc::file_exists);
    else if (!failure)
        fs::rename(part, name, failure);
}

/// @return whether somebody may be reading what was to be replaced: Windows is asked again then.
bool isInUse(const std::error_code& failure) {
#ifdef Q_OS_WIN
    return failure == std::errc::permission_denied;
#else
    Q_UNUSED(failure)
    return false;
#endif
}

QString textOf(const std::error_code& failure) {
    return failure ? QString::fromLocal8Bit(failure.message().c_str()) : QString();
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
    std::error_code failure;
    claim(pathOf(part), pathOf(path), failure);
    QFile::remove(part);
    return textOf(failure);
}

QString putInPlace(const QString& from, const QString& to) {
    std::error_code failure;
    QElapsedTimer waited;
    waited.start();
    for (;;) {
        fs::rename(pathOf(from), pathOf(to), failure);
        if (!isInUse(failure) || waited.elapsed() >= writerPatience) return textOf(failure);
        QThread::msleep(1);
    }
}

QString replaceFile(const QString& path, const QByteArray& content) {
    QFile old(realPath(path));
    // Only the folder's permission is needed, but who takes the file's away means something by it.
    if (old.exists() && !old.open(QIODevice::ReadWrite)) return old.errorString();
    old.close();
    const QString part = unfinishedFile(path);
    const QString reason = prepare(part, content);
    if (!reason.isEmpty()) return reason;
    if (old.exists()) QFile::setPermissions(part, old.permissions());
    const QString refusal = putInPlace(part, old.fileName());
    if (!refusal.isEmpty()) QFile::remove(part);
    return refusal;
}

}  // namespace workbench
