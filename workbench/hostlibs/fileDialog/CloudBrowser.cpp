#include "workbench/hostlibs/fileDialog/CloudBrowser.h"

#include <QJsonObject>
#include <algorithm>

#include "fileDialog.h"
#include "workbench/hostlibs/common/FileDialogState.h"
#include "workbench/hostlibs/fileDialog/CloudDisk.h"
#include "workbench/projects/fileKind.h"

namespace workbench {

namespace {

QString text(const QJsonObject& node, const char* key) {
    return node.value(QLatin1String(key)).toString();
}

}  // namespace

CloudBrowser::CloudBrowser(std::function<bool()> wait) : wait(std::move(wait)) {}

bool CloudBrowser::ask(const std::function<QJsonObject()>& request, QJsonObject& answer) {
    message.clear();
    if (!wait()) return false;
    answer = request();
    if (answer.value(QLatin1String("code")).toInt(-1) == 0) return true;
    message = text(answer, "msg");
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
    if (levels.isEmpty() || text(node, "wjlx") != QLatin1String("1")) return false;
    Level level{name, node.value(QLatin1String("xjdata")).toArray(), text(node, "wjjid"),
                text(node, "wjjgsqyid")};
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
    CloudBrowser next(wait);
    const bool arrived =
        next.open(place) && std::all_of(folders.begin(), folders.end(),
                                        [&next](const QString& name) { return next.enter(name); });
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

bool CloudBrowser::download(const QString& name, FileChoice& into) {
    const QJsonObject node = find(name);
    message.clear();
    if (!wait()) return false;
    const QJsonObject copy = cloud::localCopy(name, path()).value(QLatin1String("data")).toObject();
    if (!wait()) return false;
    const bool exists = copy.value(QLatin1String("isExist")).toBool();
    const QJsonObject answer = cloud::download(name, text(node, "xzlj"), text(copy, "filPath"),
                                               exists ? QStringLiteral("1") : QStringLiteral("0"));
    const QString file = text(answer, "data");
    if (answer.value(QLatin1String("code")).toInt(-1) != 0 || file.isEmpty()) {
        message = text(answer, "msg");
        if (message.isEmpty()) message = QStringLiteral("云盘文件下载失败");
        return false;
    }
    into = {file, disk, path() + zFileDialog::pathFgf + name, folderId(), enterpriseId()};
    return true;
}

QJsonArray CloudBrowser::nodes() const {
    return levels.isEmpty() ? QJsonArray() : levels.last().nodes;
}

QJsonObject CloudBrowser::find(const QString& name) const {
    if (levels.isEmpty()) return {};
    for (const QJsonValue& node : levels.last().nodes) {
        const QJsonObject object = node.toObject();
        if (text(object, "wjjmc") == name && !name.isEmpty()) return object;
    }
    return {};
}

QString CloudBrowser::name() const {
    return levels.isEmpty() ? QString() : levels.last().name;
}

QString CloudBrowser::path() const {
    QStringList names;
    for (const Level& level : levels) names.append(level.name);
    return names.join(zFileDialog::pathFgf);
}

QString CloudBrowser::folderId() const {
    return levels.isEmpty() ? QString() : levels.last().folderId;
}

QString CloudBrowser::enterpriseId() const {
    return levels.isEmpty() ? QString() : levels.last().enterpriseId;
}

}  // namespace workbench
