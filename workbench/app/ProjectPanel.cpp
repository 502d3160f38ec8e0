#include "workbench/app/ProjectPanel.h"

#include <QAction>
#include <QClipboard>
#include <QDir>
#include <QFormLayout>
#include <QGuiApplication>
#include <QHeaderView>
#include <QJsonDocument>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QTimer>
#include <QTreeWidget>

#include "workbench/app/Surface.h"
#include "workbench/app/clearAction.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/Skin.h"
#include "workbench/hostlibs/zBaseControl/EmptyState.h"
#include "workbench/hostlibs/zBaseControl/contextAction.h"
#include "workbench/projects/ProjectFile.h"
#include "zBaseControl.h"

namespace workbench {

namespace {

enum Column { Name, Kind, Created, ColumnCount };

const QString behindReason = QStringLiteral("（");  ///< Where an error goes on with the file.
const int pathRole = Qt::UserRole;
const int isProjectRole = Qt::UserRole + 1;

/// Captions and object names of what is told of a project.
const std::pair<const char*, const char*> factNames[] = {{"类型：", "detailKind"},
                                                         {"创建时间：", "detailCreated"},
                                                         {"说明：", "detailSummary"},
                                                         {"来源：", "detailSource"},
                                                         {"文件：", "detailFile"}};

QString timeText(const QDateTime& time) {
    return time.isValid() ? time.toString(QStringLiteral("yyyy-MM-dd hh:mm")) : QString();
}

QString sourceText(const QJsonObject& source) {
    const QString path = source.value(QStringLiteral("path")).toString();
    if (path.isEmpty()) return said("无");
    const QJsonValue bytes = source.value(QStringLiteral("bytes"));
    if (bytes.isUndefined()) return path;
    return QStringLiteral("%1（%2）")
        .arg(path, QLocale().formattedDataSize(qint64(bytes.toDouble())));
}

QTreeWidgetItem* rowOf(const QFileInfo& file) {
    const auto project = ProjectFile::read(file.filePath());
    auto* row = new QTreeWidgetItem;
    row->setText(Name, file.fileName());
    row->setText(Kind, said(project ? project->kind() : QStringLiteral("不是工程文件")));
    row->setText(Created, project ? timeText(project->created) : QString());
    row->setToolTip(Name, QDir::toNativeSeparators(file.filePath()));
    row->setData(Name, pathRole, file.filePath());
    row->setData(Name, isProjectRole, project.has_value());
    if (!project)
        for (int column = 0; column < ColumnCount; ++column)
            row->setForeground(column, colour(Tint::Faint));
    return row;
}

}  // namespace

ProjectPanel::ProjectPanel(QWidget* parent)
    : QSplitter(parent), search(new QLineEdit), list(new QTreeWidget) {
    addWidget(makeList());
    addWidget(makeDetails());
    setStretchFactor(0, 3);
    setStretchFactor(1, 2);
    setChildrenCollapsible(false);
    makeMenu();
    connect(list, &QTreeWidget::currentItemChanged, this, &ProjectPanel::showDetails);
    connect(search, &QLineEdit::textChanged, this, &ProjectPanel::applySearch);
    connect(&watcher, &QFileSystemWatcher::directoryChanged, this, &ProjectPanel::refresh);
    connect(&Host::instance(), &Host::skinChanged, this, &ProjectPanel::refresh);
    connect(&Surface::instance(), &Surface::languageChanged, this, &ProjectPanel::say);
    adaptToScale();
    say();
}

QWidget* ProjectPanel::makeList() {
    search->setObjectName(QStringLiteral("projectSearch"));
    search->setAccessibleName(QStringLiteral("查找工程"));
    search->setPlaceholderText(QStringLiteral("查找：文件名、类型，或拼音及首字母"));
    addClearAction(search);
    search->installEventFilter(this);
    list->setObjectName(QStringLiteral("projectList"));
    list->setAccessibleName(QStringLiteral("工程列表"));
    list->setColumnCount(ColumnCount);
    list->setRootIsDecorated(false);
    list->setAllColumnsShowFocus(true);
    list->setAlternatingRowColors(true);
    list->setFrameShape(QFrame::NoFrame);
    list->setSortingEnabled(true);
    list->sortByColumn(Created, Qt::DescendingOrder);
    empty = new EmptyState(list, [this] { return emptyText(); });
    auto* part = new QWidget;
    auto* layout = new QVBoxLayout(part);
    layout->addWidget(search);
    layout->addWidget(list);
    return part;
}

void ProjectPanel::makeMenu() {
    const auto add = [this](const QString& text, const char* name, auto&& work) {
        return addContextAction(list, text, name, [this, work] {
            if (!currentPath().isEmpty()) work(currentPath());
        });
    };
    const auto copy = [](const QString& text) { QGuiApplication::clipboard()->setText(text); };
    add(QStringLiteral("在文件夹中显示"), "showProjectInFolder",
        [this](const QString& path) { Q_EMIT folderWanted(path); });
    QAction* path = add(QStringLiteral("复制文件路径"), "copyProjectPath",
                        [copy](const QString& path) { copy(QDir::toNativeSeparators(path)); });
    path->setShortcut(QKeySequence::Copy);
    path->setShortcutContext(Qt::WidgetShortcut);
    add(QStringLiteral("复制文件名"), "copyProjectName",
        [copy](const QString& path) { copy(QFileInfo(path).fileName()); });
    add(QStringLiteral("复制创建请求"), "copyProjectRequest",
        [this, copy](const QString&) { copy(request->toPlainText()); });
}

bool ProjectPanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched != search || event->type() != QEvent::KeyPress)
        return QSplitter::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Escape) search->clear();
    if (key == Qt::Key_Down || key == Qt::Key_Return || key == Qt::Key_Enter) list->setFocus();
    return key == Qt::Key_Escape || key == Qt::Key_Down;
}

