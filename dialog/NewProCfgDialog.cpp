#include "dialog/NewProCfgDialog.h"

#include "SharedInterface.h"
#include "core/guard.h"
#include "core/hostMessages.h"
#include "core/scale.h"
#include "dialog/NewProCfgDialogPrivate.h"
#include "files/browse.h"
#include "files/cloudDisk.h"
#include "files/historyLists.h"
#include "files/newFromFile.h"
#include "files/projectFileType.h"
#include "import/importFlows.h"
#include "import/templateProjects.h"
#include "models/ProModelItemForm.h"
#include "models/createProject.h"
#include "models/estimateTemplates.h"

using newpro::guarded;
using newpro::guardedOr;
using newpro::scaled;

const char dialogSource[] = "NewProCfgDialog";

namespace {

constexpr int designWidth = 880;
constexpr int designHeight = 750;

}  // namespace

NewProCfgDialog::NewProCfgDialog(int hostMode, bool showImportTender, QWidget* parent)
    : zBaseModal(parent), d(new NewProCfgDialogPrivate(this)) {
    guarded(dialogSource, "NewProCfgDialog::NewProCfgDialog", [&] {
        d->hostMode = hostMode;
        d->showImportTender = showImportTender;
        // The import flows go on after the dialog has closed: it must not end the application.
        setAttribute(Qt::WA_QuitOnClose, false);
        // For now, and for good if the host throws before the end: its pages ask for no size.
        resize(designWidth, designHeight);
        CreateUI();
        if (d->taxRow) {
            for (int page : {newpro::SimplePage, newpro::BusinessPage, newpro::TemplatePage}) {
                d->taxRow->setShown(page, false);
            }
        }
        InitWidgetDisplay();
        GetModelCfgAndInitData();
        d->plugins = AppPluginManager::instance();
        initConnect();
        InterfaceAdaptation::getInstance()->openMaxDialogMode(860, 735);
        setWindowTitle(QStringLiteral("新建工程"));
        setFocus(Qt::OtherFocusReason);
        setFixedSize(scaled(designWidth), scaled(designHeight));
    });
}

NewProCfgDialog::~NewProCfgDialog() {
    guarded(dialogSource, "NewProCfgDialog::~NewProCfgDialog",
            [] { InterfaceAdaptation::getInstance()->closeMaxDialogMode(); });
    for (QAction* action : d->pageOfAction.keys()) action->disconnect(this);
    // Now, not with the members: what the widgets report while they go finds nothing here.
    d.reset();
}

void NewProCfgDialogPrivate::emitCreatePro(int programType, const QVariant& map) {
    Q_EMIT q->SignalCreatePro(programType, newpro::CreateFromModel, map);
}

void NewProCfgDialogPrivate::emitCreateMB(int programType, const QString& path) {
    Q_EMIT q->SignalCreateMB(programType, newpro::CreateFromTemplate, path);
}

void NewProCfgDialog::SetIsFirstPageOpen(bool open) {
    d->isFirstPageOpen = open;
}

void NewProCfgDialog::SetLsjl(QStringList files) {
    guarded(dialogSource, "NewProCfgDialog::SetLsjl", [&] {
        d->historyFiles = std::move(files);
        initXjXlData();
    });
}

void NewProCfgDialog::InitJcTx() {
    guarded(dialogSource, "NewProCfgDialog::InitJcTx",
            [this] { d->plugins = AppPluginManager::instance(); });
}

bool NewProCfgDialog::GetProgramType(int& type) {
    return newpro::programTypeOf(d->kind.appType, type);
}

// Pricing models.

