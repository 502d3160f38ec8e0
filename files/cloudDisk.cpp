#include "files/cloudDisk.h"

#include <QFile>

#include "SharedInterface.h"
#include "core/boxes.h"
#include "fileDialog.h"
#include "files/fileChoice.h"
#include "files/historyEntry.h"

namespace newpro {

namespace {

const QLatin1String dataKey("data");
const QLatin1String codeKey("code");
const QLatin1String nameKey("wjjmc");
const QLatin1String childrenKey("xjdata");
// Codes of the service's answers.
constexpr int grantedCode = 0;
constexpr int refusedCode = 1;
constexpr int noCode = -1;

void refuseConnection() {
    refuse(QStringLiteral("无法连接到原云盘地址"));
}

/// @return whether the service refused a listing; the user then knows why.
bool listingRefused(const QJsonObject& answer) {
    if (answer.value(codeKey).toInt() != refusedCode) return false;
    const QString message = answer.value(QLatin1String("msg")).toString();
    if (message.isEmpty()) {
        refuseConnection();
    } else {
        refuse(message);
    }
    return true;
}

bool isFolder(const QJsonObject& node) {
    return node.value(QLatin1String("wjlx")).toString() == QLatin1String("1");
}

/// The name alone tells a node. Where a folder and a file of one name lie side by side, the place
/// in the path tells which of them is meant.
std::optional<QJsonObject> nodeNamed(const QJsonArray& nodes, const QString& name, bool folder) {
    std::optional<QJsonObject> found;
    for (const QJsonValue& value : nodes) {
        const QJsonObject node = value.toObject();
        if (node.value(nameKey).toString() != name) continue;
        if (isFolder(node) == folder) return node;
        if (!found) found = node;
    }
    return found;
}

std::optional<QJsonArray> storedChildren(const QJsonObject& folder) {
    return folder.value(childrenKey).toArray();
}

std::optional<QJsonArray> requestedChildren(const QJsonObject& folder) {
    const QJsonObject answer =
        zFileDialog::LoadQyypMlData(folder.value(QLatin1String("wjjid")).toString(),
                                    folder.value(QLatin1String("wjjgsqyid")).toString());
    if (listingRefused(answer)) return std::nullopt;
    return answer.value(dataKey).toArray();
}

/// @param components the disk's name and at least one more.
std::optional<QJsonObject> findFile(const QStringList& components) {
    const bool personal = components.constFirst() == personalDisk;
    // Not judged by its code: only folder contents and downloads are. What is refused has no nodes.
    const QJsonObject answer = personal ? zFileDialog::LoadGrypData() : zFileDialog::LoadQyypData();
    return findInCloud(personal ? personalTopLevel(answer) : answer.value(dataKey).toArray(),
                       components.mid(1), personal ? storedChildren : requestedChildren);
}

/// @param folder cloud path of the file's folder. @return the path of the copy; empty on failure.
QString download(const QJsonObject& file, const QString& folder) {
    const QString name = file.value(nameKey).toString();
    const QJsonObject earlier =
        zFileDialog::IsExistDownLoadfile(name, folder).value(dataKey).toObject();
    const bool exists = earlier.value(QLatin1String("isExist")).toBool();
    // Asked for even where a copy exists: the service decides whether that copy is still good.
    const QJsonObject answer =
        zFileDialog::downLoadYunpanFile(name, file.value(QLatin1String("xzlj")).toString(),
                                        earlier.value(QLatin1String("filPath")).toString(),
                                        exists ? QStringLiteral("1") : QStringLiteral("0"));
    const QString path = answer.value(dataKey).toString();
    // An answer without a code is none.
    if (answer.value(codeKey).toInt(noCode) == grantedCode && !path.isEmpty()) return path;
    refuseConnection();
    return {};
}

QStringList readFileList() {
    QFile file(SharedInterface::GetAppPath() + QLatin1String("/FileList.Ini"));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return {};
    const QByteArray text = file.readAll();
    // With its length: without, the list would end at a NUL.
    return QString::fromUtf8(text.constData(), text.size())
        .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

bool ownedByAnotherAccount(const QString& cloudPath) {
    const UserInfo* account = Users::Instance()->Kvy();
    if (!account->IsLogin()) return false;
    // One after the other: as arguments, every compiler would ask in an order of its own.
    const QString user = account->UserID();
    return belongsToAnother(readFileList(), cloudPath, user);
}

}  // namespace

std::optional<QJsonObject> findInCloud(QJsonArray top, const QStringList& names,
                                       const FetchFolder& fetch) {
    if (names.isEmpty()) return std::nullopt;
    for (const QString& name : names.mid(0, names.size() - 1)) {
        const std::optional<QJsonObject> folder = nodeNamed(top, name, true);
        if (!folder || !isFolder(*folder)) return std::nullopt;
        const std::optional<QJsonArray> children = fetch(*folder);
        if (!children) return std::nullopt;
        top = *children;
    }
    return nodeNamed(top, names.constLast(), false);
}

QJsonArray personalTopLevel(const QJsonObject& personalData) {
    // The member that holds the root goes by no fixed name.
    const QJsonObject data = personalData.value(dataKey).toObject();
    for (const QJsonValue& value : data) {
        const QJsonObject root = value.toArray().at(0).toObject();
        if (root.value(nameKey).toString() == QStringLiteral("根目录")) {
            return root.value(childrenKey).toArray();
        }
    }
    return {};
}

bool belongsToAnother(const QStringList& fileList, const QString& cloudPath,
                      const QString& userId) {
    bool listed = false;
    for (const QString& text : fileList) {
        const QStringList fields = historyFields(text);
        if (fields.size() != cloudRecordFields || fields.constFirst() != cloudPath) continue;
        if (fields.mid(1).contains(userId)) return false;
        listed = true;
    }
    return listed;
}

bool resolveCloudPath(QString& local, const QString& cloudPath, bool selectInAudit,
                      const FilePages& pages) {
    if (selectInAudit) pages.audit.select(cloudPath);
    QStringList components = cloudComponents(cloudPath);
    if (components.size() < 2) {
        // The personal disk itself is a place that exists, only no file.
        if (components.value(0) != personalDisk) refuseConnection();
        return false;
    }
    if (ownedByAnotherAccount(cloudPath)) {
        refuseCritically(QStringLiteral("未找到该工程文件"));
        return false;
    }
    const std::optional<QJsonObject> file = findFile(components);
    if (!file) return false;
    components.removeLast();
    const QString path = download(*file, components.join(zFileDialog::pathFgf));
    if (path.isEmpty()) return false;
    local = path;
    return true;
}

}  // namespace newpro
