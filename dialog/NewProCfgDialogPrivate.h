/// State and assembly of the new-project dialog.
#pragma once

#include <QListWidget>
#include <QMap>
#include <QPointer>
#include <QStackedWidget>
#include <QTreeWidget>
#include <memory>
#include <utility>

#include "core/creationDialog.h"
#include "core/guard.h"
#include "core/part.h"
#include "core/projectKind.h"
#include "dialog/FileChooserPage.h"
#include "dialog/NewProCfgDialog.h"
#include "dialog/SlidingStackedWidget.h"
#include "dialog/TaxModeRow.h"
#include "dialog/TaxPageArea.h"
#include "files/filePages.h"
#include "models/PricingModelCatalogue.h"

/// Source name of the dialog's exception reports.
extern const char dialogSource[];

class QVBoxLayout;

/// Texts of the two import entries of the ribbon.
extern const QString excelImportEntry;
extern const QString tenderImportEntry;

/// What the dialog is made of, and the dialog as its creation flows see it. Every widget may be
/// missing: an exception while the window is built leaves it as far as it was built, and the host
/// may delete the dialog, or a page of it, whenever it is asked something. Whatever runs holds on
/// to this object, which then outlives the dialog.
class NewProCfgDialogPrivate : public newpro::CreationDialog,
                               public std::enable_shared_from_this<NewProCfgDialogPrivate> {
  public:
    explicit NewProCfgDialogPrivate(NewProCfgDialog* dialog) : q(dialog) {}

    // The dialog for the flows.
    QWidget* widget() override { return q; }
    void acceptDialog() override {
        deafWhile([this] { q->accept(); });
    }
    void closeDialog() override {
        deafWhile([this] { q->close(); });
    }
    bool programTypeOfAppType(int& type) override { return q->GetProgramType(type); }
    AppPluginManager* pluginManager() override { return plugins; }
    void emitCreatePro(int programType, const QVariant& map) override;
    void emitCreateMB(int programType, const QString& path) override;
    void createFromPage(const QVariantMap& values, int programType) override {
        q->slotCreatePro(values, programType);
    }

    template <typename Close>
    void deafWhile(const Close& close);

    // Building, in the order of the screen (buildUi.cpp).
    void buildHeader(QVBoxLayout* column);
    void buildPageStack(QVBoxLayout* column);
    void buildMainPage();
    void buildTaxRow();
    void buildTaxPages();
    void buildRibbonEntries();

    // Ribbon (ribbon.cpp).
    void dispatch(QAction* action);
    void forgetEntry(QAction* action, const QString& text);
    void forgetEntries();
    void chooseBudget(const newpro::ProjectKind& budget);
    void chooseContracting(const newpro::ProjectKind& contracting);
    void runImport(QAction* action, void (NewProCfgDialog::*slot)());
    void askTenderImport();
    void emphasise(QAction* current);
    template <typename Apply>
    void forEntries(const QString& name, Apply&& apply);

    // Template tree (templateTree.cpp).
    void createTemplateTree();
    void clearTemplateTree();
    void fillTemplateTree();
    void fitTemplateTree();
    std::unique_ptr<QWidget> templateRow(const QString& text, bool isFile, const QString& path);
    void showTemplateButton();

    // Keyboard.
    void focusPage();

    // Tax-mode pages.
    void leavePage(int page);
    void loadModels();
    void showModelList();

    const newpro::Part<NewProCfgDialog> q;

    newpro::Part<newpro::TaxModeRow> taxRow;  ///< Holds the five buttons of the row.
    newpro::Part<zBaseButton> importTenderButton;
    newpro::Part<SlidingStackedWidget> taxPageStack;
    newpro::Part<newpro::TaxPageArea> taxPageArea;
    newpro::PricingModelCatalogue catalogue;  ///< Holds the three model lists.
    newpro::Part<QListWidget> lswTemplateEng;
    bool showImportTender = true;
    newpro::Part<QTreeWidget> templateTree;
    bool templateTreeHasFile = false;
    int hostMode = 0;
    AppPluginManager* plugins = nullptr;
    bool isFirstPageOpen = true;
    newpro::Part<RibbonNavigationBar> ribbon;
    newpro::CurrentKind kind;
    QMap<QAction*, QPointer<QWidget>> pageOfAction;  ///< The host may delete a page of its own.
    newpro::Part<QStackedWidget> pageStack;
    QMap<QString, QAction*> actionOfTab;
    newpro::Part<QWidget> mainPage;
    newpro::Part<newpro::FileChooserPage> auditPage;
    newpro::Part<newpro::FileChooserPage> contractingPage;
    newpro::FilePages pages;
    QStringList historyFiles;
    bool built = false;               ///< Whether CreateUI reached its end.
    bool deaf = false;                ///< Whether it was disabled because a creation closes it.
    bool displayInitialised = false;  ///< Whether the tax row is connected.
};

/// Closes the dialog for a creation. From here on it takes no input: the second click of a double
/// click still arrives, and would ask for a second project. Where it stays open after all, and when
/// it is shown again, it listens again.
template <typename Close>
void NewProCfgDialogPrivate::deafWhile(const Close& close) {
    const bool enabled = q->isEnabled();
    const QPointer<QWidget> focused(q->focusWidget());
    if (enabled) q->setEnabled(false);
    deaf = deaf || enabled;
    newpro::withEnd(close, [this, &focused] {
        if (!q || !q->isVisible()) return;
        q->listenAgain();
        // It went when the dialog was disabled, and every key with it. It comes back as it was,
        // seen or not.
        if (focused && !q->focusWidget()) focused->setFocus(Qt::ActiveWindowFocusReason);
    });
}

/// An operation of the dialog: the dialog's parts, which it holds on to, and where it is reported
/// from. The parts alone do as one; see Origin.
struct Operation {
    Operation(std::shared_ptr<NewProCfgDialogPrivate> held,
              const char* function = __builtin_FUNCTION(), int line = __builtin_LINE())
        : parts(std::move(held)), origin(dialogSource, function, line) {}

    const std::shared_ptr<NewProCfgDialogPrivate> parts;
    const newpro::Origin origin;
};

/// Runs an operation of the dialog inside its guard.
/// @param body gets the dialog's parts, which outlive the dialog; nothing else of the dialog may be
///        used once the host was asked something.
template <typename Body>
void operate(const Operation& operation, const Body& body) {
    newpro::guarded(operation.origin, [&] { body(*operation.parts); });
}

/// The same for an operation with a result. @return `fallback` where it did not come to its end.
template <typename Result, typename Body>
Result operateOr(const Operation& operation, Result fallback, const Body& body) {
    return newpro::guardedOr(operation.origin, fallback,
                             [&] { return Result(body(*operation.parts)); });
}
