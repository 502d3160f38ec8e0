#include "dialog/NewProCfgDialog.h"

#include <QShowEvent>

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
#include "models/createProject.h"
#include "models/estimateTemplates.h"

using newpro::scaled;

const char dialogSource[] = "NewProCfgDialog";

namespace {

constexpr int designWidth = 880;
constexpr int designHeight = 750;
constexpr int nominalWidth = 860;  // as the host knows the dialog
constexpr int nominalHeight = 735;

}  // namespace

using Parts = NewProCfgDialogPrivate;

NewProCfgDialog::NewProCfgDialog(int hostMode, bool showImportTender, QWidget* parent)
    : zBaseModal(parent), d(std::make_shared<NewProCfgDialogPrivate>(this)) {
    operate(d, [&](Parts& parts) {
        parts.hostMode = hostMode;
        parts.showImportTender = showImportTender;
        // The import flows go on after the dialog has closed: it must not end the application.
        setAttribute(Qt::WA_QuitOnClose, false);
        // For now, and for good if the host throws before the end: its pages ask for no size.
        resize(designWidth, designHeight);
        CreateUI();
        if (parts.taxRow) {
            for (int page : {newpro::SimplePage, newpro::BusinessPage, newpro::TemplatePage}) {
                parts.taxRow->setShown(page, false);
            }
        }
        InitWidgetDisplay();
        GetModelCfgAndInitData();
        // In a guard of its own: the pages' buttons have to be connected all the same.
        operate({d, "NewProCfgDialog"},
                [](Parts& inner) { inner.plugins = AppPluginManager::instance(); });
        initConnect();
        InterfaceAdaptation::getInstance()->openMaxDialogMode(nominalWidth, nominalHeight);
        setWindowTitle(QStringLiteral("新建工程"));
        setFocus(Qt::OtherFocusReason);
        setFixedSize(scaled(designWidth), scaled(designHeight));
    });
}

NewProCfgDialog::~NewProCfgDialog() {
    operate(d, [](Parts&) { InterfaceAdaptation::getInstance()->closeMaxDialogMode(); });
    d->forgetEntries();
}

void NewProCfgDialog::showEvent(QShowEvent* event) {
    const std::shared_ptr<Parts> held = d;
    const bool spontaneous = event->spontaneous();
    operate(held, [this, event](Parts&) {
        listenAgain();
        zBaseModal::showEvent(event);
    });
    // Also after an exception: the dialog is on the screen, and its keys would lead nowhere.
    operate(held, [spontaneous](Parts& parts) {
        if (!spontaneous) parts.focusPage();
    });
}

/// Whoever opens the dialog can go on by key where its work begins: on the page that is shown.
/// Where a widget has the focus it keeps it.
void NewProCfgDialogPrivate::focusPage() {
    if (q->focusWidget() && q->focusWidget() != q) return;
    QWidget* page = pageStack->currentWidget();
    if (page && page == mainPage) page = taxPageStack->currentWidget();
    if (!page) return;
    if (page->focusPolicy() & Qt::TabFocus) return page->setFocus(Qt::TabFocusReason);
    for (QWidget* next = page->nextInFocusChain(); next != page; next = next->nextInFocusChain()) {
        if (!page->isAncestorOf(next) || next->isHidden()) continue;
        if (next->focusPolicy() & Qt::TabFocus) return next->setFocus(Qt::TabFocusReason);
    }
}

void NewProCfgDialog::listenAgain() {
    if (!d->deaf) return;
    d->deaf = false;
    setEnabled(true);
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
    operate(d, [&](Parts& parts) {
        parts.historyFiles = std::move(files);
        initXjXlData();
    });
}

void NewProCfgDialog::InitJcTx() {
    operate(d, [](Parts& parts) { parts.plugins = AppPluginManager::instance(); });
}

bool NewProCfgDialog::GetProgramType(int& type) {
    return newpro::programTypeOf(d->kind.appType, type);
}

// Pricing models.

void NewProCfgDialog::GetModelCfgAndInitData() {
    // Held here: the second part runs also where the first one lost the dialog.
    const std::shared_ptr<Parts> held = d;
    operate(held, [](Parts& parts) {
        parts.q->ClearProTaxModelListWidget();
        parts.loadModels();
        parts.q->LoadTemplateProInfo();
    });
    // Also after an exception: the cards placed so far must be reachable.
    operate(held, [](Parts& parts) { parts.taxPageArea->fitStack(); });
}

void NewProCfgDialogPrivate::loadModels() {
    const auto create = [dialog = q](const ProjectSettingSpace::TaxTemplateInfo& model) {
        if (dialog) dialog->slotNewPro(model);
    };
    const auto modeFilled = [this](int taxMode) {
        const bool contracting = kind.programType == newpro::ContractingProgram;
        if (contracting && taxMode == newpro::BusinessTax) return;
        if (taxRow) taxRow->setShown(taxMode, true);
    };
    catalogue.load(kind.appType, create, modeFilled);
}

void NewProCfgDialog::ClearProTaxModelListWidget() {
    operate(d, [](Parts& parts) { parts.catalogue.clear(); });
}

void NewProCfgDialog::flushListWidget() {
    operate(d, [](Parts& parts) { parts.showModelList(); });
}

