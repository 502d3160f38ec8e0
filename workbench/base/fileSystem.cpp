#include "workbench/base/fileSystem.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QThread>

#ifdef Q_OS_WIN
#include <io.h>
#include <windows.h>
#else
#include <unistd.h>

#include <cerrno>
#endif

namespace workbench {

namespace fs = std::filesystem;

QString temporaryPlace() {
    const QString place = QDir::tempPath();  // empty where what the system names does not exist
    return QFileInfo(place).isDir() ? place : QString();
}

#ifdef Q_OS_WIN

namespace {

// How long something is tried again, in milliseconds. A file is replaced in less than one; those
// that look for viruses read some hundred.
constexpr int patienceToOpen = 200;
constexpr int patienceToMove = 5000;

/// @return whether the system's last refusal is over as soon as somebody else has closed the file.
bool isInUse() {
    const DWORD refusal = GetLastError();
    return refusal == ERROR_SHARING_VIOLATION || refusal == ERROR_ACCESS_DENIED;
}

/// @param attempt returns whether it was successful. @return whether one was.
template <typename Attempt>
bool patiently(int patience, Attempt&& attempt) {
    QElapsedTimer waited;
    waited.start();
    while (!attempt()) {
        if (!isInUse() || waited.elapsed() >= patience) return false;
        QThread::msleep(1);
    }
    return true;
}

QString moved(const QString& from, const QString& to, DWORD how) {
    const fs::path file = systemPath(from);
    const fs::path name = systemPath(to);
    const auto move = [&] { return MoveFileExW(file.c_str(), name.c_str(), how) != 0; };
    return patiently(patienceToMove, move) ? QString() : qt_error_string();
}

}  // namespace

fs::path systemPath(const QString& path) {
    constexpr int longestPlain = 247;  // MAX_PATH less a name of eight and three letters
    if (path.size() <= longestPlain) return path.toStdWString();
    const QString whole = QDir::toNativeSeparators(QDir::cleanPath(QDir().absoluteFilePath(path)));
    if (whole.startsWith(QLatin1String(R"(\\?\)"))) return whole.toStdWString();
    const bool onShare = whole.startsWith(QLatin1String(R"(\\)"));
    return (onShare ? LR"(\\?\UNC)" + whole.mid(1).toStdWString()
                    : LR"(\\?\)" + whole.toStdWString());
}

bool openPatiently(QFile& file, QIODevice::OpenMode mode) {
    return patiently(patienceToOpen, [&] { return file.open(mode); });
}

bool isOnDisk(const QFile& file) {
    return _commit(file.handle()) == 0;
}

QString giveFreeName(const QString& file, const QString& name) {
    return moved(file, name, MOVEFILE_WRITE_THROUGH);
}

QString giveName(const QString& file, const QString& name) {
    return moved(file, name, MOVEFILE_WRITE_THROUGH | MOVEFILE_REPLACE_EXISTING);
}

#else

namespace {

QString textOf(const std::error_code& failure) {
    return failure ? QString::fromLocal8Bit(failure.message().c_str()) : QString();
}

}  // namespace

fs::path systemPath(const QString& path) {
    return fs::u8path(path.toStdString());
}

bool openPatiently(QFile& file, QIODevice::OpenMode mode) {
    return file.open(mode);
}

bool isOnDisk(const QFile& file) {
    // Not every file system has something to wait for.
    return fsync(file.handle()) == 0 || errno == EINVAL || errno == ENOTSUP;
}

QString giveFreeName(const QString& file, const QString& name) {
    std::error_code failure;
    fs::create_hard_link(systemPath(file), systemPath(name), failure);
    if (!failure) QFile::remove(file);
    if (!failure || failure == std::errc::file_exists) return textOf(failure);
    // A file system without hard links. No other workbench is here, and one program alone cannot
    // ask for a free name and take it in one step.
    if (fs::exists(systemPath(name), failure))
        failure = std::make_error_code(std::errc::file_exists);
    else if (!failure)
        return giveName(file, name);
    return textOf(failure);
}

QString giveName(const QString& file, const QString& name) {
    std::error_code failure;
    fs::rename(systemPath(file), systemPath(name), failure);
    return textOf(failure);
}

#endif

}  // namespace workbench
