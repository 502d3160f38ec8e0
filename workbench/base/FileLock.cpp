#include "workbench/base/FileLock.h"

#include <QElapsedTimer>
#include <QThread>

#ifdef Q_OS_WIN
#include <io.h>
#include <windows.h>
#else
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#endif

namespace workbench {

namespace {

#ifdef Q_OS_WIN

// An open file cannot be removed: what is locked is what the name stands for.
bool isNamed(const QFile&) {
    return true;
}

/// @return whether the file that could not be opened may be one that its holder removes just now.
bool isLeaving() {
    return GetLastError() == ERROR_ACCESS_DENIED || GetLastError() == ERROR_SHARING_VIOLATION;
}

bool grab(const QFile& file, bool& taken) {
    OVERLAPPED start{};
    const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(file.handle()));
    const DWORD how = LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY;
    if (LockFileEx(handle, how, 0, 1, 0, &start)) return true;
    taken = GetLastError() == ERROR_LOCK_VIOLATION || GetLastError() == ERROR_IO_PENDING;
    return false;
}

#else

/// The holder before may have removed the file between its opening and its locking here.
bool isNamed(const QFile& file) {
    struct stat now {};
    return fstat(file.handle(), &now) == 0 && now.st_nlink > 0;
}

bool isLeaving() {
    return false;
}

bool grab(const QFile& file, bool& taken) {
    if (flock(file.handle(), LOCK_EX | LOCK_NB) == 0) return true;
    taken = errno == EWOULDBLOCK;
    return false;
}

#endif

constexpr int glanceMs = 1;

}  // namespace

FileLock::~FileLock() {
    if (!file.isOpen()) return;
    // Removed while it is still locked, where that can be done: a file that the next one has opened
    // must not be taken from under it.
    const bool removed = QFile::remove(file.fileName());
    file.close();
#ifdef Q_OS_WIN
    if (!removed) QFile::remove(file.fileName());
#else
    Q_UNUSED(removed)
#endif
}

FileLock::Attempt FileLock::attempt() {
    if (!file.open(QIODevice::ReadWrite)) {
        const bool leaving = isLeaving();  // before anything else asks the system
        problem = file.errorString();
        return leaving ? Attempt::Taken : Attempt::Impossible;
    }
    bool taken = false;
    const bool grabbed = grab(file, taken);
    if (grabbed && isNamed(file)) return Attempt::Held;
    problem =
        taken || grabbed ? QStringLiteral("another program is at work here") : qt_error_string();
    file.close();
    return taken || grabbed ? Attempt::Taken : Attempt::Impossible;
}

bool FileLock::lock(int patience) {
    QElapsedTimer waited;
    waited.start();
    for (;;) {
        const Attempt result = attempt();
        if (result != Attempt::Taken) return result == Attempt::Held;
        if (waited.elapsed() >= patience) return false;
        QThread::msleep(glanceMs);
    }
}

}  // namespace workbench
