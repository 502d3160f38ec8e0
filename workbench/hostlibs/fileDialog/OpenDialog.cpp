#include "workbench/hostlibs/fileDialog/OpenDialog.h"

#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QJsonObject>
#include <QPointer>
#include <QTimer>
#include <QVBoxLayout>

#include "workbench/base/fileAdvice.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/Skin.h"
#include "workbench/hostlibs/common/hostTexts.h"
#include "workbench/hostlibs/fileDialog/CloudDisk.h"
#include "workbench/hostlibs/fileDialog/FieldStyle.h"
#include "workbench/hostlibs/fileDialog/FileLocation.h"
#include "workbench/hostlibs/fileDialog/OpenDialogView.h"

namespace workbench {

namespace {

/// @return the folder, or its nearest ancestor that exists.
QString existing(QString folder) {
    while (!folder.isEmpty() && !QFileInfo(folder).isDir()) {
        const QString parent = QFileInfo(folder).path();
        if (parent == folder) break;
        folder = parent;
    }
    return folder;
}

QString captionOf(const FileRequest& request) {
    if (!request.caption.isEmpty()) return request.caption;
    return request.wantsFolder() ? hostText(QStringLiteral("打开文件夹"))
                                 : hostText(QStringLiteral("打开文件"));
}

enum Ending { Answered, GivenUp };

}  // namespace

OpenDialog::OpenDialog(QWidget* parent, const FileRequest& request)
    : zTitleModal(parent),
      request(request),
      location(std::make_shared<FileLocation>(
          request.allowsClouds(),
          [self = QPointer<OpenDialog>(this)] { return self && self->wait(); },
          [self = QPointer<OpenDialog>(this)](qint64 done, qint64 total) {
              return self && self->progress(done, total);
          })),
      view(new OpenDialogView(request, this)) {
    SetCaption(captionOf(request));
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view);
    resize(roomOnScreen(*this, 860, 560));
    setMinimumSize(roomOnScreen(*this, 620, 380));
    connectView();
    start();
}

FileAnswer OpenDialog::ask(QWidget* parent, const FileRequest& request) {
    const QPointer<OpenDialog> dialog(new OpenDialog(parent, request));
    dialog->setWindowModality(request.modal ? Qt::ApplicationModal : Qt::WindowModal);
    const int result = dialog->exec();
    if (!dialog) return {};
    const FileAnswer choice = result == Accepted ? dialog->choice() : FileAnswer();
    delete dialog;
    return choice;
}

/// Lets the time of one answer of the cloud pass while the window lives on.
/// @return whether the answer is there. False when the user gave up, while another answer is on its
///         way, and when the dialog was deleted meanwhile.
bool OpenDialog::wait() {
    if (!Host::instance().switches().cloud.slow) return true;
    if (waiting) return false;
    const QPointer<OpenDialog> self(this);
    view->setBusy(true);
    const bool answered = rest(cloud::slowAnswerMs);
    if (self) view->setBusy(false);
    return answered;
}

/// Shows how far a download is. A slow disk spreads its time over the parts of the file.
/// @return false when the user gave up, and when the dialog was deleted meanwhile.
bool OpenDialog::progress(qint64 done, qint64 total) {
    if (!downloading.isValid()) downloading.start();
    view->showProgress(done, total);
    const bool slow = Host::instance().switches().cloud.slow;
    const qint64 due = slow ? cloud::slowAnswerMs * done / total : 0;
    return rest(int(qMax(qint64(0), due - downloading.elapsed())));
}

/// Lets time pass while the window lives on. @return false when the user gave up, while another
///         rest is taken, and when the dialog was deleted meanwhile.
bool OpenDialog::rest(int ms) {
    if (waiting) return false;
    const QPointer<OpenDialog> self(this);
    QEventLoop loop;
    QTimer::singleShot(ms, Qt::PreciseTimer, &loop, [&loop] { loop.exit(Answered); });
    connect(this, &QObject::destroyed, &loop, [&loop] { loop.exit(GivenUp); });
    waiting = &loop;
    const int ending = loop.exec();
    if (!self) return false;
    waiting = nullptr;
    return ending == Answered;
}

void OpenDialog::giveUp() {
    if (waiting) waiting->exit(GivenUp);
}