/// Says everything anew in the language of the window.
void ProjectPanel::say() {
    list->setHeaderLabels({said("工程文件"), said("类型"), said("创建时间")});
    refresh();
}

QString ProjectPanel::emptyText() const {
    if (Host::instance().installation().folder.isEmpty())
        return said("没有打开安装目录\n请用菜单“工程”选择一个安装目录。");
    return isSearching() ? said("没有找到工程\n请换一个词，或按 Esc 清空查找。")
                         : said("还没有工程\n按 Ctrl+N 新建第一个工程。");
}

QString ProjectPanel::currentPath() const {
    const QTreeWidgetItem* item = list->currentItem();
    return item ? item->data(Name, pathRole).toString() : QString();
}

bool ProjectPanel::isSearching() const {
    return !search->text().trimmed().isEmpty();
}

void ProjectPanel::focusList() {
    list->setFocus();
}

void ProjectPanel::focusSearch() {
    search->setFocus();
    search->selectAll();
}

void ProjectPanel::applySearch() {
    const QString words = search->text();
    QTreeWidgetItem* first = nullptr;
    for (int row = 0; row < list->topLevelItemCount(); ++row) {
        QTreeWidgetItem* item = list->topLevelItem(row);
        const QString text = item->text(Name) + QLatin1Char(' ') + item->text(Kind);
        item->setHidden(!pinyin.finds(words, text));
        if (!first && !item->isHidden()) first = item;
    }
    if (!list->currentItem() || list->currentItem()->isHidden()) list->setCurrentItem(first);
    empty->refresh();
    showDetails();
    Q_EMIT refreshed();
}

QWidget* ProjectPanel::makeDetails() {
    auto* details = new QWidget;
    auto* layout = new QVBoxLayout(details);
    title = new QLabel;
    title->setObjectName(QStringLiteral("detailTitle"));
    title->setWordWrap(true);
    layout->addWidget(title);
    auto* form = new QFormLayout;
    for (const auto& [caption, name] : factNames) {
        facts.append(new QLabel);
        facts.last()->setObjectName(QLatin1String(name));
        facts.last()->setWordWrap(true);
        facts.last()->setTextInteractionFlags(Qt::TextSelectableByMouse);
        auto* label = new QLabel(QString::fromUtf8(caption));
        label->setAlignment(Qt::AlignTop);  // beside the first line of several
        facts.last()->setAlignment(Qt::AlignTop);
        form->addRow(label, facts.last());
    }
    layout->addLayout(form);
    layout->addWidget(new QLabel(QStringLiteral("创建请求")));
    request = new QPlainTextEdit;
    request->setObjectName(QStringLiteral("detailRequest"));
    request->setAccessibleName(QStringLiteral("创建请求"));
    request->setAccessibleDescription(QStringLiteral("对话框为此工程发出的请求"));
    request->setReadOnly(true);
    request->setLineWrapMode(QPlainTextEdit::NoWrap);
    layout->addWidget(request, 1);
    // In a low window the request keeps its height, and one scrolls to what is below.
    auto* area = new QScrollArea;
    area->setAccessibleName(QStringLiteral("工程信息"));
    area->setWidget(details);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    return area;
}

