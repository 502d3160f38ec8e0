#include "workbench/app/ProjectPanel.h"

#include <QDir>
#include <QFormLayout>
#include <QHeaderView>
#include <QJsonDocument>
#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QTreeWidget>

#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/Skin.h"
#include "workbench/projects/ProjectFile.h"
#include "zBaseControl.h"

namespace workbench {

namespace {

enum Column { Name, Kind, Created, ColumnCount };

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
    if (path.isEmpty()) return QStringLiteral("无");
    const QJsonValue bytes = source.value(QStringLiteral("bytes"));
    if (bytes.isUndefined()) return path;
    return QStringLiteral("%1（%2）")
        .arg(path, QLocale().formattedDataSize(qint64(bytes.toDouble())));
}

QTreeWidgetItem* rowOf(const QFileInfo& file) {
    const auto project = ProjectFile::read(file.filePath());
    auto* row = new QTreeWidgetItem;
    row->setText(Name, file.fileName());
    row->setText(Kind, project ? project->kind() : QStringLiteral("不是工程文件"));
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

ProjectPanel::ProjectPanel(QWidget* parent) : QSplitter(parent), list(new QTreeWidget) {
    list->setObjectName(QStringLiteral("projectList"));
    list->setAccessibleName(QStringLiteral("工程列表"));
    list->setHeaderLabels(
        {QStringLiteral("工程文件"), QStringLiteral("类型"), QStringLiteral("创建时间")});
    list->setRootIsDecorated(false);
    list->setAlternatingRowColors(true);
    list->setFrameShape(QFrame::NoFrame);
    list->setSortingEnabled(true);
    list->sortByColumn(Created, Qt::DescendingOrder);
    addWidget(list);
    addWidget(makeDetails());
    setStretchFactor(0, 3);
    setStretchFactor(1, 2);
    setChildrenCollapsible(false);
    connect(list, &QTreeWidget::currentItemChanged, this, &ProjectPanel::showDetails);
    connect(&watcher, &QFileSystemWatcher::directoryChanged, this, &ProjectPanel::refresh);
    connect(&Host::instance(), &Host::skinChanged, this, &ProjectPanel::refresh);
    connect(&Host::instance(), &Host::scaleChanged, this, &ProjectPanel::adaptToScale);
    adaptToScale();
    refresh();
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
        form->addRow(QString::fromUtf8(caption), facts.last());
    }
    layout->addLayout(form);
    layout->addWidget(new QLabel(QStringLiteral("创建请求")));
    request = new QPlainTextEdit;
    request->setObjectName(QStringLiteral("detailRequest"));
    request->setAccessibleName(QStringLiteral("创建请求"));
    request->setReadOnly(true);
    request->setLineWrapMode(QPlainTextEdit::NoWrap);
    layout->addWidget(request, 1);
    // In a low window the request keeps its height, and one scrolls to what is below.
    auto* area = new QScrollArea;
    area->setWidget(details);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    return area;
}

void ProjectPanel::adaptToScale() {
    QHeaderView* header = list->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(Name, QHeaderView::Stretch);
    header->resizeSection(Kind, scaled(110));
    header->resizeSection(Created, scaled(130));
    list->setMinimumWidth(scaled(420));
    request->setMinimumHeight(scaled(120));
    title->setFont(TBaseTool::GetDefFont(scaled(16), QFont::Bold));
    QWidget* details = title->parentWidget();
    widget(1)->setMinimumWidth(scaled(270));
    details->layout()->setContentsMargins(scaled(16), scaled(12), scaled(16), scaled(12));
    details->layout()->setSpacing(scaled(12));
    auto* form = details->findChild<QFormLayout*>();
    form->setHorizontalSpacing(scaled(12));
    form->setVerticalSpacing(scaled(8));
}

void ProjectPanel::refresh() {
    const QTreeWidgetItem* current = list->currentItem();
    const QString selected = current ? current->data(Name, pathRole).toString() : QString();
    const QString folder = Host::instance().installation().projectFolder();
    if (!watcher.directories().contains(folder)) {
        if (!watcher.directories().isEmpty()) watcher.removePaths(watcher.directories());
        watcher.addPath(folder);
    }
    list->clear();
    for (const QFileInfo& found : QDir(folder).entryInfoList(QDir::Files))
        list->addTopLevelItem(rowOf(found));
    select(selected);
    if (!list->currentItem()) list->setCurrentItem(list->topLevelItem(0));
    showDetails();
    Q_EMIT refreshed();
}

void ProjectPanel::select(const QString& path) {
    for (int row = 0; row < list->topLevelItemCount(); ++row) {
        QTreeWidgetItem* item = list->topLevelItem(row);
        if (item->data(Name, pathRole).toString() == path) list->setCurrentItem(item);
    }
}

int ProjectPanel::projectCount() const {
    int count = 0;
    for (int row = 0; row < list->topLevelItemCount(); ++row)
        if (list->topLevelItem(row)->data(Name, isProjectRole).toBool()) ++count;
    return count;
}

void ProjectPanel::showDetails() {
    const QTreeWidgetItem* item = list->currentItem();
    const QString path = item ? item->data(Name, pathRole).toString() : QString();
    QString error;
    const auto project = path.isEmpty() ? std::nullopt : ProjectFile::read(path, &error);
    title->setText(item ? QFileInfo(path).completeBaseName() : QStringLiteral("还没有工程"));
    QStringList texts = project ? QStringList{project->kind(), timeText(project->created),
                                              project->summary(), sourceText(project->source)}
                                : QStringList{error, {}, {}, {}};
    texts.append(QDir::toNativeSeparators(path));
    for (int i = 0; i < facts.size(); ++i) facts[i]->setText(texts[i]);
    request->setPlainText(project ? QString::fromUtf8(QJsonDocument(project->request).toJson())
                                  : QString());
}

}  // namespace workbench
