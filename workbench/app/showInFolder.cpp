#include "workbench/app/showInFolder.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

namespace workbench {

namespace {

void openFolder(const QString& folder, const std::function<void(const QString&)>& failed) {
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(folder))) failed(folder);
}

}  // namespace

void showInFolder(const QString& path, const std::function<void(const QString&)>& failed) {
    const QFileInfo info(path);
    const QString folder = info.isDir() ? path : info.path();
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (info.isDir() || !bus.isConnected()) return openFolder(folder, failed);
    QDBusMessage show = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.FileManager1"),
        QStringLiteral("/org/freedesktop/FileManager1"),
        QStringLiteral("org.freedesktop.FileManager1"), QStringLiteral("ShowItems"));
    show.setArguments({QStringList(QUrl::fromLocalFile(path).toString()), QString()});
    auto* asked = new QDBusPendingCallWatcher(bus.asyncCall(show), QCoreApplication::instance());
    QObject::connect(asked, &QDBusPendingCallWatcher::finished, asked, [asked, folder, failed] {
        // Nobody there that could select a file.
        if (asked->isError()) openFolder(folder, failed);
        asked->deleteLater();
    });
}

}  // namespace workbench
