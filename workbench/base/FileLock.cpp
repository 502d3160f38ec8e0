#include "workbench/base/FileLock.h"

#include <QElapsedTimer>
#include <QThread>
#include <cerrno>

#ifdef Q_OS_WIN
#include <io.h>
#include <windows.h>

#include "workbench/base/fileSystem.h"
#else
#include <sys/file.h>
#include <sys/stat.h>
#endif

namespace workbench {

namespace {

enum class Attempt { Held, Taken, Denied, Impossible };

const QLatin1String takenText("another program is at work here");

#ifdef Q_OS_WIN

/// Nobody can open the file while its holder has it open, nor remove it.
Attempt take(QFile& file, QString& problem) {
    const HANDLE handle =
        CreateFileW(systemPath(file.fileName()).c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, 0,
                    nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        const DWORD refusal = GetLastError();
        const bool taken = refusal == ERROR_SHARING_VIOLATION;
        problem = taken ? QString(takenText) : qt_error_string(int(refusal));
        if (taken) return Attempt::Taken;
        return refusal == ERROR_ACCESS_DENIED ? Attempt::Denied : Attempt::Impossible;
    }
    const int descriptor = _open_osfhandle(reinterpret_cast<intptr_t>(handle), 0);
    if (descriptor < 0) {
        CloseHandle(handle);
        problem = qt_error_string(ERROR_TOO_MANY_OPEN_FILES);
        return Attempt::Impossible;
    }
    if (file.open(descriptor, QIODevice::ReadWrite, QFile::AutoCloseHandle)) return Attempt::Held;
    _close(descriptor);
    problem = file.errorString();
    return Attempt::Impossible;
}

/// It is gone as soon as it is closed.
void removeOpen(QFile& file) {
    FILE_DISPOSITION_INFO gone{TRUE};
    const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(file.handle()));
    SetFileInformationByHandle(handle, FileDispositionInfo, &gone, sizeof gone);
}

#else

/// The holder before may have removed the file between its opening and its locking here.
bool isNamed(const QFile& file) {
    struct stat now {};
    return fstat(file.handle(), &now) == 0 && now.st_nlink > 0;
}

Attempt take(QFile& file, QString& problem) {
    if (!file.open(QIODevice::ReadWrite)) {
        problem = file.errorString();
        return Attempt::Impossible;
    }
    const bool locked = flock(file.handle(), LOCK_EX | LOCK_NB) == 0;
    if (locked && isNamed(file)) return Attempt::Held;
    const bool taken = locked || errno == EWOULDBLOCK;
    problem = taken ? QString(takenText) : qt_error_string();
    file.close();
    return taken ? Attempt::Taken : Attempt::Impossible;
}

void removeOpen(QFile& file) {
    QFile::remove(file.fileName());
}

#endif

constexpr int glanceMs = 1;
// Windows also denies a file that its holder is just removing, which takes no time.
constexpr int longestDenialMs = 200;

}  // namespace

FileLock::~FileLock() {
    if (!file.isOpen()) return;
    // While it is still locked: a file that the next one has opened must not be taken from under
    // it.
    removeOpen(file);
    file.close();
}

bool FileLock::lock(int patience) {
    QElapsedTimer waited;
    waited.start();
    for (qint64 deniedSince = 0;;) {
        const Attempt result = take(file, problem);
        if (result == Attempt::Held) return true;
        if (result != Attempt::Denied) deniedSince = waited.elapsed();
        const bool hopeless =
            result == Attempt::Impossible || waited.elapsed() - deniedSince > longestDenialMs;
        if (hopeless || waited.elapsed() >= patience) return false;
        QThread::msleep(glanceMs);
    }
}

}  // namespace workbench
