#include "workbench/hostlibs/fileDialog/OpenDialog.h"

#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QItemSelectionModel>
#include <QJsonObject>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>
#include <QTreeView>

#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/Skin.h"
#include "workbench/hostlibs/fileDialog/CloudDisk.h"
#include "workbench/hostlibs/fileDialog/FileDialogState.h"
#include "workbench/hostlibs/fileDialog/FileListModel.h"
#include "workbench/hostlibs/osgi/LoginHook.h"

namespace workbench {

namespace {

bool isAtOrBelow(const QString& path, const QString& folder) {
    return path == folder || path.startsWith(folder + QLatin1Char('/'));
}

/// @return the folder, or its nearest ancestor that exists.
QString existing(QString folder) {
    while (!folder.isEmpty() && !QFileInfo(folder).isDir()) {
        const QString parent = QFileInfo(folder).path();
        if (parent == folder) break;
        folder = parent;
    }
    return folder;
}

QString projectFolder() {
    return QDir::cleanPath(Host::instance().installation().projectFolder());
}

bool isEnter(const QKeyEvent* event) {
    return event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
}

bool loggedIn() {
    return Host::instance().switches().account.loggedIn || logIn();
}

}  // namespace

OpenDialog::OpenDialog(QWidget* parent, const FileRequest& request)
    : zTitleModal(parent),
      request(request),
      filter(FileFilter::fromList(request.filters)),
      cloud(std::make_shared<CloudBrowser>([this] { return waitForCloud(); })) {
    build();
    connectWidgets();
    start();
}

OpenDialog::~OpenDialog() = default;

FileChoice OpenDialog::ask(QWidget* parent, const FileRequest& request) {
    const QPointer<OpenDialog> dialog(new OpenDialog(parent, request));
    dialog->setWindowModality(request.modal ? Qt::ApplicationModal : Qt::WindowModal);
    const int result = dialog->exec();
    if (!dialog) return {};
    const FileChoice choice = result == Accepted ? dialog->choice() : FileChoice();
    delete dialog;
    return choice;
}

void OpenDialog::connectWidgets() {
    for (zBaseButton* button : qAsConst(places)) {
        connect(button, &QPushButton::clicked, this,
                [this, button] { goToPlace(button->property("place").toInt()); });
    }
    connect(upButton, &QPushButton::clicked, this, &OpenDialog::goUp);
    connect(list, &QTreeView::doubleClicked, this,
            [this](const QModelIndex& index) { activate(index.row()); });
    connect(list->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &OpenDialog::showSelection);
    connect(filterBox, qOverload<int>(&QComboBox::currentIndexChanged), this, [this](int index) {
        model->setFilter(index == 0 ? filter : FileFilter(), foldersWanted());
    });
    connect(openButton, &QPushButton::clicked, this, &OpenDialog::confirm);
    connect(cancelButton, &QPushButton::clicked, this, [this] {
        if (waiting)
            waiting->exit(1);
        else
            reject();
    });
    connect(SkinManager::instance(), &SkinManager::signalSkinChanged, this,
            &OpenDialog::applyColours);
    list->installEventFilter(this);
    pathField->installEventFilter(this);
}

void OpenDialog::start() {
    filterBox->addItem(filter.text());
    if (!filter.suffixes.isEmpty()) filterBox->addItem(FileFilter::fromList({}).text());
    model->setFilter(filter, foldersWanted());
    QString first = existing(request.folder);
    if (first.isEmpty()) first = existing(projectFolder());
    showLocal(first.isEmpty() ? QDir::homePath() : first);
    nameField->setText(QFileInfo(request.selected).fileName());
    list->setFocus();
}

bool OpenDialog::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress) return zTitleModal::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    if (watched == list && isEnter(key)) {
        const int row = selectedRow();
        row < 0 ? confirm() : activate(row);
        return true;
    }
    // The view has a current row as soon as it has the focus, and would go on to the second one.
    if (watched == list && key->key() == Qt::Key_Down && selectedRow() < 0) {
        selectRow(0);
        return true;
    }
    if (watched == list && key->key() == Qt::Key_Backspace) {
        goUp();
        return true;
    }
    if (watched == pathField && isEnter(key)) {
        goToTypedPath();
        return true;
    }
    return zTitleModal::eventFilter(watched, event);
}

void OpenDialog::done(int result) {
    if (waiting) waiting->exit(1);
    zTitleModal::done(result);
}

// Where one is.

