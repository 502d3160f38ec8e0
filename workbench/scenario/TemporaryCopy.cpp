#include "workbench/scenario/TemporaryCopy.h"

#include <QDir>
#include <QRandomGenerator>
#include <QRegularExpression>

#include "workbench/base/fileSystem.h"
#include "workbench/base/wholeFile.h"

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace workbench {

namespace fs = std::filesystem;

namespace {

/// Template cards are listed by modification time, so that a copy must keep the times.
void copyTree(const fs::path& from, const fs::path& to) {
#ifdef Q_OS_WIN
    // One compiler's library lists the current folder in place of one with a longer path.
    constexpr size_t longest = 240;
    if (from.native().size() > longest)
        throw fs::filesystem_error("the path is too long to be copied", from,
                                   std::make_error_code(std::errc::filename_too_long));
#endif
    fs::create_directories(to);
    for (const fs::directory_entry& entry : fs::directory_iterator(from)) {
        const fs::path target = to / entry.path().filename();
        if (entry.is_symlink()) {
            fs::copy_symlink(entry.path(), target);
        } else if (entry.is_directory()) {
            copyTree(entry.path(), target);
        } else {
            fs::copy_file(entry.path(), target);
            fs::permissions(target, fs::perms::owner_write, fs::perm_options::add);
            fs::last_write_time(target, entry.last_write_time());
        }
    }
}

/// @return empty, or why the copy could not be made.
QString copyFolder(const QString& source, const QString& target) {
    if (!QDir(source).exists()) return QStringLiteral("%1: no such folder").arg(source);
    try {
        copyTree(systemPath(source), systemPath(target));
    } catch (const fs::filesystem_error& failure) {
        return QString::fromLocal8Bit(failure.what());
    }
    return QString();
}

const QLatin1String lockSuffix(".lock");
const QFile::Permissions onlyMine = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner;

/// @return a name that nobody has. @see removeAbandonedCopies
QString freshPlace() {
    const QString number = QString::number(QRandomGenerator::system()->generate64(), 16);
    return QDir(temporaryPlace())
        .absoluteFilePath(QStringLiteral("newpro-workbench-") +
                          number.rightJustified(16, QLatin1Char('0')));
}

/// @return whether this user made it, as far as the system tells.
bool isOwn(const QFileInfo& file) {
#ifdef Q_OS_UNIX
    return file.ownerId() == geteuid();
#else
    Q_UNUSED(file)
    return true;
#endif
}

}  // namespace

QString copyFolderWhole(const QString& source, const QString& target) {
    FileLock lock(target + lockSuffix);
    if (!lock.lock(writerPatience)) return QStringLiteral("%1: %2").arg(target, lock.error());
    if (QFileInfo(target).isDir()) return {};
    const QString part = target + QLatin1String(".part");
    QDir(part).removeRecursively();
    const QString problem = copyFolder(source, part);
    if (!problem.isEmpty()) return problem;
    const QString refusal = giveName(part, target);
    return refusal.isEmpty() ? refusal : QStringLiteral("%1: %2").arg(target, refusal);
}

// The lock comes first: its file is what tells a folder of ours from any other.
TemporaryFolder::TemporaryFolder() : place(freshPlace()), lock(place + lockSuffix) {
    if (temporaryPlace().isEmpty()) {
        problem = QStringLiteral("the system's temporary folder does not exist");
        return;
    }
    // Nobody has this name, but who clears up may look at the new file for a moment.
    if (!lock.lock(writerPatience)) {
        problem = QStringLiteral("%1: %2").arg(place, lock.error());
        return;
    }
    made = QDir().mkdir(place) && QFile::setPermissions(place, onlyMine);
    if (!made) problem = QStringLiteral("%1: the folder cannot be made").arg(place);
}

TemporaryFolder::~TemporaryFolder() {
    if (made) QDir(place).removeRecursively();
}

QString TemporaryFolder::path() const {
    return QDir(place).canonicalPath();
}

TemporaryCopy::TemporaryCopy(const QString& source)
    : problem(place.error().isEmpty() ? copyFolder(source, place.path()) : place.error()) {}

void removeAbandonedCopies() {
    static const QRegularExpression ours(QStringLiteral("^newpro-workbench-[0-9a-f]{16}\\.lock$"));
    const QString place = temporaryPlace();
    if (place.isEmpty()) return;
    const QDir temporary(place);
    const QStringList candidates{QStringLiteral("newpro-workbench-*.lock")};
    for (const QFileInfo& file : temporary.entryInfoList(candidates, QDir::Files)) {
        const QFileInfo folder(temporary.filePath(file.completeBaseName()));
        if (!ours.match(file.fileName()).hasMatch() || file.isSymLink() || !isOwn(file)) continue;
        if (folder.exists() && (folder.isSymLink() || !isOwn(folder))) continue;
        FileLock lock(file.filePath());
        if (lock.lock(0)) QDir(folder.filePath()).removeRecursively();
    }
}

}  // namespace workbench
