#include "workbench/hostlibs/fileDialog/CloudBrowser.h"

#include "fileDialog.h"
#include "workbench/hostlibs/common/FileDialogState.h"
#include "workbench/hostlibs/fileDialog/CloudDisk.h"
#include "workbench/projects/fileKind.h"

namespace workbench {

CloudBrowser::CloudBrowser(std::function<bool()> wait, cloud::Progress progress)
    : wait(std::move(wait)), progress(std::move(progress)) {}

bool CloudBrowser::ask(const std::function<QJsonObject()>& request, QJsonObject& answer) {
    message.clear();
    if (!wait()) return false;
    answer = request();
    if (answer.value(QLatin1String("code")).toInt(-1) == 0) return true;
    message = answer.value(QLatin1String("msg")).toString();
    if (message.isEmpty()) message = QStringLiteral("云盘的应答无法识别");
    return false;
}

bool CloudBrowser::open(int place) {
    const bool personal = place == PersonalPlace;
    QJsonObject answer;
    if (!ask(personal ? cloud::personalTree : cloud::companyTop, answer)) return false;
    disk = place;
    levels = {{personal ? personalDisk : companyDisk,
               personal ? cloud::childrenOfRoot(answer) : cloud::nodesOf(answer),
               {},
               {}}};
    return true;
}

bool CloudBrowser::enter(const QString& name) {
    const QJsonObject node = find(name);
    message = QStringLiteral("云盘中没有文件夹“%1”").arg(name);
    if (node[u"wjlx"].toString() != QLatin1String("1")) return false;
    Level level{name, node[u"xjdata"].toArray(), node[u"wjjid"].toString(),
                node[u"wjjgsqyid"].toString()};
    if (disk == CompanyPlace) {
        QJsonObject answer;
        const auto request = [&] {
            return cloud::companyFolder(level.folderId, level.enterpriseId);
        };
        if (!ask(request, answer)) return false;
        level.nodes = cloud::nodesOf(answer);
    }
    message.clear();
    levels.append(level);
    return true;
}

bool CloudBrowser::goTo(int place, const QStringList& folders) {
    CloudBrowser next(wait, progress);
    bool arrived = next.open(place);
    for (const QString& name : folders) arrived = arrived && next.enter(name);
    if (arrived)
        *this = next;
    else
        message = next.message;
    return arrived;
}

bool CloudBrowser::up() {
    if (!canGoUp()) return false;
    levels.removeLast();
    return true;
}

bool CloudBrowser::download(const QString& name, FileAnswer& into) {
    const QJsonObject node = find(name);
    message.clear();
    if (!wait()) return false;
    const QJsonObject copy = cloud::localCopy(name, path()).value(QLatin1String("data")).toObject();
    if (!progress && !wait()) return false;
    bool moved = false;
    const auto told = [&](qint64 done, qint64 total) {
        moved = true;
        return !progress || progress(done, total);
    };
    const bool exists = copy[u"isExist"].toBool();
    const QJsonObject answer =
        cloud::download(name, node[u"xzlj"].toString(), copy[u"filPath"].toString(),
                        exists ? QStringLiteral("1") : QStringLiteral("0"), told);
    if (progress && !moved && !wait()) return false;
    const QString file = answer[u"data"].toString();
    if (answer[u"code"].toInt(-1) != 0 || file.isEmpty()) {
        message = answer[u"msg"].toString();
        if (message.isEmpty()) message = QStringLiteral("云盘文件下载失败");
        return false;
    }
    into = {file, disk, path() + zFileDialog::pathFgf + name, here().folderId, here().enterpriseId};
    return true;
}

QJsonObject CloudBrowser::find(const QString& name) const {
    const QJsonArray list = nodes();
    for (const QJsonValue& node : list)
        if (node[u"wjjmc"].toString() == name && !name.isEmpty()) return node.toObject();
    return {};
}

QString CloudBrowser::path() const {
    QStringList names;
    for (const Level& level : levels) names.append(level.name);
    return names.join(zFileDialog::pathFgf);
}

}  // namespace workbench