void OpenDialog::goToPlace(int wanted) {
    tell(QString());
    if (!isCloudPlace(wanted))
        return showLocal(wanted == ProjectPlace ? projectFolder() : QDir::homePath());
    const QPointer<OpenDialog> self(this);
    const bool allowed = loggedIn();
    if (!self) return;
    if (!allowed) return markPlace();
    cloudStep([wanted](CloudBrowser& browser) { return browser.goTo(wanted); });
}

void OpenDialog::showLocal(const QString& path) {
    const QFileInfo info(path);
    if (path.isEmpty() || !info.isDir() || !info.isReadable()) {
        markPlace();
        return tell(QStringLiteral("无法打开文件夹“%1”").arg(path));
    }
    folder = QDir::cleanPath(info.absoluteFilePath());
    place = isAtOrBelow(folder, projectFolder()) ? ProjectPlace : ComputerPlace;
    showEntries(localEntries(folder), QDir::toNativeSeparators(folder), !info.isRoot());
}

void OpenDialog::showEntries(const QVector<FileEntry>& entries, const QString& path, bool canGoUp) {
    tell(QString());
    model->setEntries(entries);
    list->scrollToTop();
    pathField->setText(path);
    nameField->clear();
    upButton->setEnabled(canGoUp);
    markPlace();
}

void OpenDialog::markPlace() {
    for (zBaseButton* button : qAsConst(places))
        button->setChecked(button->property("place").toInt() == place);
}

void OpenDialog::goUp() {
    if (!isCloudPlace(place)) {
        const QFileInfo left(folder);
        if (left.isRoot()) return;
        showLocal(left.path());
        return select(left.fileName());
    }
    const QString left = cloud->name();
    if (!cloud->up()) return;
    showEntries(cloudEntries(cloud->nodes()), cloud->path(), cloud->canGoUp());
    select(left);
}

void OpenDialog::goToTypedPath() {
    const QString typed = pathField->text();
    const QStringList names = typed.split(zFileDialog::pathFgf, Qt::SkipEmptyParts);
    const QString first = names.value(0);
    if (first == cloud::personalDisk || first == cloud::companyDisk) return goToCloudPath(names);
    const QFileInfo info(QDir(folder), typed);
    if (!info.isFile()) return showLocal(info.absoluteFilePath());
    showLocal(info.absolutePath());
    select(info.fileName());
}

void OpenDialog::goToCloudPath(const QStringList& names) {
    const int wanted = names.first() == cloud::personalDisk ? PersonalPlace : CompanyPlace;
    const QPointer<OpenDialog> self(this);
    if (request.mode == 0) return tell(QStringLiteral("此处不能使用云盘"));
    if (!loggedIn() || !self) return;
    cloudStep([&](CloudBrowser& browser) { return browser.goTo(wanted, names.mid(1)); });
}

void OpenDialog::enterFolder(const QString& name) {
    if (!isCloudPlace(place)) return showLocal(QDir(folder).absoluteFilePath(name));
    cloudStep([&](CloudBrowser& browser) { return browser.enter(name); });
}

template <typename Step>
bool OpenDialog::cloudStep(Step&& step) {
    const QPointer<OpenDialog> self(this);
    const std::shared_ptr<CloudBrowser> browser = cloud;
    const bool arrived = step(*browser);
    if (!self) return false;
    if (arrived) {
        place = browser->place();
        showEntries(cloudEntries(browser->nodes()), browser->path(), browser->canGoUp());
    } else {
        markPlace();
        tell(browser->error());
    }
    return arrived;
}

// What one chooses.

int OpenDialog::selectedRow() const {
    const QModelIndexList rows = list->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.first().row();
}

void OpenDialog::select(const QString& name) {
    const int row = model->rowOf(name);
    if (row >= 0) selectRow(row);
}

