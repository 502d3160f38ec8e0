/// Builds the new-project dialog, top to bottom.
#include <QHBoxLayout>
#include <QVBoxLayout>

#include "core/guard.h"
#include "core/polish.h"
#include "core/scale.h"
#include "core/styleCodes.h"
#include "dialog/CardList.h"
#include "dialog/FittedStack.h"
#include "dialog/NewProCfgDialogPrivate.h"
#include "zCpf.h"

using newpro::scaled;
using Parts = NewProCfgDialogPrivate;

namespace {

constexpr double tenderImportVersion = 1.3;  // of the host's feature

const QString& listStyle() {
    static const QString style = QStringLiteral(
        "/* QListWidget */QListWidget{background:transparent;}"
        "QListWidget::item{background:transparent;}");
    return style;
}

void styleHiddenPagesLater(const QStackedWidget& stack) {
    for (int page = 0; page < stack.count(); ++page) {
        if (page != stack.currentIndex()) newpro::polishWhenShown(stack.widget(page));
    }
}

}  // namespace

void NewProCfgDialog::CreateUI() {
    operate(d, [this](Parts& parts) {
        if (layout()) return;
        auto* column = new QVBoxLayout(this);
        column->setContentsMargins(0, 0, 0, 0);
        column->setSpacing(0);
        parts.buildHeader(column);
        parts.buildPageStack(column);
        parts.buildMainPage();
        parts.buildRibbonEntries();
        parts.pageStack->setCurrentWidget(parts.mainPage);
        styleHiddenPagesLater(*parts.pageStack);
        styleHiddenPagesLater(*parts.taxPageStack);
        parts.built = true;
    });
}

void NewProCfgDialogPrivate::buildHeader(QVBoxLayout* column) {
    auto* header = new zBasePanelV(q);
    column->addWidget(header);  // first: the host may throw at what follows
    header->setObjectName(QStringLiteral("header"));
    header->setFixedHeight(scaled(60));
    header->setBackgroundIcon(QStringLiteral(":/Image/Home/xjbjTc.svg"));
    header->panelLayout()->setContentsMargins(0, 0, 0, 0);

    constexpr int style = 1;
    constexpr int alignment = 1;
    constexpr int exclusive = 1;
    ribbon = new RibbonNavigationBar(style, alignment, exclusive, header);
    header->panelLayout()->addWidget(ribbon);
    ribbon->setObjectName(QStringLiteral("ribbon"));
    ribbon->setContentsMargins(scaled(6), 0, scaled(4), scaled(10));
    ribbon->panelLayout()->setSpacing(scaled(5));
    ribbon->panelLayout()->setContentsMargins(scaled(10), scaled(2), 0, 0);
}

void NewProCfgDialogPrivate::buildPageStack(QVBoxLayout* column) {
    pageStack = new newpro::FittedStack<QStackedWidget>(q);
    pageStack->setObjectName(QStringLiteral("m_StackedWidget"));
    pageStack->setStyleSheet(QStringLiteral("#m_StackedWidget{background: transparent;}"));
    // Without its pages: otherwise they would get their style with it (docs/measures.md).
    pageStack->ensurePolished();
    auto* frame = new QVBoxLayout;
    column->addLayout(frame);
    frame->addWidget(pageStack);
    frame->setSpacing(0);
    frame->setContentsMargins(scaled(2), scaled(2), scaled(2), 0);
}

void NewProCfgDialogPrivate::buildMainPage() {
    auto* page = new zBasePanelV(q);
    mainPage = page;
    pageStack->addWidget(page);
    page->setObjectName(QStringLiteral("pMiddlePanelV"));
    page->panelLayout()->setContentsMargins(scaled(16), scaled(16), scaled(16), scaled(10));
    page->panelLayout()->setSpacing(0);

    buildTaxRow();
    page->panelLayout()->addWidget(taxRow);
    page->panelLayout()->addSpacing(scaled(5));
    auto* divider = new zBaseLabel(page);
    divider->setControlType(newpro::DividerLine);
    divider->setFixedHeight(scaled(1));
    page->panelLayout()->addWidget(divider);
    page->panelLayout()->addSpacing(scaled(5));
    buildTaxPages();
    page->panelLayout()->addWidget(taxPageArea, 1);

    const bool open =
        showImportTender && CpfMain::GetInstance()->GetOpenVersion(tenderImportVersion);
    if (!open) importTenderButton->hide();
}

