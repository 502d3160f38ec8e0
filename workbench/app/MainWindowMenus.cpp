// The main window's menus, and what they do with installations.
#include <QActionGroup>
#include <QDir>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>

#include "workbench/app/AboutDialog.h"
#include "workbench/app/InstallationMenu.h"
#include "workbench/app/MainWindow.h"
#include "workbench/app/NoticeBar.h"
#include "workbench/app/ProjectPanel.h"
#include "workbench/app/Settings.h"
#include "workbench/app/Surface.h"
#include "workbench/base/fileAdvice.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/hostTexts.h"
#include "workbench/hostlibs/fileDialog/OpenDialog.h"

namespace workbench {

/// What the dialog's ribbon offers to the mouse alone.
void MainWindow::addStarts(QMenu* menu) {
    const struct {
        QString text, name, entry, shortcut;
    } starts[] = {{QStringLiteral("新建审核工程"), QStringLiteral("newAuditAction"),
                   QStringLiteral("审核工程"), QStringLiteral("Ctrl+Shift+A")},
                  {QStringLiteral("导入Excel新建"), QStringLiteral("importExcelAction"),
                   QStringLiteral("导入Excel新建"), QStringLiteral("Ctrl+Shift+E")},
                  {QStringLiteral("导入YFJZ新建"), QStringLiteral("importTenderAction"),
                   QStringLiteral("导入YFJZ新建"), QStringLiteral("Ctrl+Shift+T")}};
    for (const auto& start : starts) {
        QAction* action = menu->addAction(start.text);
        action->setObjectName(start.name);
        action->setShortcut(QKeySequence(start.shortcut));
        connect(action, &QAction::triggered, this,
                [this, entry = start.entry] { newProject(entry); });
    }
}

void MainWindow::makeMenus() {
    const auto named = [this](const char* name) {
        return findChild<QAction*>(QLatin1String(name));
    };
    const auto plain = [this](QMenu* menu, const QString& text, const char* name, auto&& work) {
        QAction* action = menu->addAction(text, this, work);
        action->setObjectName(QLatin1String(name));
        return action;
    };
    QMenu* menu = menuBar()->addMenu(QStringLiteral("工程"));
    menu->setObjectName(QStringLiteral("projectMenu"));
    menu->addActions({named("newProjectAction"), named("chooseKindAction")});
    addStarts(menu);
    menu->addActions({named("openFolderAction"), named("refreshAction")});
    plain(menu, QStringLiteral("查找工程"), "searchAction", [this] {
        projects->focusSearch();
    })->setShortcut(QKeySequence::Find);
    if (settings) {
        menu->addSeparator();
        plain(menu, QStringLiteral("打开安装目录…"), "openInstallationAction", [this] {
            chooseInstallation();
        })->setShortcut(QKeySequence::Open);
        auto* recent = new InstallationMenu(
            *settings, [this](const QString& each) { openInstallation(each); });
        recent->setParent(menu, recent->windowFlags());
        menu->addMenu(recent);
    }
    QMenu* view = menuBar()->addMenu(QStringLiteral("视图"));
    view->setObjectName(QStringLiteral("viewMenu"));
    view->addAction(named("skinAction"));
    addSkins(view->addMenu(QStringLiteral("皮肤")));
    makeLanguageMenu(view);
    QMenu* help = menuBar()->addMenu(QStringLiteral("帮助"));
    help->setObjectName(QStringLiteral("helpMenu"));
    plain(help, QStringLiteral("关于工作台"), "aboutAction", [this] { AboutDialog(this).exec(); });
}

void MainWindow::showRecording() {
    auto* label = new QLabel;
    label->setObjectName(QStringLiteral("recordingLabel"));
    statusBar()->insertPermanentWidget(1, label);
    const auto tell = [this, label] {
        // The program's name at the end, where the system would add it.
        setWindowTitle(said("录制中") + QStringLiteral(" — ") + said("新建工程工作台"));
        label->setText(QStringLiteral("● ") + said("录制中"));
        label->setToolTip(said("在对话框中的操作正在写成场景文件，关闭窗口即结束录制"));
    };
    connect(&Surface::instance(), &Surface::languageChanged, label, tell);
    tell();
}

/// Each language in its own words, so that nobody is lost in the other one.
void MainWindow::makeLanguageMenu(QMenu* view) {
    QMenu* menu = view->addMenu(QStringLiteral("语言 / Language"));
    auto* group = new QActionGroup(menu);
    const std::pair<const char*, Language> entries[] = {{"中文", Language::Chinese},
                                                        {"English", Language::English}};
    for (const auto& [text, language] : entries) {
        QAction* entry = menu->addAction(QString::fromUtf8(text), this, [language = language] {
            Surface::instance().setLanguage(language);
        });
        entry->setObjectName(QStringLiteral("language.") + languageWords().at(int(language)));
        entry->setCheckable(true);
        entry->setChecked(language == Surface::instance().language());
        group->addAction(entry);
    }
}

void MainWindow::chooseInstallation() {
    FileRequest request;
    request.folder = Host::instance().installation().folder;
    request.caption = said("打开安装目录");
    request.type = OpenFolder;
    const FileAnswer answer = [&] {
        // The window's own, and so in its language.
        const HostTexts texts([](const QString& chinese) { return said(chinese); });
        return OpenDialog::ask(this, request);
    }();
    if (!answer.path.isEmpty()) openInstallation(answer.path);
}

QString MainWindow::openInstallation(const QString& folder) {
    const QString error = Host::instance().loadInstallation(folder);
    if (!error.isEmpty()) {
        tellBroken(folder, error);
        return error;
    }
    notice->hide();
    if (settings) settings->addInstallation(Host::instance().installation().folder);
    showInstallation();
    return {};
}

void MainWindow::tellBroken(const QString& folder, const QString& error) {
    Notice broken{"安装目录无法打开", error,
                  "请按上面的文件、行号和键改正后重新读取，或选择另一个安装目录。"};
    if (*fileAdvice(error)) broken.advice = fileAdvice(error);
    if (!folder.isEmpty()) {
        broken.actions.append({"重新读取", [this, folder] { openInstallation(folder); }});
        broken.actions.append({"在文件夹中显示", [this, folder] { showFolder(folder); }});
    }
    if (settings) broken.actions.append({"选择安装目录…", [this] { chooseInstallation(); }});
    notice->tell(broken);
}

/// Shows the installation that is in use, or that there is none.
void MainWindow::showInstallation() {
    const QString folder = Host::instance().installation().folder;
    for (const char* name : {"newProjectAction", "chooseKindAction", "newAuditAction",
                             "importExcelAction", "importTenderAction", "openFolderAction"})
        findChild<QAction*>(QLatin1String(name))->setEnabled(!folder.isEmpty());
    installation->setText(folder.isEmpty() ? said("没有打开安装目录")
                                           : said("安装目录：") + QDir::toNativeSeparators(folder));
    projects->refresh();
}

}  // namespace workbench
