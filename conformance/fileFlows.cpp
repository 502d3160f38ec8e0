#include <SharedInterface.h>
#include <fileDialog.h>

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include "Check.h"
#include "Opened.h"
#include "Windows.h"

namespace conformance {

namespace {

const QString auditEntry = QStringLiteral("审核工程");
const QString excelEntry = QStringLiteral("导入Excel新建");
const QString tenderEntry = QStringLiteral("导入YFJZ新建");

void need(const QString& file, const char* option) {
    if (file.isEmpty())
        throw NotReached{QStringLiteral("no file was given: ") + QLatin1String(option)};
}

/// The dialog's page that starts from a file.
struct FilePage {
    explicit FilePage(QWidget* page)
        : combo(page->findChild<QComboBox*>(QStringLiteral("fileCombo"))),
          create(page->findChild<QAbstractButton*>(QStringLiteral("newButton"))),
          browse(page->findChild<QAbstractButton*>(QStringLiteral("browseButton"))) {}
    QComboBox* combo;
    QAbstractButton* create;
    QAbstractButton* browse;
};

FilePage auditPage(const Opened& opened) {
    opened.entry(auditEntry)->click();
    return FilePage(opened.page("auditPage"));
}

void expectUsable(const Opened& opened) {
    expect(opened.dialog && opened.dialog->isVisible() && opened.dialog->isEnabled(),
           QStringLiteral("the dialog cannot be used afterwards"));
}

/// Does what hands a file to a plug-in. It may answer with windows of its own, which is no refusal:
/// after one the dialog is still there.
void expectHandedOver(const Opened& opened, const std::function<void()>& action) {
    const Closer closer;
    const bool loop = runsEventLoop(action);
    settle();
    expect(!opened.dialog || !opened.dialog->isVisible(),
           QStringLiteral("the dialog stays open: the file is refused"));
    expect(!loop || !closer.closed().isEmpty(),
           QStringLiteral("an event loop runs before a service answers"));
}

void emptyAuditIsRefused() {
    needFirstPage();
    const Opened opened;
    const FilePage page = auditPage(opened);
    const Closer closer;
    page.create->click();
    settle();
    expect(!closer.closed().isEmpty(), QStringLiteral("no box tells that a file is missing"));
    expectUsable(opened);
}

void fileStartsAnAudit(const QString& project) {
    need(project, "--project");
    needFirstPage();
    const Opened opened;
    const FilePage page = auditPage(opened);
    page.combo->setEditText(project);
    expectHandedOver(opened, [&] { page.create->click(); });
}

void fileStartsContracting(const QString& project) {
    need(project, "--project");
    needFirstPage();
    const Opened opened;
    // No entry of the ribbon leads there: a host puts the page where it wants it.
    QWidget* page = nullptr;
    QMetaObject::invokeMethod(opened.dialog, "addZcbXjWid", Q_RETURN_ARG(QWidget*, page));
    expect(page, QStringLiteral("the page was not built: did the host throw?"));
    FilePage(page).combo->setEditText(project);
    expectHandedOver(opened, [&] { QMetaObject::invokeMethod(opened.dialog, "xjZcbButtonSlot"); });
}

void historyIsOffered(const QString& project) {
    need(project, "--project");
    // A local file stands in the history with this in front.
    const Opened opened({QStringLiteral("bd##") + project});
    expect(FilePage(opened.page("auditPage")).combo->findText(project) >= 0,
           QStringLiteral("the history does not offer the file: is its suffix one of GetSuffix?"));
}

/// Ends the promise where the host's file dialog cannot be used by somebody who does not know it.
void expectTyped(const Typist& typist) {
    if (!typist.typed())
        throw NotReached{
            QStringLiteral("the file dialog takes no path that is typed, or did not open")};
}

void browsedFileIsShown(const QString& project) {
    need(project, "--project");
    const Opened opened;
    const FilePage page = auditPage(opened);
    const Typist typist(project);
    page.browse->click();
    settle();
    expectTyped(typist);
    expect(page.combo->currentText() == QFileInfo(project).absoluteFilePath(),
           QStringLiteral("the file that was chosen is shown as ") + page.combo->currentText());
}

void browsingCanBeCancelled() {
    const Opened opened;
    const FilePage page = auditPage(opened);
    page.combo->setEditText(QStringLiteral("kept"));
    const Closer closer;
    page.browse->click();
    settle();
    expect(!closer.closed().isEmpty(), QStringLiteral("nothing opens to choose from"));
    expect(page.combo->currentText() == QLatin1String("kept"),
           QStringLiteral("a cancelled choice changes the file to ") + page.combo->currentText());
}

/// Starts an import by its ribbon entry and closes whatever opens.
void importIsCancelled(const QString& entry, const QString& expected) {
    needFirstPage();
    const Opened opened;
    const Closer closer;
    opened.entry(entry)->click();
    settle();
    expect(!closer.closed().isEmpty(), QStringLiteral("nothing opens to choose from"));
    expect(expected.isEmpty() || closer.closed().contains(expected),
           expected + QStringLiteral(" does not open"));
    expect(opened.requests.isEmpty(), QStringLiteral("a cancelled import asks for a project"));
}

/// Presses the import dialog's button for a workbook, and remembers how that dialog ends.
class ExcelTypist : public Typist {
  public:
    using Typist::Typist;
    bool imported() const { return accepted; }

