#include "tests/dialog/DialogFixture.h"

namespace {

using namespace dialog_tests;
using workbench::FirstPage;

class RibbonImports : public DialogTest {};

TEST_F(RibbonImports, AnImportLeavesTheCurrentKindCheckedAndShown) {
    open();
    for (const QString& label : {estimateLabel, settlementLabel, wholeLabel, contractingLabel}) {
        addKindOnMainPage(label);
    }
    host.switches().firstPage = FirstPage::Absent;
    for (const QString& kind :
         {estimateLabel, settlementLabel, wholeLabel, contractingLabel, auditLabel, budgetLabel}) {
        for (const QString& import : {excelLabel, tenderLabel}) {
            SCOPED_TRACE(kind.toStdString() + import.toStdString());
            dialog->show();
            pick(kind);
            QWidget* page = pageStack()->currentWidget();
            clearJournal();
            pick(import);
            EXPECT_EQ(journalNames({"dialog", "call"}),
                      (Lines{"NewProCfgDialog", "osgi::ObjectHelper::GetService"}));
            EXPECT_EQ(checkedEntries(), QStringList{kind});
            EXPECT_EQ(boldEntries(), QStringList{kind});
            EXPECT_EQ(pageStack()->currentWidget(), page);
        }
    }
}

TEST_F(RibbonImports, AnImportWithoutEntryOfTheCurrentKindLeavesChecksAndPageAsTheyAre) {
    open();
    host.switches().firstPage = FirstPage::Absent;
    QAction estimate;  // chosen without an entry of the ribbon
    estimate.setProperty("name", estimateLabel);
    QObject::connect(&estimate, SIGNAL(triggered()), dialog.get(), SLOT(slotRibbonTriggered()));
    estimate.trigger();
    for (const QString& import : {excelLabel, tenderLabel}) {
        dialog->show();
        const QStringList bold = boldEntries();
        QWidget* page = pageStack()->currentWidget();
        clearJournal();
        pick(import);
        EXPECT_EQ(countOf("dialog"), 1) << "the import runs all the same";
        EXPECT_EQ(checkedEntries(), QStringList{import}) << "as the bar left it";
        EXPECT_EQ(boldEntries(), bold);
        EXPECT_EQ(pageStack()->currentWidget(), page);
    }
}

TEST_F(RibbonImports, AnEntryThatIsGoneIsNotTheCurrentKindsAnyMore) {
    open();
    addKindOnMainPage(estimateLabel);
    pick(estimateLabel);
    for (QWidgetAction* entry : entries())
        if (entry->text() == estimateLabel) delete entry;
    host.switches().firstPage = FirstPage::Absent;
    clearJournal();
    pick(excelLabel);
    EXPECT_EQ(countOf("dialog"), 1) << "the import runs all the same";
    EXPECT_EQ(checkedEntries(), QStringList{excelLabel}) << "as the bar left it";
    EXPECT_EQ(countOf("exception"), 0);
}

TEST_F(RibbonImports, TheRowsOwnButtonStartsTheTenderImportToo) {
    open();
    host.switches().firstPage = FirstPage::Absent;
    clearJournal();
    button("importTenderButton")->click();
    EXPECT_EQ(journalNames({"dialog", "call"}),
              (Lines{"NewProCfgDialog", "osgi::ObjectHelper::GetService"}));
}

TEST_F(RibbonImports, AHostMayDeleteTheDialogInTheReceiverOfAnImport) {
    open();
    host.switches().firstPage = FirstPage::Absent;
    const QPointer<NewProCfgDialog> alive = dialog.get();
    QObject::connect(dialog.get(), &QDialog::accepted, [this] { dialog.reset(); });
    QAction import;
    import.setProperty("name", excelLabel);
    QObject::connect(&import, SIGNAL(triggered()), dialog.get(), SLOT(slotRibbonTriggered()));
    import.trigger();
    EXPECT_FALSE(alive);
    EXPECT_EQ(countOf("exception"), 0);
}

}  // namespace
