#include "workbench/app/ProjectPanel.h"

#include <QDir>
#include <QFormLayout>
#include <QHeaderView>
#include <QJsonDocument>
#include <QLabel>
#include <QLocale>
#include <QPlainTextEdit>
#include <QSplitter>
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

ProjectPanel::ProjectPanel(QWidget* parent) : QWidget(parent), list(new QTreeWidget) {
    list->setObjectName(QStringLiteral("projectList"));
    list->setAccessibleName(QStringLiteral("工程列表"));
    list->setHeaderLabels(
        {QStringLiteral("工程文件"), QStringLiteral("类型"), QStringLiteral("创建时间")});
    list->setRootIsDecorated(false);
    list->setAlternatingRowColors(true);
    list->setFrameShape(QFrame::NoFrame);
    list->setSortingEnabled(true);
    list->sortByColumn(Created, Qt::DescendingOrder);
    auto* splitter = new QSplitter;
    splitter->addWidget(list);
    splitter->addWidget(makeDetails());
    splitter->setStretchFactor(0, 3);
    splitter->setStretchFactor(1, 2);
    splitter->setChildrenCollapsible(false);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(splitter);
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
    kind = addFact(form, QStringLiteral("类型"), "detailKind");
    created = addFact(form, QStringLiteral("创建时间"), "detailCreated");
    summary = addFact(form, QStringLiteral("说明"), "detailSummary");
    source = addFact(form, QStringLiteral("来源"), "detailSource");
    file = addFact(form, QStringLiteral("文件"), "detailFile");
    layout->addLayout(form);
    layout->addWidget(new QLabel(QStringLiteral("创建请求")));
    request = new QPlainTextEdit;
    request->setObjectName(QStringLiteral("detailRequest"));
    request->setAccessibleName(QStringLiteral("创建请求"));
    request->setReadOnly(true);
    request->setLineWrapMode(QPlainTextEdit::NoWrap);
    layout->addWidget(request, 1);
    return details;
}

QLabel* ProjectPanel::addFact(QFormLayout* form, const QString& caption, const char* objectName) {
    auto* value = new QLabel;
    value->setObjectName(QLatin1String(objectName));
    value->setWordWrap(true);
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    form->addRow(caption + QStringLiteral("："), value);
    return value;
}

void ProjectPanel::adaptToScale() {
    QHeaderView* header = list->header();
    header->setStretchLastSection(false);
    header->setSectionResizeMode(Name, QHeaderView::Stretch);
    header->resizeSection(Kind, scaled(110));
    header->resizeSection(Created, scaled(130));
    list->setMinimumWidth(scaled(420));
    title->setFont(TBaseTool::GetDefFont(scaled(16), QFont::Bold));
    QWidget* details = title->parentWidget();
    details->setMinimumWidth(scaled(260));
    details->layout()->setContentsMargins(scaled(16), scaled(12), scaled(16), scaled(12));
    details->layout()->setSpacing(scaled(10));
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
    kind->setText(project ? project->kind() : error);
    created->setText(project ? timeText(project->created) : QString());
    summary->setText(project ? project->summary() : QString());
    source->setText(project ? sourceText(project->source) : QString());
    file->setText(QDir::toNativeSeparators(path));
    request->setPlainText(project ? QString::fromUtf8(QJsonDocument(project->request).toJson())
                                  : QString());
}

}  // namespace workbench
