#include "workbench/hostlibs/fileDialog/CloudDisk.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QGuiApplication>
#include <QTimer>
#include <algorithm>

#include "fileDialog.h"
#include "workbench/base/fileAdvice.h"
#include "workbench/base/fileSystem.h"
#include "workbench/base/wholeFile.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/projects/fileKind.h"

namespace workbench::cloud {

namespace {

const QString enterprise = QStringLiteral("qy001");
const QLatin1Char slash('/');

QString disksFolder() {
    return Host::instance().installation().folder + QStringLiteral("/CloudDisks");
}

QString downloadsFolder() {
    return Host::instance().installation().folder + QStringLiteral("/Downloads");
}

QJsonObject answer(int code, const QString& message, const QJsonValue& data) {
    return {{QStringLiteral("code"), code},
            {QStringLiteral("msg"), message},
            {QStringLiteral("data"), data}};
}

QJsonObject failure(const QString& message, const QJsonValue& data = QJsonArray()) {
    return answer(1, message, data);
}

QJsonObject refusal() {
    return failure(QStringLiteral("云盘服务拒绝了请求，请稍后再试"));
}

/// The switches have the last word on every answer.
template <typename Operation>
QJsonObject served(Operation&& operation) {
    const CloudMode& mode = Host::instance().switches().cloud;
    if (mode.refused) return refusal();
    const QJsonObject right = operation();
    return mode.broken ? damaged(right) : right;
}

bool arePlainNames(const QStringList& names) {
    return std::all_of(names.begin(), names.end(), [](const QString& name) {
        return !name.isEmpty() && name != QLatin1String(".") && name != QLatin1String("..") &&
               !name.contains(slash) && !name.contains(QLatin1Char('\\')) &&
               !name.contains(QChar::Null);
    });
}

bool isBelow(const QString& path, const QString& folder) {
    return !folder.isEmpty() && path.startsWith(folder + slash);
}

/// @return the real path of an id or link; empty if it is malformed, leads nowhere or out of its
///         disk.
QString resolved(const QString& link) {
    const QStringList names = link.split(slash);
    if (!arePlainNames(names)) return {};
    if (names.first() != personalDisk && names.first() != companyDisk) return {};
    const QString disk = QFileInfo(disksFolder() + slash + names.first()).canonicalFilePath();
    const QString path = QFileInfo(disksFolder() + slash + link).canonicalFilePath();
    return path == disk || isBelow(path, disk) ? path : QString();
}

QJsonObject node(const QFileInfo& info, const QString& link) {
    const bool folder = info.isDir();
    QJsonObject node{
        {QStringLiteral("wjjmc"), info.fileName()},
        {QStringLiteral("wjlx"), folder ? QStringLiteral("1") : QStringLiteral("2")},
        {QStringLiteral("wjjid"), folder ? link : QString()},
        {QStringLiteral("wjjgsqyid"), link.startsWith(companyDisk) ? enterprise : QString()},
        {QStringLiteral("xgsj"), info.lastModified().toString(Qt::ISODate)},
        {QStringLiteral("xjdata"), QJsonArray()}};
    if (folder) return node;
    node.insert(QStringLiteral("xzlj"), link);
    node.insert(QStringLiteral("wjdx"), info.size());
    return node;
}

enum class Depth { One, All };

/// Links of the file system are left out: they could lead out of the disk, or round in a circle.
QJsonArray nodesIn(const QString& folder, const QString& link, Depth depth) {
    QJsonArray nodes;
    if (folder.isEmpty()) return nodes;
    const QFileInfoList list =
        QDir(folder).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::NoSymLinks,
                                   QDir::Name | QDir::DirsFirst | QDir::IgnoreCase);
    for (const QFileInfo& info : list) {
        const QString below = link + slash + info.fileName();
        QJsonObject entry = node(info, below);
        if (depth == Depth::All && info.isDir())
            entry.insert(QStringLiteral("xjdata"), nodesIn(info.filePath(), below, depth));
        nodes.append(entry);
    }
    return nodes;
}

QJsonObject folderAnswer(const QString& link) {
    const QString folder = resolved(link);
    if (folder.isEmpty() || !QFileInfo(folder).isDir())
        return failure(QStringLiteral("云盘目录不存在或已被移动"));
    return answer(0, QString(), nodesIn(folder, link, Depth::One));
}

bool isCurrent(const QFileInfo& copy, const QFileInfo& original) {
    return copy.isFile() && copy.size() == original.size() &&
           copy.lastModified() >= original.lastModified();
}

/// @return empty, or why the content could not be copied.
QString copyInParts(QFile& from, QFile& to, const Progress& progress) {
    constexpr qint64 largestPart = 1024 * 1024;
    constexpr qint64 fewestParts = 20;  // what is told looks like a movement
    if (!openPatiently(from, QIODevice::ReadOnly)) return from.errorString();
    if (!to.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) return to.errorString();
    const qint64 total = from.size();
    const qint64 part = qBound(qint64(1), total / fewestParts, largestPart);
    while (to.pos() < total) {
        const QByteArray content = from.read(part);
        if (content.isEmpty()) return from.errorString();
        if (!writeAll(to, content)) return to.errorString();
        if (progress && !progress(to.pos(), total)) return QStringLiteral("已取消下载");
    }
    return {};
}

/// @return a file beside the target that belongs to this download alone: another workbench may be
///         fetching the same file.
QString unfinished(const QString& target) {
    static int downloads = 0;
    return QFileInfo(target).absoluteDir().filePath(QStringLiteral(".newpro-workbench-%1-%2.part")
                                                        .arg(QCoreApplication::applicationPid())
                                                        .arg(++downloads));
}

/// The earlier copy stays until the new one is whole. @return empty, or the reason.
QString copied(const QString& from, const QString& to, const Progress& progress) {
    QFile source(from);
    QFile part(unfinished(to));
    QString reason = copyInParts(source, part, progress);
    part.close();
    if (reason.isEmpty()) reason = giveName(part.fileName(), to);
    if (!reason.isEmpty()) part.remove();
    return reason;
}

/// Makes the folder of a download. @return whether it really lies below the downloads: one of its
///         folders could be a link.
bool prepareFolder(const QString& target) {
    const QString folder = QFileInfo(target).path();
    if (!QDir().mkpath(folder)) return false;
    const QString downloads = QFileInfo(downloadsFolder()).canonicalFilePath();
    const QString real = QFileInfo(folder).canonicalFilePath();
    return real == downloads || isBelow(real, downloads);
}

QJsonObject downloaded(const QString& fileName, const QString& link, const QString& localPath,
                       bool exists, const Progress& progress) {
    const QFileInfo original(resolved(link));
    if (!original.isFile() || original.fileName() != fileName)
        return failure(QStringLiteral("云盘文件不存在或已被移动"), QString());
    const QString target =
        QDir::cleanPath(localPath.isEmpty() ? downloadsFolder() + slash + link : localPath);
    if (!isBelow(target, downloadsFolder()) || !prepareFolder(target))
        return failure(QStringLiteral("无法写入下载目录"), QString());
    const bool current = exists && isCurrent(QFileInfo(target), original);
    const QString reason = current ? QString() : copied(original.filePath(), target, progress);
    if (!reason.isEmpty())
        return failure(QStringLiteral("云盘文件下载失败：%1。%2")
                           .arg(reason, QString::fromUtf8(fileAdvice(reason))),
                       QString());
    return answer(0, QString(), target);
}

}  // namespace