void ProjectPanel::adaptToScale() {
    QHeaderView* header = list->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(Name, QHeaderView::Stretch);
    header->setMinimumSectionSize(scaled(90));
    header->resizeSection(Kind, roomFor(110));
    header->resizeSection(Created, roomFor(130));
    list->setMinimumWidth(scaled(280));
    search->parentWidget()->layout()->setContentsMargins(scaled(16), scaled(8), 0, 0);
    search->parentWidget()->layout()->setSpacing(scaled(8));
    request->setMinimumHeight(roomFor(120));
    title->setFont(TBaseTool::GetDefFont(roomFor(16), QFont::Bold));
    QWidget* details = title->parentWidget();
    widget(1)->setMinimumWidth(scaled(270));
    details->layout()->setContentsMargins(scaled(16), scaled(12), scaled(16), scaled(12));
    details->layout()->setSpacing(scaled(12));
    auto* form = details->findChild<QFormLayout*>();
    form->setHorizontalSpacing(scaled(12));
    form->setVerticalSpacing(scaled(8));
}

void ProjectPanel::changeEvent(QEvent* event) {
    QSplitter::changeEvent(event);
    if (event->type() != QEvent::FontChange) return;
    adaptToScale();
    // Once every label has the font: the form may keep lines of the height of the one before.
    QTimer::singleShot(0, this, [details = title->parentWidget()] {
        details->layout()->invalidate();
        details->layout()->activate();
    });
}

void ProjectPanel::refresh() {
    const QString selected = currentPath();
    const Installation& installation = Host::instance().installation();
    const QString folder = installation.folder.isEmpty() ? QString() : installation.projectFolder();
    if (!watcher.directories().contains(folder)) {
        if (!watcher.directories().isEmpty()) watcher.removePaths(watcher.directories());
        if (!folder.isEmpty()) watcher.addPath(folder);
    }
    list->clear();
    if (!folder.isEmpty())
        for (const QFileInfo& found : QDir(folder).entryInfoList(QDir::Files))
            list->addTopLevelItem(rowOf(found));
    select(selected);
    applySearch();
}

void ProjectPanel::select(const QString& path) {
    for (int row = 0; row < list->topLevelItemCount(); ++row) {
        QTreeWidgetItem* item = list->topLevelItem(row);
        if (item->data(Name, pathRole).toString() != path) continue;
        if (item->isHidden()) search->clear();  // who selects it wants to see it
        list->setCurrentItem(item);
    }
}

int ProjectPanel::shownCount() const {
    int count = 0;
    for (int row = 0; row < list->topLevelItemCount(); ++row)
        if (!list->topLevelItem(row)->isHidden()) ++count;
    return count;
}

int ProjectPanel::projectCount() const {
    int count = 0;
    for (int row = 0; row < list->topLevelItemCount(); ++row)
        if (list->topLevelItem(row)->data(Name, isProjectRole).toBool()) ++count;
    return count;
}

void ProjectPanel::showDetails() {
    const QTreeWidgetItem* item = list->currentItem();
    const QString path = currentPath();
    QString error;
    const auto project = path.isEmpty() ? std::nullopt : ProjectFile::read(path, &error);
    title->setText(item ? QFileInfo(path).completeBaseName()
                        : said(isSearching() ? "没有找到工程" : "还没有工程"));
    QStringList texts = project ? QStringList{said(project->kind()), timeText(project->created),
                                              project->summary(), sourceText(project->source)}
                                : QStringList{said(error.section(behindReason, 0, 0)), {}, {}, {}};
    texts.append(QDir::toNativeSeparators(path));
    for (int i = 0; i < facts.size(); ++i) facts[i]->setText(texts[i]);
    request->setPlainText(project ? QString::fromUtf8(QJsonDocument(project->request).toJson())
                                  : QString());
}

}  // namespace workbench
