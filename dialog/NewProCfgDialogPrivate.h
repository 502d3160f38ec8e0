/// State and assembly of the new-project dialog.
#pragma once

#include <QListWidget>
#include <QMap>
#include <QPointer>
#include <QStackedWidget>
#include <QTreeWidget>
#include <memory>

#include "core/creationDialog.h"
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
/// null: an exception while the window is built leaves it as far as it was built.
class NewProCfgDialogPrivate : public newpro::CreationDialog {
  public:
    explicit NewProCfgDialogPrivate(NewProCfgDialog* dialog) : q(dialog) {}

    // The dialog for the flows.
    QWidget* widget() override { return q; }
    void acceptDialog() override { q->accept(); }
    void closeDialog() override { q->close(); }
    bool programTypeOfAppType(int& type) override { return q->GetProgramType(type); }
    AppPluginManager* pluginManager() override { return plugins; }
    void emitCreatePro(int programType, const QVariant& map) override;
    void emitCreateMB(int programType, const QString& path) override;
    void createFromPage(const QVariantMap& values, int programType) override {
        q->slotCreatePro(values, programType);
    }

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
    std::unique_ptr<QWidget> templateRow(const QString& text, bool isFile, const QString& path);
    void showTemplateButton();

    // Tax-mode pages.
    void leavePage(int page);
    void showModelList();

    NewProCfgDialog* const q;

    newpro::TaxModeRow* taxRow = nullptr;  ///< Holds the five buttons of the row.
    zBaseButton* importTenderButton = nullptr;
    SlidingStackedWidget* taxPageStack = nullptr;
    newpro::TaxPageArea* taxPageArea = nullptr;
    newpro::PricingModelCatalogue catalogue;  ///< Holds the three model lists.
    QListWidget* lswTemplateEng = nullptr;
    bool showImportTender = true;
    QTreeWidget* templateTree = nullptr;
    bool templateTreeHasFile = false;
    int hostMode = 0;
    AppPluginManager* plugins = nullptr;
    bool isFirstPageOpen = true;
    RibbonNavigationBar* ribbon = nullptr;
    newpro::CurrentKind kind;
    QMap<QAction*, QPointer<QWidget>> pageOfAction;  ///< The host may delete a page of its own.
    QStackedWidget* pageStack = nullptr;
    QMap<QString, QAction*> actionOfTab;
    QWidget* mainPage = nullptr;
    newpro::FileChooserPage* auditPage = nullptr;
    newpro::FileChooserPage* contractingPage = nullptr;
    newpro::FilePages pages;
    QStringList historyFiles;
    bool built = false;               ///< Whether CreateUI reached its end.
    bool displayInitialised = false;  ///< Whether the tax row is connected.
};
