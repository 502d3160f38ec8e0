#include "workbench/app/MainWindow.h"

#include <QAction>
#include <QActionGroup>
#include <QDesktopServices>
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
#include <QUrl>
#include <iterator>

#include "dialog/NewProCfgDialog.h"
#include "workbench/app/HostPanel.h"
#include "workbench/app/JournalPanel.h"
#include "workbench/app/ProjectPanel.h"
#include "workbench/app/ScaleLimit.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/Skin.h"
#include "workbench/scenario/hostDialog.h"

namespace workbench {

namespace {

const char* const pictureProperty = "picture";
const int messageMs = 8000;

/// What the skin leaves to the window's parts: lines between them, and fields and switches that
/// stand out from a dark ground. "@name" stands for a colour and "#n#" for n design pixels.
QString partSheet() {
    QString sheet = QStringLiteral(R"(
QSplitter::handle{background:@line;width:#1#px}
QDockWidget::title{background:@title;padding:#7#px #12#px;border-bottom:#1#px solid @line}
QToolBar{border:none;border-bottom:#1#px solid @line;padding:#4#px #6#px;spacing:#4#px}
QToolButton{padding:#5#px #8#px;border:none;border-radius:#4#px;color:@text}
QToolButton:hover{background:@title}
QToolButton:pressed{background:@pressed}
QToolButton:checked{background:@selected}
QToolButton:disabled{color:@faint}
QMenuBar{border-bottom:#1#px solid @line}
QStatusBar{border-top:#1#px solid @line}
QStatusBar::item{border:none}
QLineEdit,QPlainTextEdit{background:@field;border:#1#px solid @border;border-radius:#4#px;
padding:#3#px #4#px}
QLineEdit:hover,QPlainTextEdit:hover{border-color:@focus}
QLineEdit:focus,QPlainTextEdit:focus{border:#2#px solid @focus;padding:#2#px #3#px}
QLineEdit:disabled,QPlainTextEdit:disabled{background:@disabled;color:@faint}
)");
    const std::pair<QLatin1String, Tint> tints[] = {
        {QLatin1String("@line"), Tint::Divider},      {QLatin1String("@title"), Tint::Hover},
        {QLatin1String("@text"), Tint::Text},         {QLatin1String("@field"), Tint::Field},
        {QLatin1String("@border"), Tint::Border},     {QLatin1String("@focus"), Tint::AccentLine},
        {QLatin1String("@pressed"), Tint::Pressed},   {QLatin1String("@selected"), Tint::Selected},
        {QLatin1String("@disabled"), Tint::Disabled}, {QLatin1String("@faint"), Tint::Faint}};
    for (const auto& tint : tints) sheet.replace(tint.first, colour(tint.second).name());
    for (const int size : {1, 2, 3, 4, 5, 6, 7, 8, 12})
        sheet.replace(QStringLiteral("#%1#").arg(size), QString::number(qMax(1, scaled(size))));
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

/// Puts on the skin after the current one.
void nextSkin() {
    Host& host = Host::instance();
    const int count = int(std::size(skinNames));
    for (int i = 0; i < count; ++i)
        if (host.skin() == skinNames[i].word) return host.setSkin(skinNames[(i + 1) % count].word);
}

}  // namespace

MainWindow::MainWindow()
    : projects(new ProjectPanel), tools(new QToolBar(QStringLiteral("工具栏"))), count(new QLabel) {
    setWindowTitle(QStringLiteral("新建工程工作台"));
    setCentralWidget(projects);
    makeActions();
    makeDocks();
    makeStatusBar();
    watchScale();
    Host& host = Host::instance();
    host.setMainWindow(this);
    connect(projects, &ProjectPanel::refreshed, this, &MainWindow::showCount);
    connect(&store, &ProjectStore::created, this, &MainWindow::showCreated);
    connect(&store, &ProjectStore::failed, this,
            [this](const QString& text) { statusBar()->showMessage(text); });
    connect(&host, &Host::skinChanged, this, &MainWindow::adaptToLook);
    connect(&host, &Host::scaleChanged, this, &MainWindow::adaptToLook);
    adaptToLook();
    showCount();
    resize(QSize(scaled(1280), scaled(820)).boundedTo(screen()->availableSize()));
}

QAction* MainWindow::addAction(const QString& text, const char* picture, const char* objectName,
                               const char* shortcut, const std::function<void()>& work) {
    auto* action = new QAction(text, this);
    action->setShortcut(QKeySequence(QLatin1String(shortcut)));
    connect(action, &QAction::triggered, this, work);
    action->setObjectName(QLatin1String(objectName));
    action->setProperty(pictureProperty,
                        QStringLiteral(":/Image/Workbench/%1.svg").arg(QLatin1String(picture)));
    tools->addAction(action);
    return action;
}

void MainWindow::makeActions() {
    QAction* fresh = addAction(QStringLiteral("新建工程"), "new", "newProjectAction", "Ctrl+N",
                               [this] { newProject(); });
    fresh->setToolTip(QStringLiteral("新建工程（Ctrl+N）"));
    QAction* choose = addAction(QStringLiteral("选择工程类型"), "project", "chooseKindAction",
                                "Ctrl+Shift+N", [this] { chooseKind(); });
    tools->addSeparator();
    QAction* folder =
        addAction(QStringLiteral("打开工程文件夹"), "folder", "openFolderAction", "", [] {
            QDesktopServices::openUrl(
                QUrl::fromLocalFile(Host::instance().installation().projectFolder()));
        });
    QAction* refresh = addAction(QStringLiteral("刷新"), "refresh", "refreshAction", "F5",
                                 [this] { projects->refresh(); });
    QAction* skin =
        addAction(QStringLiteral("切换皮肤"), "skin-light", "skinAction", "", [] { nextSkin(); });
    tools->setObjectName(QStringLiteral("tools"));
    tools->setMovable(false);
    tools->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    addToolBar(tools);
    for (QAction* action : tools->actions())
        if (QWidget* button = tools->widgetForAction(action))
            button->setAccessibleName(action->text());
    QMenu* menu = menuBar()->addMenu(QStringLiteral("工程"));
    menu->addActions({fresh, choose, folder, refresh});
    QMenu* view = menuBar()->addMenu(QStringLiteral("视图"));
    view->setObjectName(QStringLiteral("viewMenu"));
    view->addAction(skin);
    addSkins(view->addMenu(QStringLiteral("皮肤")));
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
    count->setObjectName(QStringLiteral("projectCount"));
    statusBar()->addPermanentWidget(count);
    const QString folder = QDir::toNativeSeparators(Host::instance().installation().folder);
    statusBar()->addPermanentWidget(new QLabel(QStringLiteral("安装目录：") + folder));
}

/// Says beside the switch and in the status bar when a scale does not fit the screen.
void MainWindow::watchScale() {
    auto* label = new QLabel;
    label->setObjectName(QStringLiteral("scaleNotice"));
    statusBar()->insertPermanentWidget(0, label);
    auto* limit = new ScaleLimit(this);
    auto* panel = findChild<HostPanel*>();
    const auto tell = [label, limit, panel] {
        label->setText(limit->notice());
        label->setVisible(!limit->notice().isEmpty());
        panel->setNote(QStringLiteral("scale"), limit->notice());
    };
    connect(limit, &ScaleLimit::changed, label, tell);
    tell();
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
    const int side = scaled(18);
    tools->setIconSize({side, side});
    for (QAction* action : findChildren<QAction*>()) {
        const QString picture = action->property(pictureProperty).toString();
        if (!picture.isEmpty())
            action->setIcon(pixmapOf(skinPicture(picture), {side, side}, devicePixelRatioF()));
    }
    // Their titles keep the height of the old font otherwise.
    for (const auto* dock : findChildren<QDockWidget*>()) {
        dock->layout()->invalidate();
        dock->layout()->activate();
    }
}

void MainWindow::newProject(const QString& kind) {
    const QPointer<NewProCfgDialog> dialog = makeHostDialog({}, store, this);
    QTimer::singleShot(0, dialog, [dialog, kind] { startWithKind(dialog, kind); });
    dialog->exec();
    delete dialog;
}

void MainWindow::chooseKind() {
    if (const auto kind = askForKind(this)) newProject(*kind);
}

void MainWindow::showCreated(const QString& path) {
    projects->refresh();
    projects->select(path);
    statusBar()->showMessage(QStringLiteral("已创建工程文件：%1").arg(QFileInfo(path).fileName()),
                             messageMs);
}

void MainWindow::showCount() {
    count->setText(QStringLiteral("工程文件：%1 个").arg(projects->projectCount()));
}

}  // namespace workbench