void NewProCfgDialog::GetModelCfgAndInitData() {
    guarded(dialogSource, "NewProCfgDialog::GetModelCfgAndInitData", [this] {
        ClearProTaxModelListWidget();
        const auto cardMade = [this](ProModelItemForm* card) {
            connect(card, &ProModelItemForm::signalNewPro, this, &NewProCfgDialog::slotNewPro);
        };
        const auto modeFilled = [this](int taxMode) {
            const bool contracting = d->kind.programType == newpro::ContractingProgram;
            if (contracting && taxMode == newpro::BusinessTax) return;
            if (d->taxRow) d->taxRow->setShown(taxMode, true);
        };
        d->catalogue.load(d->kind.appType, cardMade, modeFilled);
        LoadTemplateProInfo();
    });
    // Also after an exception: the cards placed so far must be reachable.
    guarded(dialogSource, "NewProCfgDialog::GetModelCfgAndInitData", [this] {
        d->catalogue.fitLists();
        if (d->taxPageArea) d->taxPageArea->fitStack();
    });
}

void NewProCfgDialog::ClearProTaxModelListWidget() {
    guarded(dialogSource, "NewProCfgDialog::ClearProTaxModelListWidget",
            [this] { d->catalogue.clear(); });
}

void NewProCfgDialog::flushListWidget() {
    guarded(dialogSource, "NewProCfgDialog::flushListWidget", [this] { d->showModelList(); });
}

void NewProCfgDialogPrivate::showModelList() {
    if (!taxRow || !taxPageStack) return;
    for (QListWidget* list : catalogue.lists) {
        if (list) list->hide();
    }
    const auto wanted = [this](int mode) { return taxRow->isChecked(mode); };
    int first = -1;
    for (int mode = newpro::taxModeCount - 1; mode >= 0; --mode) {
        if (!wanted(mode) || !catalogue.lists[size_t(mode)]) continue;
        catalogue.lists[size_t(mode)]->show();
        first = mode;
    }
    // The page that the stack calls current has to be the visible one.
    const int current = taxPageStack->currentIndex();
    const bool otherList = current >= 0 && current < newpro::taxModeCount && !wanted(current);
    if (otherList && first >= 0) taxPageStack->setCurrentIndex(first);
    if (QWidget* page = taxPageStack->currentWidget()) page->show();
}

void NewProCfgDialog::slotNewPro(const ProjectSettingSpace::TaxTemplateInfo& newProTaxInfo) {
    guarded(dialogSource, "NewProCfgDialog::slotNewPro",
            [&] { newpro::createFromModel(*d, newProTaxInfo); });
}

void NewProCfgDialog::slotCreatePro(const QMap<QString, QVariant>& mapVar, int gcType) {
    guarded(dialogSource, "NewProCfgDialog::slotCreatePro",
            [&] { newpro::createFromPageData(d->plugins, mapVar, gcType); });
}

// Templates.

void NewProCfgDialog::LoadTemplateProInfo() {
    guarded(dialogSource, "NewProCfgDialog::LoadTemplateProInfo", [this] {
        if (!d->lswTemplateEng) return;
        const auto create = [this](const QString& path) {
            newpro::createFromTemplateCard(*d, path);
        };
        newpro::fillTemplateList(d->lswTemplateEng, d->kind.appTypeKey, d->catalogue.items(),
                                 create);
        d->showTemplateButton();
    });
}

void NewProCfgDialog::initGsMbData() {
    guarded(dialogSource, "NewProCfgDialog::initGsMbData",
            [this] { newpro::fillEstimateTemplates(d->pages.estimate.modelCombo); });
}

// History.

void NewProCfgDialog::initXjXlData() {
    guarded(dialogSource, "NewProCfgDialog::initXjXlData", [this] {
        initGsMbData();
        initLsjl(true, true, false, false);
    });
}

void NewProCfgDialog::initLsjl(bool sh, bool zcb, bool js, bool gs) {
    guarded(dialogSource, "NewProCfgDialog::initLsjl", [&] {
        newpro::refillHistory(d->historyFiles, d->pages, {sh, zcb, js, gs});
    });
}

void NewProCfgDialog::initJsLsjlList() {
    guarded(dialogSource, "NewProCfgDialog::initJsLsjlList", [this] {
        newpro::refillHistory(d->historyFiles, d->pages, {false, false, true, false});
    });
}

void NewProCfgDialog::initShLsjlList() {
    guarded(dialogSource, "NewProCfgDialog::initShLsjlList", [this] {
        newpro::refillHistory(d->historyFiles, d->pages, {true, false, false, false});
    });
}

