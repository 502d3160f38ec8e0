#include <SharedInterface.h>
#include <fileDialog.h>

#include <QFileInfo>
#include <QTemporaryDir>

#include "Check.h"
#include "FilePage.h"
#include "HostWindows.h"

namespace conformance {

namespace {

const QString excelEntry = QStringLiteral("导入Excel新建");
const QString tenderEntry = QStringLiteral("导入YFJZ新建");

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
    contractingPage(opened).combo->setEditText(project);
    expectHandedOver(opened, [&] { startContracting(opened); });
}

void historyIsOffered(const QString& project) {
    need(project, "--project");
    // A local file stands in the history with this in front.
    const Opened opened({QStringLiteral("bd##") + project});
    expect(FilePage(opened.page("auditPage")).combo->findText(project) >= 0,
           QStringLiteral("the history does not offer the file to an audit"));
    if (QFileInfo(project).suffix().toUpper() != QLatin1String("GCFX")) return;
    expect(contractingPage(opened).combo->findText(project) >= 0,
           QStringLiteral("the history does not offer the file to general contracting: has "
                          "GetFileInfo answered the suffix GCFX?"));
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

/// What the import dialog is given, with the object names of what takes it there.
struct ExcelSource {
    const char* button;  ///< Lets one choose the path.
    QString path;
    const char* tile = "ysTile";  ///< Chooses the kind of project; that of contracting is hidden.
};

/// Chooses a tile of the import dialog, presses a button there, and remembers how that dialog ends.
class ExcelTypist : public Typist {
  public:
    explicit ExcelTypist(const ExcelSource& source) : Typist(source.path), source(source) {}
    bool imported() const { return accepted; }

  protected:
    void meet(QWidget* window) override {
        auto* choose = window->findChild<QAbstractButton*>(QLatin1String(source.button));
        if (!choose || pressed) return Typist::meet(window);
        pressed = true;
        if (auto* tile = window->findChild<QWidget*>(QLatin1String(source.tile))) clickOn(tile);
        QObject::connect(qobject_cast<QDialog*>(window), &QDialog::accepted,
                         [this] { accepted = true; });
        QMetaObject::invokeMethod(choose, "click", Qt::QueuedConnection);
    }

  private:
    const ExcelSource source;
    bool pressed = false;
    bool accepted = false;
};

void importTakes(const ExcelSource& source) {
    needFirstPage();
    const Opened opened;
    const ExcelTypist typist(source);
    opened.entry(excelEntry)->click();
    settle();
    if (!typist.imported()) expectTyped(typist);
    expect(typist.imported(), QStringLiteral("the import dialog does not take ") + source.path);
}

void workbookIsImported(const QString& workbook) {
    need(workbook, "--workbook");
    importTakes({"btnSelFile", workbook});
}

void textIsNotImported() {
    needFirstPage();
    const QTemporaryDir folder;
    const Opened opened;
    const ExcelTypist typist({"btnSelFile", textFile(folder, QStringLiteral("text.xlsx"))});
    opened.entry(excelEntry)->click();
    settle();
    expectTyped(typist);
    expect(!typist.imported(), QStringLiteral("the import dialog takes a text file"));
    // The import dialog itself goes without having been accepted.
    expect(typist.closed().size() > 1, QStringLiteral("no box tells that it is no workbook"));
}

void folderIsImported() {
    const QTemporaryDir folder;
    importTakes({"btnSelDir", folder.path()});
}

void contractingFolderIsImported() {
    const QTemporaryDir folder;
    importTakes({"btnSelDir", folder.path(), "zcbTile"});
}

void tenderIsImported() {
    needFirstPage();
    const QTemporaryDir folder;
    const Opened opened;
    const Typist typist(textFile(folder, QStringLiteral("conformance.YFJZ")));
    opened.entry(tenderEntry)->click();
    settle();
    expectTyped(typist);
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
        {QStringLiteral("the Excel import refuses what is no workbook"), textIsNotImported},
        {QStringLiteral("the Excel import takes a folder"), folderIsImported},
        {QStringLiteral("the Excel import takes a folder of a general contract"),
         contractingFolderIsImported},
        {QStringLiteral("the tender import can be cancelled"),
         [] { importIsCancelled(tenderEntry, QString()); }},
        {QStringLiteral("the tender import takes a file"), tenderIsImported},
    };
}

}  // namespace conformance
