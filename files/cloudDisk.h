/// From the path of a file on a cloud disk to a local copy of it.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

#include "files/filePages.h"

namespace newpro {

/// Answers the entries of a folder from the folder's record; none to give the walk up.
using FetchFolder = std::function<std::optional<QJsonArray>(const QJsonObject& folder)>;

/// Walks down a cloud tree. Records that lack a member or hold another type are passed over.
/// @param top the entries of the disk itself.
/// @param names folder names and, last, the name of the file.
/// @param fetch called once for each folder on the way.
/// @return the file's record; none where a name is not found or `fetch` gave up.
std::optional<QJsonObject> findInCloud(QJsonArray top, const QStringList& names,
                                       const FetchFolder& fetch);

/// @param personalData the answer of zFileDialog::LoadGrypData. @return the entries of the disk
///         itself; empty where there is no root.
QJsonArray personalTopLevel(const QJsonObject& personalData);

/// @param fileList entries of the cloud service's file list.
/// @return whether a cloud record names the path and no such record holds the user id in one of its
///         other fields.
bool belongsToAnother(const QStringList& fileList, const QString& cloudPath, const QString& userId);

/// Finds the file on its disk and downloads it. Failures are told with one message, but for a
/// component that is not found. Exceptions of the host pass through.
/// @param local set to the path of the copy; left alone on failure.
/// @param cloudPath the disk's name, folder names and the file name.
/// @param selectInAudit whether to make the item of this path current in the audit page's box.
/// @return whether there is a local copy.
bool resolveCloudPath(QString& local, const QString& cloudPath, bool selectInAudit,
                      const FilePages& pages);

}  // namespace newpro