void OpenDialog::selectRow(int row) {
    const QModelIndex index = model->index(row, FileListModel::NameColumn);
    list->selectionModel()->setCurrentIndex(
        index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    list->scrollTo(index);
}

void OpenDialog::showSelection() {
    const int row = selectedRow();
    if (row < 0) return;
    const FileEntry& entry = model->entry(row);
    nameField->setText(entry.folder == foldersWanted() ? entry.name : QString());
}

void OpenDialog::activate(int row) {
    const FileEntry entry = model->entry(row);
    tell(QString());
    if (entry.folder) return enterFolder(entry.name);
    nameField->setText(entry.name);
    confirm();
}

void OpenDialog::confirm() {
    tell(QString());
    const QString name = nameField->text();
    if (name.trimmed().isEmpty()) return confirmEmpty();
    isCloudPlace(place) ? confirmCloud(name) : confirmLocal(name);
}

void OpenDialog::confirmEmpty() {
    const int row = selectedRow();
    if (row >= 0 && model->entry(row).folder) return enterFolder(model->entry(row).name);
    if (!foldersWanted()) return tell(QStringLiteral("请选择文件"));
    if (isCloudPlace(place)) return tell(QStringLiteral("请选择本机的文件夹"));
    choose(folder);
}

void OpenDialog::confirmLocal(const QString& name) {
    const QFileInfo info(QDir::cleanPath(QDir(folder).absoluteFilePath(name)));
    if (info.isDir() && !foldersWanted()) return showLocal(info.filePath());
    if (!info.exists()) return tell(QStringLiteral("找不到“%1”").arg(name));
    if (info.isDir() != foldersWanted()) return tell(QStringLiteral("请选择文件夹"));
    choose(info.filePath());
}

void OpenDialog::confirmCloud(const QString& name) {
    const QJsonObject node = cloud->find(name);
    if (node.isEmpty()) return tell(QStringLiteral("找不到“%1”").arg(name));
    if (node.value(QLatin1String("wjlx")) == QLatin1String("1")) return enterFolder(name);
    if (foldersWanted()) return tell(QStringLiteral("请选择本机的文件夹"));
    download(node);
}

void OpenDialog::download(const QJsonObject& node) {
    const QPointer<OpenDialog> self(this);
    const QString name = node.value(QLatin1String("wjjmc")).toString();
    if (!loggedIn() || !self || !waitForCloud()) return;
    const QJsonObject copy =
        cloud::localCopy(name, cloud->path()).value(QLatin1String("data")).toObject();
    if (!waitForCloud()) return;
    const QJsonObject answer = cloud::download(
        name, node.value(QLatin1String("xzlj")).toString(),
        copy.value(QLatin1String("filPath")).toString(),
        copy.value(QLatin1String("isExist")).toBool() ? QStringLiteral("1") : QStringLiteral("0"));
    const QString path = answer.value(QLatin1String("data")).toString();
    if (answer.value(QLatin1String("code")).toInt(-1) != 0 || path.isEmpty()) {
        const QString message = answer.value(QLatin1String("msg")).toString();
        return tell(message.isEmpty() ? QStringLiteral("云盘文件下载失败") : message);
    }
    chosen.cloudPath = cloud->path() + zFileDialog::pathFgf + name;
    chosen.folderId = cloud->folderId();
    chosen.enterpriseId = cloud->enterpriseId();
    choose(path);
}

void OpenDialog::choose(const QString& path) {
    chosen.path = path;
    chosen.place = place;
    done(Accepted);
}

// What one is told.

void OpenDialog::tell(const QString& message, bool failure) {
    QPalette palette = messageLabel->palette();
    palette.setColor(QPalette::WindowText, colour(failure ? Tint::Danger : Tint::Muted));
    messageLabel->setPalette(palette);
    messageLabel->setText(message);
    messageLabel->setToolTip(message.toHtmlEscaped());
}

bool OpenDialog::waitForCloud() {
    if (!Host::instance().switches().cloud.slow) return true;
    if (waiting) return false;
    const QPointer<OpenDialog> self(this);
    QEventLoop loop;
    QTimer::singleShot(cloud::slowAnswerMs, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    connect(this, &QObject::destroyed, &loop, [&loop] { loop.exit(1); });
    waiting = &loop;
    setBusy(true);
    const bool answered = loop.exec() == 0;
    if (!self) return false;
    waiting = nullptr;
    setBusy(false);
    return answered;
}

void OpenDialog::setBusy(bool busy) {
    QVector<QWidget*> widgets{upButton, pathField, list, nameField, filterBox, openButton};
    for (zBaseButton* button : qAsConst(places)) widgets.append(button);
    for (QWidget* widget : qAsConst(widgets)) widget->setEnabled(!busy);
    if (busy) {
        tell(QStringLiteral("正在连接云盘…"), false);
        setCursor(Qt::BusyCursor);
    } else {
        tell(QString());
        unsetCursor();
        upButton->setEnabled(isCloudPlace(place) ? cloud->canGoUp() : !QFileInfo(folder).isRoot());
        list->setFocus();
    }
}

}  // namespace workbench
