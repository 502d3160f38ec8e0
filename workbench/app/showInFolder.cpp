#include "workbench/app/showInFolder.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QFileInfo>
#include <QUrl>

#ifdef Q_OS_WIN
#include <QDir>
#include <QProcess>
#else
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#endif

namespace workbench {

namespace {

void openFolder(const QString& folder, const std::function<void(const QString&)>& failed) {
    if (!QDesktopServices::openUrl(QUrl::fromLocalFile(folder))) failed(folder);
}

#ifdef Q_OS_WIN

void select(const QString& path, const std::function<void(const QString&)>& failed) {
    // The comma stands outside of the quotes that a path with blanks gets.
    QProcess explorer;
    explorer.setProgram(QStringLiteral("explorer"));
    explorer.setNativeArguments(
        QStringLiteral("/select,\"%1\"").arg(QDir::toNativeSeparators(path)));
    if (!explorer.startDetached()) openFolder(QFileInfo(path).path(), failed);
}

#else

void select(const QString& path, const std::function<void(const QString&)>& failed) {
    const QString folder = QFileInfo(path).path();
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) return openFolder(folder, failed);
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

#endif

}  // namespace

void showInFolder(const QString& path, const std::function<void(const QString&)>& failed) {
    if (QFileInfo(path).isDir())
        openFolder(path, failed);
    else
        select(path, failed);
}

}  // namespace workbench
