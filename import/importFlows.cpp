#include "import/importFlows.h"

#include <QPointer>
#include <QScopeGuard>
#include <optional>

#include "SharedInterface.h"
#include "core/creationDialog.h"
#include "core/fileDialogCodes.h"
#include "core/firstPage.h"
#include "core/guard.h"
#include "core/hostMessages.h"
#include "fileDialog.h"
#include "import/importExcelSelFile.h"

namespace newpro {

namespace {

const int importExcelFunction = 11118;
const int importLogColumn = 2;
const QLatin1String tenderImported("d");  // the letter that stands in the log for this import
const int modalAccepted = 0;              // the host's answer of a dialog that was accepted

/// @return the user's choice; nothing when the selection dialog was not accepted.
std::optional<ExcelChoice> chooseExcelSource() {
    // It goes with its parent if the main window is destroyed while it is open.
    const QPointer<importExcelSelFile> selection(
        new importExcelSelFile(Communication::GetInstance()->GetMainWindow()));
    const auto cleanup = qScopeGuard([&] { delete selection.data(); });
    const bool accepted = selection->ShowModal() == modalAccepted;
    if (!accepted || !selection) return std::nullopt;
    return ExcelChoice{selection->GetAppGc(), selection->GetImportType(), selection->GetPath(),
                       selection->GetJjms(), selection->GetGcmb()};
}

QString tenderStartFolder() {
    const QString folder = zFileDialog::getCurrentPath();
    return folder.isEmpty() ? SharedInterface::GetAppPath() : folder;
}

/// Lets the user choose a tendering-data file. @param window may go while the host is asked.
/// @return its path; empty when cancelled.
QString chooseTenderFile(const QPointer<QWidget>& window, const QString& folder) {
    QStringList filter{QStringLiteral("云南省电子招投标数据标准"), QStringLiteral("YFJZ"),
                       QStringLiteral("YFJT")};
    return zFileDialog::getOpenFileName(window, folder, &filter, CloudDisks, QString(), true,
                                        QString(), true, OpenFile);
}

/// Forgets the file dialog's last cloud choice. The host relies on this order.
void resetCloudState(const QString& chosenPath) {
    zFileDialog::SetFilePath(QString());
    zFileDialog::userName.clear();
    zFileDialog::yunpanFile.clear();
    zFileDialog::userId.clear();
    zFileDialog::SetFilePid(QString());
    zFileDialog::SetQyid(QString());
    zFileDialog::TbServerMsg(chosenPath);
}

/// Sends the message, after the plug-in's load request where it is not loaded.
void sendLoaded(AppPluginManager* plugins, const PluginMessage& message) {
    if (plugins && !plugins->isLoaded(message.client)) plugins->load(message.client);
    message.send();
}

}  // namespace

void importExcel(CreationDialog& dialog) {
    // The dialog may be gone as soon as it is accepted; the manager is the host's.
    AppPluginManager* const plugins = dialog.pluginManager();
    dialog.acceptDialog();
    if (!hostIsReady()) return;
    SharedInterface::UseFunc(importExcelFunction, QStringLiteral(""));
    const std::optional<ExcelChoice> choice = chooseExcelSource();
    if (choice) sendLoaded(plugins, excelMessage(*choice));
}

void importTender(CreationDialog& dialog) {
    AppPluginManager* const plugins = dialog.pluginManager();
    const QPointer<QWidget> window(dialog.widget()->window());
    dialog.acceptDialog();
    if (!hostIsReady()) return;
    const QString folder = tenderStartFolder();
    QString file;
    // Whatever comes of the file dialog; before it opens, there is nothing to forget.
    withEnd([&] { file = chooseTenderFile(window, folder); }, [&] { resetCloudState(file); });
    if (file.isEmpty()) return;
    SharedInterface::ReplaceFunLog(GNSJ_XJGC, importLogColumn, tenderImported);
    if (plugins) plugins->notify(QString(), BudgetProgram);
    sendLoaded(plugins, tenderMessage(file));
}

}  // namespace newpro