void NewProCfgDialog::initZcbLsjlList() {
    guarded(dialogSource, "NewProCfgDialog::initZcbLsjlList", [this] {
        newpro::refillHistory(d->historyFiles, d->pages, {false, true, false, false});
    });
}

// Existing project files.

void NewProCfgDialog::xjgsButtonSlot() {
    guarded(dialogSource, "NewProCfgDialog::xjgsButtonSlot",
            [this] { newpro::newFromFile(*d, d->pages, newpro::FileFlow::Estimate); });
}

void NewProCfgDialog::xjjsButtonSlot() {
    guarded(dialogSource, "NewProCfgDialog::xjjsButtonSlot",
            [this] { newpro::newFromFile(*d, d->pages, newpro::FileFlow::Settlement); });
}

void NewProCfgDialog::xjshButtonSlot() {
    guarded(dialogSource, "NewProCfgDialog::xjshButtonSlot",
            [this] { newpro::newFromFile(*d, d->pages, newpro::FileFlow::Audit); });
}

void NewProCfgDialog::xjZcbButtonSlot() {
    guarded(dialogSource, "NewProCfgDialog::xjZcbButtonSlot",
            [this] { newpro::newFromFile(*d, d->pages, newpro::FileFlow::Contracting); });
}

void NewProCfgDialog::slotScanXjgs() {
    guarded(dialogSource, "NewProCfgDialog::slotScanXjgs",
            [this] { newpro::browseForFile(*d, d->pages, newpro::FileFlow::Estimate); });
}

void NewProCfgDialog::slotScanXjjs() {
    guarded(dialogSource, "NewProCfgDialog::slotScanXjjs",
            [this] { newpro::browseForFile(*d, d->pages, newpro::FileFlow::Settlement); });
}

void NewProCfgDialog::slotScanXjsh() {
    guarded(dialogSource, "NewProCfgDialog::slotScanXjsh",
            [this] { newpro::browseForFile(*d, d->pages, newpro::FileFlow::Audit); });
}

void NewProCfgDialog::slotScanXjsh_YN() {
    slotScanXjsh();
}

void NewProCfgDialog::slotScanXjZcb() {
    guarded(dialogSource, "NewProCfgDialog::slotScanXjZcb",
            [this] { newpro::browseForFile(*d, d->pages, newpro::FileFlow::Contracting); });
}

int NewProCfgDialog::getDkType(QString suffix) {
    return guardedOr(dialogSource, "NewProCfgDialog::getDkType", 0,
                     [&] { return newpro::projectFileType(std::move(suffix)); });
}

bool NewProCfgDialog::loadYunPanPath(QString& localPath, const QString& cloudPath, bool select) {
    return guardedOr(dialogSource, "NewProCfgDialog::loadYunPanPath", false, [&] {
        return newpro::resolveCloudPath(localPath, cloudPath, select, d->pages);
    });
}

// Imports.

void NewProCfgDialog::slotImportExcelNewPro() {
    guarded(dialogSource, "NewProCfgDialog::slotImportExcelNewPro",
            [this] { newpro::importExcel(*d); });
}

void NewProCfgDialog::slotImportCJZPro() {
    guarded(dialogSource, "NewProCfgDialog::slotImportCJZPro",
            [this] { newpro::importTender(*d); });
}

// Tax modes.

void NewProCfgDialog::slotCalculationTaxClicked(int i) {
    guarded(dialogSource, "NewProCfgDialog::slotCalculationTaxClicked", [&] {
        // A page may be missing after an exception; the slide would go round to another.
        const bool page = d->taxPageStack && i >= 0 && i < d->taxPageStack->count();
        if (!page) return;
        d->taxPageStack->slideInIdx(i);
        // At once: the check marks do not wait for the slide.
        slotCalculationTaxAnimationFinished(i);
    });
}

void NewProCfgDialog::slotCalculationTaxAnimationFinished(int i) {
    guarded(dialogSource, "NewProCfgDialog::slotCalculationTaxAnimationFinished", [&] {
        if (d->taxRow) d->taxRow->check(i);
    });
}