void OpenDialog::connectView() {
    connect(view, &OpenDialogView::placeWanted, this,
            [this](int place) { go([place](FileLocation& to) { return to.goTo(place); }); });
    connect(view, &OpenDialogView::upWanted, this,
            [this] { go([](FileLocation& to) { return to.up(); }); });
    connect(view, &OpenDialogView::pathTyped, this, [this](const QString& text) {
        go([text](FileLocation& to) { return to.goToTyped(text); });
    });
    connect(view, &OpenDialogView::activated, this, [this](const FileEntry& entry) {
        if (entry.folder) return enter(entry.name);
        view->setName(entry.name);
        confirm();
    });
    connect(view, &OpenDialogView::confirmed, this, &OpenDialog::confirm);
    connect(view, &OpenDialogView::cancelled, this, [this] { waiting ? giveUp() : reject(); });
}

void OpenDialog::start() {
    QString first = existing(request.folder);
    if (first.isEmpty()) first = existing(projectFolder());
    if (first.isEmpty()) first = QDir::homePath();
    go([first](FileLocation& to) { return to.goToFolder(first); });
    view->setName(QFileInfo(request.selected).fileName());
    view->focusList();
}

void OpenDialog::done(int result) {
    giveUp();
    zTitleModal::done(result);
}

/// Takes a step and shows where it led, or why nowhere. The dialog may be gone after it.
template <typename Step>
void OpenDialog::go(Step&& step) {
    const QPointer<OpenDialog> self(this);
    const std::shared_ptr<FileLocation> to = location;
    view->tell(QString());
    const bool arrived = step(*to);
    if (!self) return;
    if (arrived) return view->showListing(to->listing(), to->place());
    view->markPlace(to->place());
    view->tell(to->error());
}

void OpenDialog::enter(const QString& name) {
    go([name](FileLocation& to) { return to.enter(name); });
}

void OpenDialog::confirm() {
    view->tell(QString());
    const QString name = view->name();
    if (name.trimmed().isEmpty()) return confirmEmpty();
    location->isCloud() ? confirmCloud(name) : confirmLocal(name);
}

void OpenDialog::confirmEmpty() {
    const FileEntry* selected = view->selected();
    if (selected && selected->folder) return enter(selected->name);
    if (!request.wantsFolder()) return view->tell(hostText(QStringLiteral("请选择文件")));
    if (location->isCloud()) return view->tell(hostText(QStringLiteral("请选择本机的文件夹")));
    choose({location->folder(), location->place(), {}, {}, {}});
}

void OpenDialog::confirmLocal(const QString& name) {
    if (name.contains(QChar::Null))
        return view->tell(hostText(QString::fromUtf8(fileAdvice(nulReason()))));
    const QFileInfo info(QDir::cleanPath(QDir(location->folder()).absoluteFilePath(name)));
    if (info.isDir() && !request.wantsFolder()) return enter(name);
    if (!info.exists()) return view->tell(hostText(QStringLiteral("找不到“%1”")).arg(name));
    if (info.isDir() != request.wantsFolder())
        return view->tell(hostText(QStringLiteral("请选择文件夹")));
    choose({info.filePath(), location->place(), {}, {}, {}});
}

void OpenDialog::confirmCloud(const QString& name) {
    const QJsonObject node = location->cloudNode(name);
    if (node.isEmpty()) return view->tell(hostText(QStringLiteral("找不到“%1”")).arg(name));
    if (node.value(QLatin1String("wjlx")) == QLatin1String("1")) return enter(name);
    if (request.wantsFolder()) return view->tell(hostText(QStringLiteral("请选择本机的文件夹")));
    download(name);
}

void OpenDialog::download(const QString& name) {
    const QPointer<OpenDialog> self(this);
    const std::shared_ptr<FileLocation> from = location;
    FileAnswer choice;
    downloading.invalidate();
    const bool arrived = from->download(name, choice);
    if (!self) return;
    if (downloading.isValid()) view->setBusy(false);
    if (!arrived) return view->tell(from->error());
    choose(choice);
}

void OpenDialog::choose(const FileAnswer& choice) {
    chosen = choice;
    done(Accepted);
}

}  // namespace workbench
