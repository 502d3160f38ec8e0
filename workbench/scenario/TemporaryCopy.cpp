#include "workbench/scenario/TemporaryCopy.h"

#include <QDir>
#include <filesystem>

namespace workbench {

namespace fs = std::filesystem;

namespace {

/// Template cards are listed by modification time, so that a copy must keep the times.
void copyTree(const fs::path& from, const fs::path& to) {
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

fs::path pathOf(const QString& path) {
    return fs::u8path(path.toStdString());
}

}  // namespace

QString copyFolder(const QString& source, const QString& target) {
    if (!QDir(source).exists()) return QStringLiteral("%1: no such folder").arg(source);
    try {
        copyTree(pathOf(source), pathOf(target));
    } catch (const fs::filesystem_error& failure) {
        return QString::fromLocal8Bit(failure.what());
    }
    return QString();
}

TemporaryCopy::TemporaryCopy(const QString& source) {
    if (!directory.isValid()) {
        problem = directory.errorString();
        return;
    }
    problem = copyFolder(source, folder());
}

QString TemporaryCopy::folder() const {
    return QDir(directory.path()).canonicalPath();
}

}  // namespace workbench
