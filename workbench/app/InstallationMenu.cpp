#include "workbench/app/InstallationMenu.h"

#include <QDir>

#include "workbench/app/Settings.h"
#include "workbench/app/Surface.h"
#include "workbench/hostlibs/common/Host.h"

namespace workbench {

InstallationMenu::InstallationMenu(Settings& settings, std::function<void(const QString&)> chosen)
    : settings(settings), chosen(std::move(chosen)) {
    setTitle(QStringLiteral("最近的安装目录"));
    setObjectName(QStringLiteral("installationMenu"));
    setToolTipsVisible(true);
    fill();
    connect(this, &QMenu::aboutToShow, this, &InstallationMenu::fill);
}

void InstallationMenu::fill() {
    clear();
    const QString current = Host::instance().installation().folder;
    const QStringList folders = settings.installations();
    for (const QString& folder : folders) {
        QString shown = QDir::toNativeSeparators(folder);
        QAction* entry = addAction(shown.replace(QLatin1Char('&'), QLatin1String("&&")), this,
                                   [this, folder] { chosen(folder); });
        entry->setCheckable(true);
        entry->setChecked(folder == current);
        entry->setEnabled(QFileInfo(folder).isDir());
        if (!entry->isEnabled()) entry->setToolTip(said("文件夹不存在"));
    }
    if (folders.isEmpty()) addAction(said("还没有用过其他安装目录"))->setEnabled(false);
    addSeparator();
    QAction* forget =
        addAction(said("清空此列表"), this, [this] { settings.forgetInstallations(); });
    forget->setObjectName(QStringLiteral("forgetInstallations"));
    forget->setEnabled(!folders.isEmpty());
}

}  // namespace workbench
