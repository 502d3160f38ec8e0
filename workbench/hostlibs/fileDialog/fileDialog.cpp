#include "fileDialog.h"

#include <QApplication>
#include <QFileInfo>
#include <QPointer>

#include "workbench/hostlibs/common/FileDialogState.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/fileDialog/CloudDisk.h"
#include "workbench/hostlibs/fileDialog/DownloadWindow.h"
#include "workbench/hostlibs/fileDialog/OpenDialog.h"
#include "workbench/journal/Journal.h"
#include "workbench/journal/toJson.h"

namespace {

using workbench::FileAnswer;
using workbench::Journal;
using workbench::journalled;

FileAnswer preparedAnswer() {
    QVector<FileAnswer>& answers = workbench::Host::instance().switches().fileAnswers;
    return answers.isEmpty() ? FileAnswer() : answers.takeFirst();
}

/// Keeps the record of a choice. A cancelled dialog leaves the one before. The copy of a cloud file
/// lies among the downloads, where nobody wants the next dialog to open.
void keep(const FileAnswer& choice, bool remember) {
    if (choice.path.isEmpty()) return;
    workbench::FileDialogState& state = workbench::fileDialogState();
    const bool cloud = workbench::isCloudPlace(choice.place);
    zFileDialog::iClickedBtn = choice.place;
    state.cloudPath = choice.cloudPath;
    state.folderId = choice.folderId;
    state.enterpriseId = choice.enterpriseId;
    if (remember && !cloud) state.currentPath = QFileInfo(choice.path).absolutePath();
    const QString user = workbench::Host::instance().switches().account.userId;
    zFileDialog::userId = cloud ? user : QString();
    zFileDialog::userName = zFileDialog::userId;
    zFileDialog::yunpanFile = choice.cloudPath;
}

void set(const char* operation, QString& value, const QString& newValue) {
    Journal::instance().call(operation, {newValue});
    value = newValue;
}

/// A tree has far too many nodes for a line of the journal: their number stands for them.
QJsonValue withCountedNodes(const QJsonObject& answer) {
    QJsonObject counted = answer;
    counted.insert(QStringLiteral("data"),
                   workbench::cloud::countNodes(workbench::cloud::nodesOf(answer)));
    return counted;
}

/// @return an answer of the cloud service after its time, journalled.
template <typename Operation>
QJsonObject cloudCall(const char* name, const QJsonArray& args, Operation&& operation,
                      QJsonValue (*json)(const QJsonObject&) = withCountedNodes) {
    const auto served = [&] {
        workbench::cloud::waitForAnswer();
        return operation();
    };
    return Journal::instance().call(name, args, served, json);
}

QWidget* windowInFront() {
    QWidget* over = QApplication::activeModalWidget();
    return over ? over : workbench::Host::instance().mainWindow();
}

QJsonValue whole(const QJsonObject& answer) {
    return answer;
}

}  // namespace

QString zFileDialog::getOpenFileName(QWidget* parent, QString folder, QStringList* filter, int mode,
                                     QString caption, bool modal, QString selected, bool remember,
                                     OpenFileType type) {
    const QStringList filters = filter ? *filter : QStringList();
    const QJsonArray args{workbench::toJson(static_cast<const QObject*>(parent)),
                          folder,
                          workbench::toJson(filters),
                          mode,
                          caption,
                          modal,
                          selected,
                          remember,
                          static_cast<int>(type)};
    return journalled("zFileDialog::getOpenFileName", args, [&] {
        const bool prepared = workbench::Host::instance().switches().fileDialogPrepared;
        const FileAnswer choice =
            prepared ? preparedAnswer()
                     : workbench::OpenDialog::ask(
                           parent, {folder, filters, mode, caption, modal, selected, type});
        keep(choice, remember);
        return choice.path;
    });
}

QString zFileDialog::getCurrentPath() {
    return journalled("zFileDialog::getCurrentPath", {},
                      [] { return workbench::fileDialogState().currentPath; });
}

QString zFileDialog::GetFilePath() {
    return journalled("zFileDialog::GetFilePath", {},
                      [] { return workbench::fileDialogState().cloudPath; });
}

void zFileDialog::SetFilePath(const QString& cloudPath) {
    set("zFileDialog::SetFilePath", workbench::fileDialogState().cloudPath, cloudPath);
}

void zFileDialog::SetFilePid(const QString& folderId) {
    set("zFileDialog::SetFilePid", workbench::fileDialogState().folderId, folderId);
}

void zFileDialog::SetQyid(const QString& enterpriseId) {
    set("zFileDialog::SetQyid", workbench::fileDialogState().enterpriseId, enterpriseId);
}

// The folder-backed service keeps no session that it would have to end: the journal is the effect.
void zFileDialog::TbServerMsg(const QString& path) {
    Journal::instance().call("zFileDialog::TbServerMsg", {path});
}

QJsonObject zFileDialog::LoadGrypData() {
    return cloudCall("zFileDialog::LoadGrypData", {}, workbench::cloud::personalTree);
}

QJsonObject zFileDialog::LoadQyypData() {
    return cloudCall("zFileDialog::LoadQyypData", {}, workbench::cloud::companyTop);
}

QJsonObject zFileDialog::LoadQyypMlData(const QString& folderId, const QString& enterpriseId) {
    return cloudCall("zFileDialog::LoadQyypMlData", {folderId, enterpriseId},
                     [&] { return workbench::cloud::companyFolder(folderId, enterpriseId); });
}

QJsonObject zFileDialog::IsExistDownLoadfile(const QString& fileName, const QString& folderPath) {
    return cloudCall(
        "zFileDialog::IsExistDownLoadfile", {fileName, folderPath},
        [&] { return workbench::cloud::localCopy(fileName, folderPath); }, whole);
}

// A download has a window of its own as soon as it takes a person's time. One that is given up
// answers as one that fails.
QJsonObject zFileDialog::downLoadYunpanFile(const QString& fileName, const QString& link,
                                            const QString& localPath, const QString& isExist) {
    const auto served = [&] {
        QPointer<workbench::DownloadWindow> window;
        bool begun = false;
        const auto progress = [&](qint64 done, qint64 total) {
            if (!begun) window = new workbench::DownloadWindow(fileName, windowInFront());
            begun = true;
            return window && window->progress(done, total);
        };
        const QJsonObject answer =
            workbench::cloud::download(fileName, link, localPath, isExist, progress);
        delete window;
        if (!begun) workbench::cloud::waitForAnswer();
        return answer;
    };
    return Journal::instance().call("zFileDialog::downLoadYunpanFile",
                                    {fileName, link, localPath, isExist}, served, whole);
}