void NewProCfgDialogPrivate::buildTaxRow() {
    taxRow = new newpro::TaxModeRow(mainPage);
    importTenderButton = taxRow->importButton();
    importTenderButton->SetText(
        CpfMain::GetInstance()->IsProdAreaYN() ? tenderImportEntry : QStringLiteral("导入CJZ新建"));
    QObject::connect(importTenderButton, &QAbstractButton::clicked, q,
                     &NewProCfgDialog::slotImportCJZPro);
}

void NewProCfgDialogPrivate::buildTaxPages() {
    const QString plain = QStringLiteral(".QWidget{\nbackground-color: transparent;}");
    const QString indented = QStringLiteral(".QWidget{\n    background-color: transparent;\n}");
    taxPageStack = new newpro::FittedStack<SlidingStackedWidget>(mainPage);
    taxPageStack->setObjectName(QStringLiteral("stackedWidget"));
    // Before it has pages: each sheet that arrives later styles everything in it once more
    // (docs/measures.md).
    taxPageStack->setStyleSheet(listStyle());
    taxPageStack->ensurePolished();
    taxPageArea = new newpro::TaxPageArea(taxPageStack, mainPage);

    catalogue.lists = {new newpro::CardList("lswGeneralTax", plain, taxPageStack),
                       new newpro::CardList("lswSimpleTax", indented, taxPageStack),
                       new newpro::CardList("lswBusinessTax", indented, taxPageStack)};
    lswTemplateEng = new newpro::CardList("lswTemplateEng", indented, mainPage);
    lswTemplateEng->hide();
    lswTemplateEng->setAccessibleName(QStringLiteral("模板工程卡片"));
    catalogue.templates = lswTemplateEng;
    catalogue.cardsWait = true;

    for (int mode = 0; mode < newpro::taxModeCount; ++mode) {
        const auto& list = catalogue.lists[size_t(mode)];
        list->setAccessibleName(taxRow->button(mode)->text() + QStringLiteral("的计价模型"));
        taxPageStack->addWidget(list);
    }
    q->addMoBanWidget();  // puts the tree into the stack
    if (QWidget* page = q->addZcbXjWid()) taxPageStack->addWidget(page);
}

QWidget* NewProCfgDialog::addShXjWid() {
    return operateOr<QWidget*>(d, nullptr, [](Parts& parts) {
        if (parts.auditPage) return parts.auditPage;
        parts.auditPage =
            new newpro::FileChooserPage(newpro::auditPageConfig, parts.pageStack.need());
        parts.pages.audit.fileCombo = parts.auditPage->fileCombo();
        return parts.auditPage;
    });
}

QWidget* NewProCfgDialog::addZcbXjWid() {
    return operateOr<QWidget*>(d, nullptr, [](Parts& parts) {
        if (parts.contractingPage) return parts.contractingPage;
        parts.contractingPage =
            new newpro::FileChooserPage(newpro::contractingPageConfig, parts.taxPageStack.need());
        parts.pages.contracting.fileCombo = parts.contractingPage->fileCombo();
        return parts.contractingPage;
    });
}

void NewProCfgDialog::InitWidgetDisplay() {
    operate(d, [this](Parts& parts) {
        if (!parts.taxRow || parts.displayInitialised) return;
        if (!parts.taxPageStack) {
            parts.taxRow->hide();  // it offers nothing without its pages
            return;
        }
        parts.displayInitialised = true;
        parts.taxPageStack->setAnimation(QEasingCurve::OutQuint);
        parts.taxPageStack->setSpeed(0);
        parts.taxPageStack->setCurrentIndex(newpro::GeneralPage);
        parts.taxRow->check(newpro::GeneralPage);
        for (int page = 0; page < newpro::taxPageCount; ++page) {
            connect(parts.taxRow->button(page).need(), &QAbstractButton::clicked, this,
                    [this, page] { slotCalculationTaxClicked(page); });
        }
    });
}

void NewProCfgDialog::initConnect() {
    operate(d, [this](Parts& parts) {
        const auto listen = [this](const QAbstractButton* to, void (NewProCfgDialog::*slot)()) {
            if (to) connect(to, &QAbstractButton::clicked, this, slot, Qt::UniqueConnection);
        };
        if (newpro::FileChooserPage* page = parts.auditPage) {
            listen(page->newButton(), &NewProCfgDialog::xjshButtonSlot);
            listen(page->browseButton(), &NewProCfgDialog::slotScanXjsh);
        }
        if (newpro::FileChooserPage* page = parts.contractingPage) {
            listen(page->newButton(), &NewProCfgDialog::xjZcbButtonSlot);
            listen(page->browseButton(), &NewProCfgDialog::slotScanXjZcb);
        }
    });
}
