#include "workbench/app/MainWindow.h"

#include <QAbstractButton>
#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QDockWidget>
#include <QLabel>
#include <QLayout>
#include <QMenuBar>
#include <QPointer>
#include <QScreen>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <iterator>

#include "dialog/NewProCfgDialog.h"
#include "workbench/app/HostPanel.h"
#include "workbench/app/JournalPanel.h"
#include "workbench/app/NoticeBar.h"
#include "workbench/app/ProjectPanel.h"
#include "workbench/app/ScaleLimit.h"
#include "workbench/app/Settings.h"
#include "workbench/app/Surface.h"
#include "workbench/app/showInFolder.h"
#include "workbench/base/fileAdvice.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/Skin.h"
#include "workbench/hostlibs/zBaseControl/Style.h"
#include "workbench/journal/Journal.h"
#include "workbench/scenario/hostDialog.h"
#include "zBaseControl.h"

namespace workbench {

namespace {

const char* const pictureProperty = "picture";
const int messageMs = 8000;

/// What the skin leaves to the window's parts: lines between them, and fields and switches that
/// stand out from a dark ground. "@name" stands for a colour, "#n#" for n design pixels and "~n~"
/// for n lines.
QString partSheet() {
    QString sheet = QStringLiteral(R"(
QSplitter::handle{background:@line;width:#1#px}
QToolBar{border:none;border-bottom:#1#px solid @line;padding:#4#px #8#px;spacing:#4#px}
QMenuBar{border-bottom:#1#px solid @line}
QStatusBar{border-top:#1#px solid @line}
QStatusBar::item{border:none}
QLineEdit,QPlainTextEdit{background:@field;border:~1~px solid @border;border-radius:#4#px}
QLineEdit{padding:~1~px ~4~px;min-height:@heightpx}
QPlainTextEdit{padding:~3~px ~4~px}
QLineEdit:hover,QPlainTextEdit:hover{border-color:@focus}
QLineEdit:focus,QPlainTextEdit:focus{border:~2~px solid @focus}
QLineEdit:focus{padding:0 ~3~px}
QPlainTextEdit:focus{padding:~2~px ~3~px}
QLineEdit:disabled,QPlainTextEdit:disabled{background:@disabled;color:@faint}
)");
    const std::pair<QLatin1String, Tint> tints[] = {
        {QLatin1String("@line"), Tint::Divider},      {QLatin1String("@field"), Tint::Field},
        {QLatin1String("@border"), Tint::Border},     {QLatin1String("@focus"), Tint::AccentLine},
        {QLatin1String("@disabled"), Tint::Disabled}, {QLatin1String("@faint"), Tint::Faint}};
    for (const auto& tint : tints) sheet.replace(tint.first, colour(tint.second).name());
    const int line = qMax(1, scaled(1));
    // As high as buttons and lists, and as the text of a large font needs.
    const int height = QFontMetrics(QApplication::font()).height() + scaled(8);
    sheet.replace(QLatin1String("@height"),
                  QString::number(qMax(scaled(kControlHeight), height) - 4 * line));
    for (const int size : {1, 2, 3, 4, 8}) {
        sheet.replace(QStringLiteral("#%1#").arg(size), QString::number(qMax(1, scaled(size))));
        sheet.replace(QStringLiteral("~%1~").arg(size), QString::number(size * line));
    }
    return sheet;
}

struct SkinName {
    QLatin1String word;
    const char* text;
};

const SkinName skinNames[] = {{lightSkin, "浅色"}, {darkSkin, "深色"}, {contrastSkin, "高对比度"}};

QString pictureOf(const QString& skin) {
    return QStringLiteral(":/Image/Workbench/skin-%1.svg").arg(skin);
}

/// Qt names the buttons in the title of a dock in English, and anew whenever its style changes.
void nameTitleButtons(const QDockWidget& dock) {
    const struct {
        const char *name, *text, *description;
    } buttons[] = {{"qt_dockwidget_floatbutton", "浮动", "使此面板离开窗口或回到窗口"},
                   {"qt_dockwidget_closebutton", "关闭", "关闭此面板，可从菜单“视图”重新打开"}};
    for (const auto& each : buttons) {
        auto* button = dock.findChild<QAbstractButton*>(QLatin1String(each.name));
        button->setAccessibleName(said(each.text));
        button->setToolTip(said(each.text));
        button->setAccessibleDescription(said(each.description));
    }
}

/// The name that a desktop shows beside each window's title.
void nameProgram() {
    QApplication::setApplicationDisplayName(said("新建工程工作台"));
}

/// Puts on the skin after the current one.
void nextSkin() {
    Host& host = Host::instance();
    const int count = int(std::size(skinNames));
    for (int i = 0; i < count; ++i)
        if (host.skin() == skinNames[i].word) return host.setSkin(skinNames[(i + 1) % count].word);
}

}  // namespace

MainWindow::MainWindow(Settings* settings)
    : settings(settings),
      notice(new NoticeBar),
      projects(new ProjectPanel),
      tools(new QToolBar(QStringLiteral("工具栏"))),
      created(new zBaseLabel),
      passing(new QTimer(created)),
      count(new QLabel),
      installation(new zBaseLabel) {
    setWindowTitle(QStringLiteral("新建工程工作台"));
    auto* centre = new QWidget;
    auto* layout = new QVBoxLayout(centre);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(notice);
    layout->addWidget(projects, 1);
    setCentralWidget(centre);
    makeActions();
    makeMenus();
    makeDocks();
    makeStatusBar();
    watchScale();
    Host& host = Host::instance();
    host.setMainWindow(this);
    connect(projects, &ProjectPanel::refreshed, this, &MainWindow::showCount);
    connect(&store, &ProjectStore::created, this, &MainWindow::showCreated);
    connect(projects, &ProjectPanel::folderWanted, this, &MainWindow::showFolder);
    connect(&store, &ProjectStore::failed, this, &MainWindow::tellFailed);
    connect(&host, &Host::skinChanged, this, &MainWindow::adaptToLook);
    connect(&host, &Host::scaleChanged, this, &MainWindow::adaptToLook);
    watchJournal();
    adaptToLook();
    showInstallation();
    projects->focusList();
    Surface::instance().adopt(this);
    connect(&Surface::instance(), &Surface::languageChanged, this, nameProgram);
    nameProgram();
    connect(&Surface::instance(), &Surface::languageChanged, this, &MainWindow::showInstallation);
    connect(&Surface::instance(), &Surface::languageChanged, this, &MainWindow::adaptToLook);
    if (!settings || !settings->restore(*this))
        resize(QSize(scaled(1280), scaled(820)).boundedTo(screen()->availableSize()));
    if (!settings) return;
    connect(settings, &Settings::unwritten, this, [this] {
        notice->tell({"窗口设置无法保存", QDir::toNativeSeparators(this->settings->file()),
                      "请检查该文件及其文件夹的权限和磁盘空间。"});
    });
}

QAction* MainWindow::addAction(const QString& text, const QString& description, const char* picture,
                               const char* objectName, const char* shortcut,
                               const std::function<void()>& work) {
    auto* action = new QAction(text, this);
    action->setShortcut(QKeySequence(QLatin1String(shortcut)));
    // Beside the text that its button shows.
    if (*shortcut) action->setToolTip(action->shortcut().toString(QKeySequence::NativeText));
    connect(action, &QAction::triggered, this, work);
    action->setObjectName(QLatin1String(objectName));
    action->setProperty(pictureProperty,
                        QStringLiteral(":/Image/Workbench/%1.svg").arg(QLatin1String(picture)));
    tools->addAction(action);
    QWidget* button = tools->widgetForAction(action);
    button->setAccessibleName(text);
    button->setAccessibleDescription(description);
    return action;
}

void MainWindow::makeActions() {
    addAction(QStringLiteral("新建工程"), QStringLiteral("打开对话框，新建一个工程"), "new",
              "newProjectAction", "Ctrl+N", [this] { newProject(); });
    addAction(QStringLiteral("选择工程类型"), QStringLiteral("先选择工程类型，再打开对话框"),
              "project", "chooseKindAction", "Ctrl+Shift+N", [this] { chooseKind(); });
    tools->addSeparator();
    addAction(QStringLiteral("打开工程文件夹"), QStringLiteral("在文件管理器中打开工程文件夹"),
              "folder", "openFolderAction", "",
              [this] { showFolder(Host::instance().installation().projectFolder()); });
    addAction(QStringLiteral("刷新"), QStringLiteral("重新读取工程列表"), "refresh",
              "refreshAction", "F5", [this] { projects->refresh(); });
    addAction(QStringLiteral("切换皮肤"), QStringLiteral("换上下一种皮肤"), "skin-light",
              "skinAction", "", [] { nextSkin(); });
    tools->setObjectName(QStringLiteral("tools"));
    tools->setMovable(false);
    tools->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    addToolBar(tools);
}

/// One entry for each skin, of which the current one is marked.
void MainWindow::addSkins(QMenu* menu) {
    auto* group = new QActionGroup(this);
    for (const SkinName& skin : skinNames) {
        QAction* action = menu->addAction(QString::fromUtf8(skin.text));
        action->setObjectName(QLatin1String("skin.") + skin.word);
        action->setProperty(pictureProperty, pictureOf(skin.word));
        action->setCheckable(true);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [skin] { Host::instance().setSkin(skin.word); });
    }
}

void MainWindow::makeDocks() {
    const auto add = [this](const QString& title, const char* name, QWidget* content,
                            Qt::DockWidgetArea area) {
        auto* dock = new QDockWidget(title);
        dock->setObjectName(QLatin1String(name));
        dock->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable);
        dock->setWidget(content);
        addDockWidget(area, dock);
        menuBar()
            ->findChild<QMenu*>(QStringLiteral("viewMenu"))
            ->addAction(dock->toggleViewAction());
        return dock;
    };
    // The journal leaves the full height to the switches.
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    QDockWidget* host =
        add(QStringLiteral("主程序开关"), "hostDock", new HostPanel, Qt::RightDockWidgetArea);
    QDockWidget* journal =
        add(QStringLiteral("边界日志"), "journalDock", new JournalPanel, Qt::BottomDockWidgetArea);
    resizeDocks({host}, {scaled(290)}, Qt::Horizontal);
    resizeDocks({journal}, {scaled(280)}, Qt::Vertical);
}

void MainWindow::makeStatusBar() {
    for (zBaseLabel* label : {created, installation}) label->setControlType(MessageTextType);
    statusBar()->setSizeGripEnabled(false);  // a window is sized by its frame
    // Not a message of the bar's own, which would be cut off without dots.
    created->setObjectName(QStringLiteral("createdMessage"));
    created->setMinimumWidth(1);
    statusBar()->addWidget(created, 1);
    passing->setSingleShot(true);
    passing->setInterval(messageMs);
    connect(passing, &QTimer::timeout, created, &QLabel::clear);
    count->setObjectName(QStringLiteral("projectCount"));
    statusBar()->addPermanentWidget(count);
    installation->setObjectName(QStringLiteral("installationFolder"));
    installation->setTextInteractionFlags(Qt::TextSelectableByMouse);
    statusBar()->addPermanentWidget(installation);
}

/// Says beside the switch and in the status bar when a scale does not fit the screen.
void MainWindow::watchScale() {
    auto* label = new QLabel;
    label->setObjectName(QStringLiteral("scaleNotice"));
    statusBar()->insertPermanentWidget(1, label);
    auto* limit = new ScaleLimit(this);
    auto* panel = findChild<HostPanel*>();
    const auto tell = [label, limit, panel] {
        label->setText(limit->notice());
        label->setVisible(!limit->notice().isEmpty());
        panel->setNote(limit->notice());
    };
    connect(limit, &ScaleLimit::changed, label, tell);
    connect(&Surface::instance(), &Surface::languageChanged, label, tell);
    tell();
    if (!settings) return;
    connect(limit, &ScaleLimit::changed, this, [this, limit, kept = limit->wanted()]() mutable {
        if (limit->wanted() != kept) settings->keepScale(kept = limit->wanted());
    });
}

void MainWindow::adaptToLook() {
    const QString worn = Host::instance().skin();
    findChild<QAction*>(QStringLiteral("skinAction"))
        ->setProperty(pictureProperty, pictureOf(worn));
    findChild<QAction*>(QStringLiteral("skin.") + worn)->setChecked(true);
    // Not on the window: a dialog above it would inherit the sheet, and open more slowly.
    const QString sheet = partSheet();
    for (QWidget* part : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        if (!part->isWindow()) part->setStyleSheet(sheet);
    setWindowIcon(pixmapOf(QStringLiteral(":/Image/Workbench/app.svg"), QSize(64, 64), 1));
    for (auto* label : statusBar()->findChildren<QLabel*>())
        label->setContentsMargins(scaled(8), 0, scaled(8), 0);
    installation->setMinimumWidth(scaled(120));  // cut with dots, rather than a window too wide
    const int side = roomFor(18);
    tools->setIconSize({side, side});
    for (QAction* action : findChildren<QAction*>()) {
        const QString picture = action->property(pictureProperty).toString();
        if (!picture.isEmpty())
            action->setIcon(pixmapOf(skinPicture(picture), {side, side}, devicePixelRatioF()));
    }
    // Their titles keep the height of the old font otherwise.
    for (const auto* dock : findChildren<QDockWidget*>()) {
        nameTitleButtons(*dock);
        dock->layout()->invalidate();
        dock->layout()->activate();
    }
}

/// Parts with a style sheet do not hear of a font of the application by themselves.
void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::FontChange) adaptToLook();
}

void MainWindow::newProject(const QString& entry) {
    const QPointer<NewProCfgDialog> dialog = makeHostDialog({}, store, this);
    dialog->setProperty(startEntryProperty, entry);
    QTimer::singleShot(0, dialog, [dialog, entry] { startWithEntry(dialog, entry); });
    dialog->exec();
    delete dialog;
}

void MainWindow::chooseKind() {
    if (const auto kind = askForKind(this)) newProject(*kind);
}

void MainWindow::showFolder(const QString& path) {
    showInFolder(path, [self = QPointer<MainWindow>(this)](const QString& folder) {
        if (!self) return;
        self->notice->tell({"没有程序能打开文件夹", QDir::toNativeSeparators(folder),
                            "请在文件管理器中自行打开，或安装一个文件管理器。"});
    });
}

void MainWindow::tellFailed(const QString& reason) {
    notice->tell({"工程没有完整保存", reason, fileAdvice(reason)});
}

/// A journal that cannot be written any more is said when it happens, and once.
void MainWindow::watchJournal() {
    const Journal& journal = Journal::instance();
    connect(&journal, &Journal::recorded, this, [this, &journal, told = QString()]() mutable {
        if (journal.fileError() == told) return;
        told = journal.fileError();
        if (!told.isEmpty()) notice->tell({"日志文件无法继续写入", told, fileAdvice(told)});
    });
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (settings) settings->keep(*this);
    QMainWindow::closeEvent(event);
}

void MainWindow::showCreated(const QString& path) {
    projects->refresh();
    projects->select(path);
    created->setText(said("已创建工程文件：%1").arg(QFileInfo(path).fileName()));
    passing->start();
}

void MainWindow::showCount() {
    QString text = said("工程文件：%1 个").arg(projects->projectCount());
    if (projects->isSearching()) text += said("，找到 %1 个").arg(projects->shownCount());
    count->setText(text);
}

}  // namespace workbench
