/// The cloud service of the workbench: two disks backed by folders of the installation.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <functional>

#include "workbench/base/WorkbenchApi.h"

namespace workbench::cloud {

/// Every answer has "code" (0 for success) and "msg". Folder ids and download links are paths below
/// the folder of the disks that begin with a disk's name; anything that leads elsewhere is refused.
/// The switches can have all of them refused or damaged. None of them waits.

/// @return the personal disk's whole tree; "data" is an object whose "list" holds the root node.
QJsonObject personalTree();
/// @return the enterprise disk's top level; folders come without their content.
QJsonObject companyTop();
/// @return the content of one enterprise folder, without that of its folders.
QJsonObject companyFolder(const QString& folderId, const QString& enterpriseId);
/// @param folderPath disk and folders joined by the host's separator.
/// @return where a download of the file lies or would lie, and whether it exists.
QJsonObject localCopy(const QString& fileName, const QString& folderPath);
/// Told how many bytes of a download are there; false where the user has given it up.
using Progress = std::function<bool(qint64 done, qint64 total)>;
/// Copies a cloud file to its local place, unless a copy as new as the cloud file is there.
/// @param localPath below the folder of the downloads; empty for the place of the link.
/// @param isExist "1" if the caller knows of an earlier copy.
/// @param progress asked after each part that was copied; the earlier copy stays until the new one
///        is whole. @return "data" is the local path.
QJsonObject download(const QString& fileName, const QString& link, const QString& localPath,
                     const QString& isExist, const Progress& progress = {});

/// @return the nodes of a tree or folder answer; empty where it holds none.
WORKBENCH_API QJsonArray nodesOf(const QJsonObject& answer);
/// @return the children of the personal disk's root node; empty where there is no such node.
QJsonArray childrenOfRoot(const QJsonObject& answer);
/// @return the number of nodes below and in `nodes`.
WORKBENCH_API int countNodes(const QJsonArray& nodes);

/// @return the answer as the service would spoil it: entries without names, texts in the place of
///         numbers and lists, lists cut short. The same answer is always spoilt in the same way.
QJsonObject damaged(const QJsonObject& answer);

/// Lets the time of one answer pass, two seconds when the switches ask for slow answers. The user
/// cannot click meanwhile, so that no operation is entered twice.
void waitForAnswer();
constexpr int slowAnswerMs = 2000;

}  // namespace workbench::cloud