QJsonObject personalTree() {
    return served([] {
        QJsonObject root = node(QFileInfo(disksFolder() + slash + personalDisk), personalDisk);
        root.insert(QStringLiteral("wjjmc"), QStringLiteral("根目录"));
        root.insert(QStringLiteral("wjlx"), QStringLiteral("1"));
        root.insert(QStringLiteral("xjdata"),
                    nodesIn(resolved(personalDisk), personalDisk, Depth::All));
        return answer(0, QString(), QJsonObject{{QStringLiteral("list"), QJsonArray{root}}});
    });
}

QJsonObject companyTop() {
    return served([] { return folderAnswer(companyDisk); });
}

QJsonObject companyFolder(const QString& folderId, const QString& enterpriseId) {
    return served([&] {
        if (Host::instance().switches().cloud.foldersRefused) return refusal();
        if (enterpriseId != enterprise) return failure(QStringLiteral("无权访问该企业的云盘"));
        if (!folderId.startsWith(companyDisk))
            return failure(QStringLiteral("云盘目录不存在或已被移动"));
        return folderAnswer(folderId);
    });
}

QJsonObject localCopy(const QString& fileName, const QString& folderPath) {
    return served([&] {
        QStringList names = folderPath.split(zFileDialog::pathFgf, Qt::SkipEmptyParts);
        names.append(fileName);
        const bool plain = arePlainNames(names);
        const QString path = plain ? downloadsFolder() + slash + names.join(slash) : QString();
        const QJsonObject data{{QStringLiteral("filPath"), path},
                               {QStringLiteral("isExist"), plain && QFileInfo(path).isFile()}};
        return plain ? answer(0, QString(), data) : failure(QStringLiteral("云盘路径无效"), data);
    });
}

QJsonObject download(const QString& fileName, const QString& link, const QString& localPath,
                     const QString& isExist, const Progress& progress) {
    return served([&] {
        return downloaded(fileName, link, localPath, isExist == QLatin1String("1"), progress);
    });
}

QJsonArray nodesOf(const QJsonObject& answer) {
    const QJsonValue data = answer.value(QStringLiteral("data"));
    if (data.isArray()) return data.toArray();
    const QJsonObject object = data.toObject();
    for (const QJsonValue& value : object) {
        if (value.isArray()) return value.toArray();
    }
    return {};
}

QJsonArray childrenOfRoot(const QJsonObject& answer) {
    return nodesOf(answer).first().toObject().value(QStringLiteral("xjdata")).toArray();
}

int countNodes(const QJsonArray& nodes) {
    int count = nodes.size();
    for (const QJsonValue& node : nodes)
        count += countNodes(node.toObject().value(QStringLiteral("xjdata")).toArray());
    return count;
}

void waitForAnswer() {
    if (!Host::instance().switches().cloud.slow) return;
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    QEventLoop loop;
    // A coarse timer may come 5 % early.
    QTimer::singleShot(slowAnswerMs, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
    QGuiApplication::restoreOverrideCursor();
}

}  // namespace workbench::cloud
