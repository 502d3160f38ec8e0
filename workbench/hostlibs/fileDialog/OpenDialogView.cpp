#include "workbench/hostlibs/fileDialog/OpenDialogView.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QProgressBar>
#include <QTreeView>
#include <QVBoxLayout>

#include "workbench/hostlibs/common/FileDialogState.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/Skin.h"
#include "workbench/hostlibs/common/hostTexts.h"
#include "workbench/hostlibs/fileDialog/DownloadWindow.h"
#include "workbench/hostlibs/fileDialog/FieldStyle.h"
#include "workbench/hostlibs/zBaseControl/EmptyState.h"
#include "workbench/hostlibs/zBaseControl/Style.h"
#include "workbench/hostlibs/zBaseControl/contextAction.h"
#include "zControl.h"

namespace workbench {

namespace {

struct PlaceButton {
    int place;
    const char* name;
    const char* text;
};

const PlaceButton placeButtons[] = {{ProjectPlace, "place1", "工程文件夹"},
                                    {ComputerPlace, "place2", "本机"},
                                    {PersonalPlace, "place3", "个人云盘"},
                                    {CompanyPlace, "place4", "企业云盘"}};

/// @param size edge in widget pixels. @param ratio device pixels per widget pixel.
QIcon listIcon(const char* drawing, int size, qreal ratio) {
    const QString file = QStringLiteral(":/Image/Workbench/%1.svg").arg(QLatin1String(drawing));
    const QPixmap pixmap = pixmapOf(skinPicture(file), {size, size}, ratio);
    QIcon icon;
    // The same picture for a selected row: Qt would tint it otherwise.
    for (const QIcon::Mode mode : {QIcon::Normal, QIcon::Selected, QIcon::Disabled})
        icon.addPixmap(pixmap, mode);
    return icon;
}

bool isEnter(int key) {
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

template <typename Layout>
Layout* plainLayout(QWidget* widget, int spacing) {
    auto* layout = new Layout(widget);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(scaled(spacing));
    return layout;
}

QLineEdit* field(const char* name, const QString& nameForReaders, const QString& description,
                 QWidget* parent) {
    auto* edit = new QLineEdit(parent);
    edit->setObjectName(QLatin1String(name));
    edit->setAccessibleName(nameForReaders);
    edit->setAccessibleDescription(description);
    edit->setFixedHeight(roomFor(kControlHeight));
    return edit;
}

}  // namespace

OpenDialogView::OpenDialogView(const FileRequest& request, QWidget* parent)
    : QWidget(parent),
      foldersWanted(request.wantsFolder()),
      filter(FileFilter::fromList(request.filters)) {
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(scaled(12), scaled(12), scaled(12), scaled(12));
    columns->setSpacing(scaled(12));
    columns->addWidget(placeColumn(request.allowsClouds()));
    auto* right = new QVBoxLayout;
    right->setSpacing(scaled(8));
    columns->addLayout(right, 1);
    right->addWidget(pathRow());
    right->addWidget(fileList(), 1);
    right->addWidget(nameRow());
    right->addWidget(buttonRow());
    applyColours();
    connectWidgets();
}

QWidget* OpenDialogView::placeColumn(bool withClouds) {
    auto* column = new QWidget(this);
    column->setMaximumWidth(roomFor(120));
    column->setMinimumWidth(scaled(120));
    auto* layout = plainLayout<QVBoxLayout>(column, 4);
    for (const PlaceButton& entry : placeButtons) {
        if (isCloudPlace(entry.place) && !withClouds) continue;
        auto* place = new zBaseButton(hostText(QString::fromUtf8(entry.text)), column);
        place->setObjectName(QLatin1String(entry.name));
        place->setAccessibleName(hostText(QStringLiteral("位置：%1")).arg(place->text()));
        place->setAccessibleDescription(hostText(QStringLiteral("列出此位置的文件")));
        place->setProperty("place", entry.place);
        place->setAutoDefault(false);
        place->setCheckable(true);
        place->setCheckedBackColorEnabled(true);
        place->setFixedHeight(roomFor(34));
        connect(place, &QPushButton::clicked, this,
                [this, entry] { Q_EMIT placeWanted(entry.place); });
        layout->addWidget(place);
        places.append(place);
    }
    layout->addStretch(1);
    return column;
}

QWidget* OpenDialogView::pathRow() {
    auto* row = new QWidget(this);
    auto* layout = plainLayout<QHBoxLayout>(row, 8);
    upButton = windowButton("upButton", hostText(QStringLiteral("上一级")),
                            hostText(QStringLiteral("转到上一级文件夹")), row);
    upButton->setFixedSize(roomFor(72), roomFor(kControlHeight));
    pathField = field("pathField", hostText(QStringLiteral("路径")),
                      hostText(QStringLiteral("所列文件夹的路径，按回车键转到")), row);
    layout->addWidget(upButton);
    layout->addWidget(pathField, 1);
    return row;
}

QWidget* OpenDialogView::fileList() {
    model = new FileListModel(this);
    model->setFilter(filter, foldersWanted);
    list = new QTreeView(this);
    list->setObjectName(QStringLiteral("fileList"));
    list->setAccessibleName(hostText(QStringLiteral("文件列表")));
    list->setModel(model);
    list->setRootIsDecorated(false);
    list->setAllColumnsShowFocus(true);
    list->setItemsExpandable(false);
    list->setUniformRowHeights(true);  // thousands of rows stay quick
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    list->setSelectionBehavior(QAbstractItemView::SelectRows);
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setTextElideMode(Qt::ElideMiddle);
    list->setIconSize(QSize(roomFor(18), roomFor(18)));
    QHeaderView* header = list->header();
    header->setStretchLastSection(false);
    header->setSectionsMovable(false);
    header->setMinimumSectionSize(roomFor(90));
    header->setSectionResizeMode(FileListModel::NameColumn, QHeaderView::Stretch);
    header->resizeSection(FileListModel::TypeColumn, roomFor(104));
    header->resizeSection(FileListModel::SizeColumn, roomFor(92));
    header->resizeSection(FileListModel::TimeColumn, roomFor(142));
    list->sortByColumn(FileListModel::NameColumn, Qt::AscendingOrder);
    list->setSortingEnabled(true);
    new EmptyState(list, [this] { return emptyText(); });
    makeMenu();
    return list;
}

void OpenDialogView::makeMenu() {
    const auto add = [this](const QString& text, const char* name, auto&& work) {
        addContextAction(list, text, name, work);
    };
    add(hostText(QStringLiteral("打开")), "openEntry", [this] {
        if (selectedRow() >= 0) activate(selectedRow());
    });
    add(hostText(QStringLiteral("上一级")), "goUp", [this] { Q_EMIT upWanted(); });
    add(hostText(QStringLiteral("复制路径")), "copyEntryPath", [this] { copyPath(); });
}

void OpenDialogView::copyPath() const {
    const FileEntry* entry = selected();
    QString path = pathField->text();
    const QChar separator = path.contains(QLatin1Char('\\')) ? QLatin1Char('\\') : QLatin1Char('/');
    if (entry && !path.endsWith(separator)) path += separator;
    QGuiApplication::clipboard()->setText(entry ? path + entry->name : path);
}

QString OpenDialogView::emptyText() const {
    const int hidden = model->hiddenCount();
    if (hidden == 0) return hostText(QStringLiteral("此文件夹是空的"));
    return foldersWanted
               ? hostText(QStringLiteral("没有子文件夹\n此处有 %1 个文件，这里只能选择文件夹。"))
                     .arg(hidden)
               : hostText(QStringLiteral(
                              "没有此类型的文件\n此处有 %1 个其他文件，可换一种文件类型查看。"))
                     .arg(hidden);
}

QWidget* OpenDialogView::nameRow() {
    auto* row = new QWidget(this);
    auto* layout = plainLayout<QHBoxLayout>(row, 8);
    const QString name =
        foldersWanted ? hostText(QStringLiteral("文件夹")) : hostText(QStringLiteral("文件名"));
    auto* label = new zBaseLabel(hostText(QStringLiteral("%1：")).arg(name), row);
    nameField = field("nameField", foldersWanted ? hostText(QStringLiteral("文件夹名")) : name,
                      hostText(foldersWanted ? QStringLiteral("要打开的文件夹")
                                             : QStringLiteral("要打开的文件名")),
                      row);
    label->setBuddy(nameField);
    if (foldersWanted) nameField->setPlaceholderText(hostText(QStringLiteral("当前文件夹")));
    filterBox = new zBaseCombox(row);
    filterBox->setObjectName(QStringLiteral("filterBox"));
    filterBox->setAccessibleName(hostText(QStringLiteral("文件类型")));
    filterBox->setAccessibleDescription(hostText(QStringLiteral("只列出此类型的文件")));
    filterBox->setFixedHeight(roomFor(kControlHeight));
    filterBox->setMinimumWidth(scaled(120));
    filterBox->setMaximumWidth(roomFor(240));
    filterBox->setVisible(!foldersWanted);
    filterBox->addItem(filter.text());
    if (!filter.suffixes.isEmpty()) filterBox->addItem(FileFilter::fromList({}).text());
    layout->addWidget(label);
    layout->addWidget(nameField, 1);
    layout->addWidget(filterBox, 1);
    return row;
}

QWidget* OpenDialogView::buttonRow() {
    auto* row = new QWidget(this);
    auto* layout = plainLayout<QHBoxLayout>(row, 8);
    messageLabel = new zBaseLabel(row);
    messageLabel->setObjectName(QStringLiteral("messageLabel"));
    messageLabel->setAccessibleName(hostText(QStringLiteral("提示")));
    messageLabel->setTextFormat(Qt::PlainText);  // names of files may look like markup
    messageLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    progressBar = makeProgressBar(row);
    progressBar->setObjectName(QStringLiteral("progressBar"));
    progressBar->setFixedWidth(scaled(160));
    progressBar->hide();
    openButton = windowButton("openButton", hostText(QStringLiteral("打开")),
                              hostText(QStringLiteral("打开所选的文件或文件夹")), row);
    openButton->setControlType(DefaultActionType);
    openButton->setDefault(true);
    cancelButton = windowButton("cancelButton", hostText(QStringLiteral("取消")),
                                hostText(QStringLiteral("不作选择，关闭此窗口")), row);
    layout->addWidget(messageLabel, 1);
    layout->addWidget(progressBar);
    layout->addWidget(openButton);
    layout->addWidget(cancelButton);
    return row;
}

void OpenDialogView::applyColours() {
    const QString listSheet =
        QStringLiteral("QTreeView{background:%1;border:%3px solid %2;outline:0}")
            .arg(colour(Tint::Field).name(), colour(Tint::Line).name())
            .arg(qMax(1, scaled(1)));
    setStyleSheet(fieldSheet() + listSheet + progressBarSheet());
    const int size = list->iconSize().width();
    model->setIcons(listIcon("folder", size, devicePixelRatioF()),
                    listIcon("file", size, devicePixelRatioF()));
}

void OpenDialogView::connectWidgets() {
    connect(upButton, &QPushButton::clicked, this, &OpenDialogView::upWanted);
    connect(list, &QTreeView::doubleClicked, this,
            [this](const QModelIndex& index) { activate(index.row()); });
    connect(list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &OpenDialogView::showSelection);
    connect(filterBox, qOverload<int>(&QComboBox::currentIndexChanged), this, [this](int index) {
        model->setFilter(index == 0 ? filter : FileFilter(), foldersWanted);
    });
    connect(openButton, &QPushButton::clicked, this, &OpenDialogView::confirmed);
    connect(cancelButton, &QPushButton::clicked, this, &OpenDialogView::cancelled);
    connect(&Host::instance(), &Host::skinChanged, this, &OpenDialogView::applyColours);
    list->installEventFilter(this);
    pathField->installEventFilter(this);
}

bool OpenDialogView::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (watched == list) return listKey(key);
    if (watched != pathField || !isEnter(key)) return false;
    Q_EMIT pathTyped(pathField->text());
    return true;
}

/// @return whether the key is one of the list's own.
bool OpenDialogView::listKey(int key) {
    const int row = selectedRow();
    if (isEnter(key)) {
        if (row < 0)
            Q_EMIT confirmed();
        else
            activate(row);
        return true;
    }
    // The view has a current row as soon as it has the focus, and would go on to the second one.
    if (key == Qt::Key_Down && row < 0) {
        selectRow(0);
        return true;
    }
    if (key != Qt::Key_Backspace) return false;
    Q_EMIT upWanted();
    return true;
}

void OpenDialogView::activate(int row) {
    const FileEntry entry = model->entry(row);  // a copy: the model may change meanwhile
    Q_EMIT activated(entry);
}

void OpenDialogView::showListing(const Listing& listing, int place) {
    tell(QString());
    model->setEntries(listing.entries);
    list->scrollToTop();
    pathField->setText(listing.path);
    nameField->clear();
    canGoUp = listing.canGoUp;
    upButton->setEnabled(canGoUp);
    markPlace(place);
    const int row = model->rowOf(listing.selected);
    if (row >= 0) selectRow(row);
}

void OpenDialogView::markPlace(int place) {
    for (zBaseButton* button : qAsConst(places))
        button->setChecked(button->property("place").toInt() == place);
}

QString OpenDialogView::name() const {
    return nameField->text();
}

void OpenDialogView::setName(const QString& name) {
    nameField->setText(name);
}

const FileEntry* OpenDialogView::selected() const {
    const int row = selectedRow();
    return row < 0 ? nullptr : &model->entry(row);
}

int OpenDialogView::selectedRow() const {
    const QModelIndexList rows = list->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
}

void OpenDialogView::selectRow(int row) {
    const QModelIndex index = model->index(row, FileListModel::NameColumn);
    list->selectionModel()->setCurrentIndex(
        index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    list->scrollTo(index);
}

void OpenDialogView::showSelection() {
    const FileEntry* entry = selected();
    if (entry) nameField->setText(entry->folder == foldersWanted ? entry->name : QString());
}

void OpenDialogView::tell(const QString& message, bool failure) {
    QPalette palette = messageLabel->palette();
    palette.setColor(QPalette::WindowText, colour(failure ? Tint::Danger : Tint::Muted));
    messageLabel->setPalette(palette);
    messageLabel->setText(message);
    messageLabel->setToolTip(message.toHtmlEscaped());
}

void OpenDialogView::focusList() {
    list->setFocus();
}

void OpenDialogView::setBusy(bool busy) {
    QVector<QWidget*> widgets{upButton, pathField, list, nameField, filterBox, openButton};
    for (zBaseButton* button : qAsConst(places)) widgets.append(button);
    for (QWidget* widget : qAsConst(widgets)) widget->setEnabled(!busy);
    tell(busy ? hostText(QStringLiteral("正在连接云盘…")) : QString(), false);
    progressBar->setRange(0, 0);  // nobody knows how long it takes
    progressBar->setVisible(busy);
    if (busy) return setCursor(Qt::BusyCursor);
    unsetCursor();
    upButton->setEnabled(canGoUp);
    focusList();
}

void OpenDialogView::showProgress(qint64 done, qint64 total) {
    if (list->isEnabled()) setBusy(true);
    constexpr int whole = 1000;
    progressBar->setRange(0, whole);
    progressBar->setValue(int(whole * done / total));
    tell(downloadText(done, total), false);
}

}  // namespace workbench
