#include "workbench/hostlibs/fileDialog/FileLocation.h"

#include <QDir>
#include <QFileInfo>

#include "fileDialog.h"
#include "workbench/base/fileAdvice.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/hostTexts.h"
#include "workbench/hostlibs/osgi/LoginHook.h"
#include "workbench/projects/fileKind.h"

namespace workbench {

namespace {

bool isAtOrBelow(const QString& path, const QString& folder) {
    return path == folder || path.startsWith(folder + QLatin1Char('/'));
}

bool loggedIn() {
    return Host::instance().switches().account.loggedIn || logIn();
}

}  // namespace

QString projectFolder() {
    return QDir::cleanPath(Host::instance().installation().projectFolder());
}

FileLocation::FileLocation(bool withClouds, std::function<bool()> wait, cloud::Progress progress)
    : withClouds(withClouds), cloud(std::move(wait), std::move(progress)) {}

bool FileLocation::fail(const QString& why) {
    message = why;
    return false;
}

bool FileLocation::goTo(int place) {
    if (isCloudPlace(place)) return goToCloud(place);
    return goToFolder(place == ProjectPlace ? projectFolder() : QDir::homePath());
}

bool FileLocation::goToFolder(const QString& path) {
    if (path.contains(QChar::Null))
        return fail(hostText(QString::fromUtf8(fileAdvice(nulReason()))));
    const QFileInfo info(path);
    if (path.isEmpty() || !info.isDir() || !info.isReadable())
        return fail(hostText(QStringLiteral("无法打开文件夹“%1”")).arg(path));
    local = QDir::cleanPath(info.absoluteFilePath());
    shown = isAtOrBelow(local, projectFolder()) ? ProjectPlace : ComputerPlace;
    selected.clear();
    return true;
}

bool FileLocation::goToCloud(int place, const QStringList& folders) {
    if (!loggedIn()) return fail(QString());
    return atCloud(cloud.goTo(place, folders));
}

bool FileLocation::atCloud(bool arrived) {
    if (!arrived) return fail(cloud.error());
    shown = cloud.place();
    selected.clear();
    return true;
}

bool FileLocation::goToTyped(const QString& text) {
    const QStringList names = text.split(zFileDialog::pathFgf, Qt::SkipEmptyParts);
    const bool personal = names.value(0) == personalDisk;
    if (personal || names.value(0) == companyDisk) {
        if (!withClouds) return fail(hostText(QStringLiteral("此处不能使用云盘")));
        return goToCloud(personal ? PersonalPlace : CompanyPlace, names.mid(1));
    }
    if (text.contains(QChar::Null)) return goToFolder(text);
    const QFileInfo info(QDir(local), text);
    if (!info.isFile()) return goToFolder(info.absoluteFilePath());
    if (!goToFolder(info.absolutePath())) return false;
    selected = info.fileName();
    return true;
}

bool FileLocation::enter(const QString& name) {
    if (isCloud()) return atCloud(cloud.enter(name));
    return goToFolder(QDir(local).absoluteFilePath(name));
}

bool FileLocation::up() {
    const QString left = isCloud() ? cloud.name() : QFileInfo(local).fileName();
    const bool arrived =
        isCloud() ? cloud.up() : !QFileInfo(local).isRoot() && goToFolder(QFileInfo(local).path());
    if (!arrived) return fail(QString());
    selected = left;
    return true;
}

bool FileLocation::download(const QString& name, FileAnswer& into) {
    if (!loggedIn()) return fail(QString());
    return cloud.download(name, into) || fail(cloud.error());
}

Listing FileLocation::listing() const {
    if (isCloud()) return {cloudEntries(cloud.nodes()), cloud.path(), cloud.canGoUp(), selected};
    return {localEntries(local), QDir::toNativeSeparators(local), !QFileInfo(local).isRoot(),
            selected};
}

}  // namespace workbench