void NewProCfgDialogPrivate::showModelList() {
    for (const auto& list : catalogue.lists) {
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
    operate(d, [&](Parts& parts) { newpro::createFromModel(parts, newProTaxInfo); });
}

void NewProCfgDialog::slotCreatePro(const QMap<QString, QVariant>& mapVar, int gcType) {
    operate(d, [&](Parts& parts) { newpro::createFromPageData(parts.plugins, mapVar, gcType); });
}

// Templates.

void NewProCfgDialog::LoadTemplateProInfo() {
    operate(d, [](Parts& parts) {
        if (!parts.lswTemplateEng) return;
        const auto create = [&parts](const QString& path) {
            const std::shared_ptr<Parts> held = parts.shared_from_this();
            newpro::createFromTemplateCard(*held, path);
        };
        newpro::fillTemplateList(parts.lswTemplateEng, parts.kind.appTypeKey,
                                 parts.catalogue.items(), create);
        parts.showTemplateButton();
    });
}

void NewProCfgDialog::initGsMbData() {
    operate(d, [](Parts& parts) {
        newpro::fillEstimateTemplates(parts.pages.estimate.modelCombo.data());
    });
}

// History.

void NewProCfgDialog::initXjXlData() {
    operate(d, [](Parts& parts) {
        parts.q->initGsMbData();
        parts.q->initLsjl(true, true, false, false);
    });
}

void NewProCfgDialog::initLsjl(bool sh, bool zcb, bool js, bool gs) {
    operate(d, [&](Parts& parts) {
        newpro::refillHistory(parts.historyFiles, parts.pages, {sh, zcb, js, gs});
    });
}

void NewProCfgDialog::initJsLsjlList() {
    operate(d, [](Parts& parts) {
        newpro::refillHistory(parts.historyFiles, parts.pages, {false, false, true, false});
    });
}

void NewProCfgDialog::initShLsjlList() {
    operate(d, [](Parts& parts) {
        newpro::refillHistory(parts.historyFiles, parts.pages, {true, false, false, false});
    });
}

void NewProCfgDialog::initZcbLsjlList() {
    operate(d, [](Parts& parts) {
        newpro::refillHistory(parts.historyFiles, parts.pages, {false, true, false, false});
    });
}

// Existing project files.

void NewProCfgDialog::xjgsButtonSlot() {
    operate(d, [](Parts& parts) {
        newpro::newFromFile(parts, parts.pages, newpro::FileFlow::Estimate);
    });
}

void NewProCfgDialog::xjjsButtonSlot() {
    operate(d, [](Parts& parts) {
        newpro::newFromFile(parts, parts.pages, newpro::FileFlow::Settlement);
    });
}

void NewProCfgDialog::xjshButtonSlot() {
    operate(d,
            [](Parts& parts) { newpro::newFromFile(parts, parts.pages, newpro::FileFlow::Audit); });
}

void NewProCfgDialog::xjZcbButtonSlot() {
    operate(d, [](Parts& parts) {
        newpro::newFromFile(parts, parts.pages, newpro::FileFlow::Contracting);
    });
}

void NewProCfgDialog::slotScanXjgs() {
    operate(d, [](Parts& parts) {
        newpro::browseForFile(parts, parts.pages, newpro::FileFlow::Estimate);
    });
}

void NewProCfgDialog::slotScanXjjs() {
    operate(d, [](Parts& parts) {
        newpro::browseForFile(parts, parts.pages, newpro::FileFlow::Settlement);
    });
}

void NewProCfgDialog::slotScanXjsh() {
    operate(d, [](Parts& parts) {
        newpro::browseForFile(parts, parts.pages, newpro::FileFlow::Audit);
    });
}

void NewProCfgDialog::slotScanXjsh_YN() {
    slotScanXjsh();
}

void NewProCfgDialog::slotScanXjZcb() {
    operate(d, [](Parts& parts) {
        newpro::browseForFile(parts, parts.pages, newpro::FileFlow::Contracting);
    });
}

int NewProCfgDialog::getDkType(QString suffix) {
    return operateOr(d, 0, [&](Parts&) { return newpro::projectFileType(std::move(suffix)); });
}

bool NewProCfgDialog::loadYunPanPath(QString& localPath, const QString& cloudPath, bool select) {
    return operateOr(d, false, [&](Parts& parts) {
        return newpro::resolveCloudPath(localPath, cloudPath, select, parts.pages);
    });
}

// Imports.

void NewProCfgDialog::slotImportExcelNewPro() {
    operate(d, [](Parts& parts) { newpro::importExcel(parts); });
}

void NewProCfgDialog::slotImportCJZPro() {
    operate(d, [](Parts& parts) { newpro::importTender(parts); });
}

// Tax modes.

void NewProCfgDialog::slotCalculationTaxClicked(int i) {
    operate(d, [i](Parts& parts) {
        // A page may be missing after an exception; the slide would go round to another.
        if (i < 0 || i >= parts.taxPageStack->count()) return;
        parts.taxPageStack->slideInIdx(i);
        // At once: the check marks do not wait for the slide.
        parts.q->slotCalculationTaxAnimationFinished(i);
    });
}

void NewProCfgDialog::slotCalculationTaxAnimationFinished(int i) {
    operate(d, [i](Parts& parts) { parts.taxRow->check(i); });
}
