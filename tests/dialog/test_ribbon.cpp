#include "tests/dialog/DialogFixture.h"
#include "workbench/journal/Journal.h"

namespace {

using namespace dialog_tests;
using workbench::FirstPage;

class Ribbon : public DialogTest {
  protected:
    void SetUp() override {
        // One model and one template file per kind: short lists, and every step leaves a trace.
        host.clearModels();
        host.setModels(QStringLiteral("Kvys"), 0, {model(QStringLiteral("甲"))});
        host.setModels(QStringLiteral("Kvzcb"), 0, {model(QStringLiteral("总"))});
        host.addTemplate(QStringLiteral("kvys"), QStringLiteral("预.MODX"));
        host.addTemplate(QStringLiteral("kvzcb"), QStringLiteral("总.MODX"));
    }
    /// Puts what happens to the tree and the general list into the journal.
    void watch() {
        const auto note = [](const QString& what) {
            return [what] {
                workbench::Journal::instance().record(QStringLiteral("widget"), what, {});
            };
        };
        const QAbstractItemModel* rows = tree()->model();
        QObject::connect(rows, &QAbstractItemModel::modelReset, tree(),
                         note(QStringLiteral("tree cleared")));
        QObject::connect(rows, &QAbstractItemModel::rowsInserted, tree(),
                         note(QStringLiteral("tree row in")));
        const QAbstractItemModel* cards = list("lswGeneralTax")->model();
        QObject::connect(cards, &QAbstractItemModel::rowsRemoved, tree(),
                         note(QStringLiteral("card out")));
        QObject::connect(cards, &QAbstractItemModel::rowsInserted, tree(),
                         note(QStringLiteral("card in")));
    }
    static Lines reload(const std::string& appType) {
        return {"widget card out()",
                "call ProjectSettingHelper::GetProTaxTemplateInfoList(\"" + appType + "\", \"" +
                    appType + "\")",
                R"(call ProjectSettingHelper::GetPricingModelInfoMap("Kvys", ""))",
                "widget card in()",
                "call SharedInterface::GetAppPath()",
                R"(call CpfMain::GetAreaConfigValue("AreaVer"))"};
    }
    static Lines rebuild() {
        return {"widget tree cleared()", "call SharedInterface::GetAppPath()",
                "widget tree row in()"};
    }
    static Lines joined(std::initializer_list<Lines> parts) {
        Lines all;
        for (const Lines& part : parts) all.insert(all.end(), part.begin(), part.end());
        return all;
    }
    QStringList treeTexts() {
        QStringList texts;
        for (int i = 0; i < tree()->topLevelItemCount(); ++i) {
            const QWidget* row = tree()->itemWidget(tree()->topLevelItem(i), 0);
            texts << row->findChild<QLabel*>()->text();
        }
        return texts;
    }
    const std::string asked = "call CpfMain::IsProdAreaYN()";
    const std::string query = R"(call TranMiUtilAction::JudageValue("CJZ新建", ""))";
};

TEST_F(Ribbon, TheBudgetKindRebuildsTheTreeThenReloads) {
    open();
    watch();
    pick(budgetLabel);
    EXPECT_EQ(flowLines(), joined({{asked}, rebuild(), reload("Kvys"), {query}}));
}

TEST_F(Ribbon, InTheYunnanAreaTheBudgetKindLeavesTheTreeAlone) {
    host.switches().prodAreaYN = true;
    open();
    watch();
    QTreeWidgetItem* row = tree()->topLevelItem(0);
    pick(budgetLabel);
    EXPECT_EQ(flowLines(), joined({{asked}, reload("Kvys"), {query}}));
    EXPECT_EQ(tree()->topLevelItem(0), row);
    EXPECT_FALSE(button("businessTaxButton")->isHidden())
        << "shown by the first step in every area";
}

TEST_F(Ribbon, TheContractingKindReloadsThenRebuildsTheTreeInEveryArea) {
    for (bool yunnan : {false, true}) {
        host.switches().prodAreaYN = yunnan;
        open();
        addKindOnMainPage(contractingLabel);
        clearJournal();
        watch();
        pick(contractingLabel);
        EXPECT_EQ(flowLines(), joined({reload("Kvzcb"), rebuild(), {query}})) << yunnan;
        EXPECT_EQ(titles("lswGeneralTax"), QStringList{QStringLiteral("总")});
    }
}

TEST_F(Ribbon, TheTemplatesFollowTheKind) {
    open();
    addKindOnMainPage(contractingLabel);
    EXPECT_EQ(treeTexts(), QStringList{QStringLiteral("预.MODX")});
    pick(contractingLabel);
    EXPECT_EQ(treeTexts(), QStringList{QStringLiteral("总.MODX")});
    EXPECT_EQ(titles("lswTemplateEng"), QStringList{QStringLiteral("总")});
    pick(budgetLabel);
    EXPECT_EQ(treeTexts(), QStringList{QStringLiteral("预.MODX")});
    EXPECT_EQ(titles("lswTemplateEng"), QStringList{QStringLiteral("预")});
}

TEST_F(Ribbon, OnlyTheBudgetKindRefreshesTheListOfTheCheckedMode) {
    open();
    addKindOnMainPage(contractingLabel);
    list("lswSimpleTax")->show();
    pick(contractingLabel);
    EXPECT_FALSE(list("lswSimpleTax")->isHidden());
    pick(budgetLabel);
    EXPECT_TRUE(list("lswSimpleTax")->isHidden());
    EXPECT_TRUE(list("lswGeneralTax")->isVisible());
}

TEST_F(Ribbon, TheListIsRefreshedBeforeTheTenderQuery) {
    open();
    addKindOnMainPage(contractingLabel);
    list("lswSimpleTax")->show();
    pick(contractingLabel);
    throwAt("TranMiUtilAction::JudageValue", testing_support::thrownKinds().front().as);
    pick(budgetLabel);
    EXPECT_EQ(countOf("exception"), 1);
    EXPECT_TRUE(list("lswSimpleTax")->isHidden());
}

TEST_F(Ribbon, AnAnswerToTheTenderQueryHidesTheTenderButton) {
    open();
    addKindOnMainPage(contractingLabel);
    const auto shownAfter = [this](const QString& label) {
        button("importTenderButton")->show();
        pick(label);
        return !button("importTenderButton")->isHidden();
    };
    EXPECT_TRUE(shownAfter(budgetLabel));
    host.switches().transactions.insert(QStringLiteral("CJZ新建"), QStringLiteral("1"));
    EXPECT_FALSE(shownAfter(budgetLabel));
    host.switches().transactions.clear();
    EXPECT_FALSE(shownAfter(contractingLabel)) << "that kind hides it in any case";
}

TEST_F(Ribbon, TheTaxRowFollowsTheKind) {
    host.setModels(QStringLiteral("Kvys"), 2, {model(QStringLiteral("营"))});
    host.setModels(QStringLiteral("Kvzcb"), 2, {model(QStringLiteral("无"))});
    open();
    addKindOnMainPage(contractingLabel);
    EXPECT_EQ(shownTaxButtons(),
              (Lines{"generalTaxButton", "businessTaxButton", "templateButton"}));
    pick(contractingLabel);
    EXPECT_EQ(shownTaxButtons(), (Lines{"generalTaxButton", "templateButton", "budgetButton"}));
    EXPECT_TRUE(list("lswBusinessTax")->isHidden());
    pick(budgetLabel);
    EXPECT_EQ(shownTaxButtons(),
              (Lines{"generalTaxButton", "businessTaxButton", "templateButton"}));
}

TEST_F(Ribbon, LeavingABusinessPageForContractingGoesToTheGeneralPage) {
    host.setModels(QStringLiteral("Kvys"), 2, {model(QStringLiteral("营"))});
    open();
    addKindOnMainPage(contractingLabel);
    click(button("businessTaxButton"));
    ASSERT_EQ(taxStack()->currentIndex(), 2);
    pick(contractingLabel);
    EXPECT_EQ(checkedTaxButtons(), Lines{"generalTaxButton"});
    EXPECT_EQ(taxStack()->currentIndex(), 0);
    EXPECT_TRUE(list("lswGeneralTax")->isVisible());
}

TEST_F(Ribbon, LeavingTheContractingPageForTheBudgetKindGoesToTheGeneralPage) {
    open();
    addKindOnMainPage(contractingLabel);
    pick(contractingLabel);
    click(button("budgetButton"));
    ASSERT_EQ(taxStack()->currentIndex(), 4);
    EXPECT_TRUE(button("budgetButton")->isChecked());
    pick(budgetLabel);
    EXPECT_EQ(checkedTaxButtons(), Lines{"generalTaxButton"});
    EXPECT_EQ(taxStack()->currentIndex(), 0);
    EXPECT_TRUE(list("lswGeneralTax")->isVisible());
    EXPECT_FALSE(find<QWidget>("contractingPage")->isVisible());
}

TEST_F(Ribbon, TheContractingPageIsLeftThoughASecondClickTookItsMark) {
    open();
    addKindOnMainPage(contractingLabel);
    pick(contractingLabel);
    click(button("budgetButton"));
    click(button("budgetButton"));
    ASSERT_FALSE(button("budgetButton")->isChecked());
    ASSERT_EQ(taxStack()->currentIndex(), 4);
    pick(budgetLabel);
    EXPECT_EQ(taxStack()->currentIndex(), 0);
    EXPECT_EQ(checkedTaxButtons(), Lines{"generalTaxButton"});
}

TEST_F(Ribbon, AnEntryWhoseTwinIsTakenOutIsTheOneOfItsNameAgain) {
    open();
    delete addKindOnMainPage(budgetLabel);
    host.switches().firstPage = FirstPage::Absent;  // the import ends there
    pick(excelLabel);
    EXPECT_EQ(checkedEntries(), QStringList{budgetLabel});
}

TEST_F(Ribbon, AnEntryWhoseOlderTwinIsTakenOutStaysTheOneOfItsName) {
    open();
    QAction* const older = entry(budgetLabel);
    auto* page = new QWidget;
    addKind(budgetLabel, page);
    delete older;
    host.switches().firstPage = FirstPage::Absent;  // the import ends there
    pick(excelLabel);
    EXPECT_EQ(pageStack()->currentWidget(), page);
}

TEST_F(Ribbon, AnEntryWhosePageIsGoneShowsNone) {
    open();
    auto* page = new QWidget;
    addKind(QStringLiteral("甲"), page);
    delete page;
    QWidget* shown = pageStack()->currentWidget();
    pick(QStringLiteral("甲"));
    EXPECT_EQ(pageStack()->currentWidget(), shown);
}

TEST_F(Ribbon, APageThatBothKindsHaveStays) {
    host.setModels(QStringLiteral("Kvys"), 1, {model(QStringLiteral("简"))});
    host.setModels(QStringLiteral("Kvzcb"), 1, {model(QStringLiteral("简"))});
    open();
    addKindOnMainPage(contractingLabel);
    for (const char* name : {"simpleTaxButton", "templateButton"}) {
        click(button(name));
        const int page = taxStack()->currentIndex();
        for (const QString& label : {contractingLabel, budgetLabel}) {
            pick(label);
            EXPECT_EQ(checkedTaxButtons(), Lines{name});
            EXPECT_EQ(taxStack()->currentIndex(), page);
            EXPECT_TRUE(taxStack()->currentWidget()->isVisible()) << name << label.toStdString();
            for (int i = 0; i < taxStack()->count(); ++i) {
                EXPECT_EQ(taxStack()->widget(i)->isVisible(), i == page) << i;
            }
        }
    }
}

TEST_F(Ribbon, TheOtherKindsAskTheHostNothingAndShowTheirPage) {
    open();
    for (const QString& label : {estimateLabel, settlementLabel, wholeLabel}) {
        auto* page = new QWidget;
        addKind(label, page);
        clearJournal();
        watch();
        pick(label);
        EXPECT_EQ(journalLines(), Lines{}) << label.toStdString();
        EXPECT_EQ(pageStack()->currentWidget(), page);
        EXPECT_EQ(checkedEntries(), QStringList{label});
        EXPECT_EQ(boldEntries(), QStringList{label});
    }
    clearJournal();
    pick(auditLabel);
    EXPECT_EQ(journalLines(), Lines{});
    EXPECT_EQ(pageStack()->currentWidget(), find<QWidget>("auditPage"));
}

TEST_F(Ribbon, EveryKindSetsItsIdentifiers) {
    const struct {
        QString label;
        int byAppType;  ///< Audit and estimate carry the budget's application type.
        QString templates;
    } rows[] = {
        {estimateLabel, 4, QStringLiteral("预")},     {settlementLabel, 8, QStringLiteral("预")},
        {wholeLabel, 32, QStringLiteral("预")},       {auditLabel, 4, QStringLiteral("预")},
        {contractingLabel, 16, QStringLiteral("总")}, {settlementLabel, 8, QStringLiteral("总")},
        {estimateLabel, 4, QStringLiteral("总")},     {auditLabel, 4, QStringLiteral("总")},
        {budgetLabel, 4, QStringLiteral("预")},
    };
    open();
    for (const QString& label : {estimateLabel, settlementLabel, wholeLabel, contractingLabel}) {
        addKindOnMainPage(label);
    }
    for (const auto& row : rows) {
        SCOPED_TRACE(row.label.toStdString());
        pick(row.label);
        EXPECT_EQ(programType(), row.byAppType);
        ASSERT_TRUE(call("GetModelCfgAndInitData"));
        EXPECT_EQ(titles("lswTemplateEng"), QStringList{row.templates});
    }
}

TEST_F(Ribbon, AnUnknownEntryShowsItsPageAndKeepsTheKind) {
    open();
    addKindOnMainPage(settlementLabel);
    pick(settlementLabel);
    auto* page = new QWidget;
    addKind(QStringLiteral("别的"), page);
    pick(QStringLiteral("别的"));
    EXPECT_EQ(pageStack()->currentWidget(), page);
    EXPECT_EQ(boldEntries(), QStringList{QStringLiteral("别的")});
    EXPECT_EQ(programType(), 8);
}

TEST_F(Ribbon, WithoutASenderNothingHappens) {
    open();
    ASSERT_TRUE(call("slotRibbonTriggered"));
    EXPECT_EQ(journalLines(), Lines{});
    EXPECT_EQ(checkedEntries(), QStringList{budgetLabel});
}

TEST_F(Ribbon, AnExceptionDuringASwitchIsReportedOnceAndASecondTrySucceeds) {
    const struct {
        const char* call;
        QString label;
        const char* function;
    } rows[] = {
        {"CpfMain::IsProdAreaYN", budgetLabel, "NewProCfgDialog::slotRibbonTriggered"},
        {"TranMiUtilAction::JudageValue", budgetLabel, "NewProCfgDialog::slotRibbonTriggered"},
        {"TranMiUtilAction::JudageValue", contractingLabel, "NewProCfgDialog::slotRibbonTriggered"},
        {"ProjectSettingHelper::GetProTaxTemplateInfoList", budgetLabel,
         "NewProCfgDialog::GetModelCfgAndInitData"},
        {"ProjectSettingHelper::GetProTaxTemplateInfoList", contractingLabel,
         "NewProCfgDialog::GetModelCfgAndInitData"},
        {"SharedInterface::GetAppPath", budgetLabel, "NewProCfgDialog::addMoBanWidget"},
        {"SharedInterface::GetAppPath", contractingLabel, "NewProCfgDialog::LoadTemplateProInfo"},
    };
    for (const auto& row : rows) {
        for (const auto& thrown : testing_support::thrownKinds()) {
            SCOPED_TRACE(std::string(row.call) + " throws " + thrown.name);
            open();
            addKindOnMainPage(contractingLabel);
            clearJournal();
            throwAt(row.call, thrown.as);
            pick(row.label);
            EXPECT_EQ(journalLines({"exception"}),
                      Lines{std::string("exception ") + row.function + ": " + thrown.reported});
            throwNoMore();
            clearJournal();
            pick(row.label);
            EXPECT_EQ(countOf("exception"), 0);
            EXPECT_EQ(list("lswGeneralTax")->count(), 1);
            EXPECT_EQ(tree()->topLevelItemCount(), 1);
            EXPECT_EQ(checkedEntries(), QStringList{row.label});
            EXPECT_EQ(boldEntries(), QStringList{row.label});
        }
    }
}

}  // namespace