  protected:
    void meet(QWidget* window) override {
        auto* choose = window->findChild<QAbstractButton*>(QStringLiteral("btnSelFile"));
        if (!choose || pressed) return Typist::meet(window);
        pressed = true;
        QObject::connect(qobject_cast<QDialog*>(window), &QDialog::accepted,
                         [this] { accepted = true; });
        QMetaObject::invokeMethod(choose, "click", Qt::QueuedConnection);
    }

  private:
    bool pressed = false;
    bool accepted = false;
};

void workbookIsImported(const QString& workbook) {
    need(workbook, "--workbook");
    needFirstPage();
    const Opened opened;
    const ExcelTypist typist(workbook);
    opened.entry(excelEntry)->click();
    settle();
    if (!typist.imported()) expectTyped(typist);
    expect(typist.imported(), QStringLiteral("the import dialog does not take ") + workbook);
}

void tenderIsImported() {
    needFirstPage();
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("conformance.YFJZ")));
    expect(file.open(QIODevice::WriteOnly), QStringLiteral("no temporary file can be written"));
    file.close();
    const Opened opened;
    const Typist typist(file.fileName());
    opened.entry(tenderEntry)->click();
    settle();
    expectTyped(typist);
}

QString cloudPath() {
    const QStringList parts{QStringLiteral("个人云盘"), QStringLiteral("conformance"),
                            QStringLiteral("none.GCFX")};
    return parts.join(zFileDialog::pathFgf);
}

void logInCanBeCancelled() {
    needFirstPage();
    if (Users::Instance()->Kvy()->IsLogin())
        throw NotReached{QStringLiteral("the account is logged in")};
    const Opened opened;
    const FilePage page = auditPage(opened);
    page.combo->setEditText(cloudPath());
    const Closer closer;
    page.create->click();
    settle();
    if (Users::Instance()->Kvy()->IsLogin())
        throw NotReached{QStringLiteral("the host logs in without asking")};
    expectUsable(opened);
}

void missingCloudFileIsRefused() {
    const Opened opened;
    const Closer closer;
    QString local = QStringLiteral("kept");
    bool found = true;
    QMetaObject::invokeMethod(opened.dialog, "loadYunPanPath", Q_RETURN_ARG(bool, found),
                              Q_ARG(QString&, local), Q_ARG(QString, cloudPath()),
                              Q_ARG(bool, false));
    settle();
    expect(!found && local == QLatin1String("kept"),
           QStringLiteral("a file that is on no cloud disk becomes ") + local);
    expectUsable(opened);
}

}  // namespace

QVector<Promise> fileFlows(const Files& files) {
    const QString &project = files.project, &workbook = files.workbook;
    return {
        {QStringLiteral("an audit without a file is refused with a box"), emptyAuditIsRefused},
        {QStringLiteral("a project file starts an audit"), [=] { fileStartsAnAudit(project); }},
        {QStringLiteral("a project file starts general contracting"),
         [=] { fileStartsContracting(project); }},
        {QStringLiteral("the history is offered"), [=] { historyIsOffered(project); }},
        {QStringLiteral("browsing shows the file that was chosen"),
         [=] { browsedFileIsShown(project); }},
        {QStringLiteral("browsing can be cancelled"), browsingCanBeCancelled},
        {QStringLiteral("the Excel import can be cancelled"),
         [] { importIsCancelled(excelEntry, QStringLiteral("importExcelSelFile")); }},
        {QStringLiteral("the Excel import takes a workbook"),
         [=] { workbookIsImported(workbook); }},
        {QStringLiteral("the tender import can be cancelled"),
         [] { importIsCancelled(tenderEntry, QString()); }},
        {QStringLiteral("the tender import takes a file"), tenderIsImported},
        {QStringLiteral("a log-in can be cancelled"), logInCanBeCancelled},
        {QStringLiteral("a file that is on no cloud disk is refused"), missingCloudFileIsRefused},
    };
}

}  // namespace conformance
