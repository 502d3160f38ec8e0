/// The judgement of a project file that the user chose or typed.
#pragma once

#include <QString>
#include <QStringList>
#include <optional>

#include "files/filePages.h"

namespace newpro {

/// @return the components of a cloud path, empty ones left out.
QStringList cloudComponents(const QString& path);
/// @return whether the path begins with the name of one of the two cloud disks.
bool isCloudPath(const QString& path);

/// Name of the personal cloud disk, as paths begin with it.
extern const QString personalDisk;

/// What is known of a chosen file.
struct FileFacts {
    bool named = false;  ///< Whether anything was chosen at all.
    bool cloud = false;  ///< On a cloud disk; `exists` and `isFile` are then not looked at.
    bool exists = false;
    bool isFile = false;  ///< A regular file, not a folder.
    /// In upper case; none where the name has none. The name of a cloud file that ends in a dot has
    /// an empty suffix, that of a local one has none.
    std::optional<QString> suffix;
};

/// @param text a local or cloud path as chosen. @return its facts; the disk is asked for a local
/// one.
FileFacts factsOf(const QString& text);

enum class Verdict { Accepted, NothingChosen, NotFound, NotAFile, WrongSuffix };

/// @return what a flow makes of a file.
Verdict judge(FileFlow flow, const FileFacts& facts);

/// @return the text that refuses a file; empty for Accepted.
QString refusalText(FileFlow flow, Verdict verdict);

}  // namespace newpro
