/// The dialog's private operations, as a host reaches them: by name.
#include "tests/dialog/DialogFixture.h"

namespace {

using namespace dialog_tests;
using testing_support::entriesOf;

class MetaObject : public DialogTest {
  protected:
    void SetUp() override {
        host.switches().fileDialogPrepared = true;
        file = host.write(QStringLiteral("甲.GCFX"));
        // Of a file that is gone the host knows the suffix all the same.
        local = host.path(QStringLiteral("丙.GCFX"));
        history = QStringList{QStringLiteral("bd##") + local, QStringLiteral("yp##") + cloud};
    }
    zBaseCombox* combo(const char* page) {
        return child<zBaseCombox>(find<QWidget>(page), "fileCombo");
    }
    static QStringList texts(const QComboBox* combo) {
        QStringList all;
        for (int i = 0; i < combo->count(); ++i) all << combo->itemText(i);
        return all;
    }
    QString file;
    QString local;
    const QString cloud = QStringLiteral("企业云盘/乙.GCFX");
    QStringList history;
};

TEST_F(MetaObject, ReachesEveryPrivateOperation) {
    const QMetaObject& meta = NewProCfgDialog::staticMetaObject;
    for (const char* name : {"CreateUI()",
                             "InitWidgetDisplay()",
                             "initConnect()",
                             "GetProgramType(int&)",
                             "GetModelCfgAndInitData()",
                             "ClearProTaxModelListWidget()",
                             "LoadTemplateProInfo()",
                             "flushListWidget()",
                             "initGsMbData()",
                             "initXjXlData()",
                             "initLsjl(bool,bool,bool,bool)",
                             "initJsLsjlList()",
                             "initShLsjlList()",
                             "initZcbLsjlList()",
                             "addMoBanWidget()",
                             "addShXjWid()",
                             "addZcbXjWid()",
                             "addOneRowItem(QString,QTreeWidgetItem*,bool,QString)",
                             "setTreeStyleSheet()",
                             "getDkType(QString)",
                             "getDirAndFiles(QString,QTreeWidgetItem*)",
                             "loadYunPanPath(QString&,QString,bool)",
                             "slotRibbonTriggered()",
                             "slotCalculationTaxClicked(int)",
                             "slotCalculationTaxAnimationFinished(int)",
                             "slotNewPro(ProjectSettingSpace::TaxTemplateInfo)",
                             "slotCreatePro(QMap<QString,QVariant>,int)",
                             "slotImportExcelNewPro()",
                             "slotImportCJZPro()",
                             "xjgsButtonSlot()",
                             "xjjsButtonSlot()",
                             "xjshButtonSlot()",
                             "xjZcbButtonSlot()",
                             "slotScanXjgs()",
                             "slotScanXjjs()",
                             "slotScanXjsh()",
                             "slotScanXjsh_YN()",
                             "slotScanXjZcb()"}) {
        EXPECT_GE(meta.indexOfMethod(name), 0) << name;
    }
}

TEST_F(MetaObject, EveryBrowseAsksForTheSuffixesOfItsKind) {
    const struct {
        const char* slot;
        int suffixes;
    } rows[] = {{"slotScanXjgs", 2},
                {"slotScanXjjs", 8},
                {"slotScanXjsh", 1},
                {"slotScanXjsh_YN", 1},
                {"slotScanXjZcb", 16}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.slot);
        open();
        ASSERT_TRUE(call(row.slot));
        const QVector<QJsonObject> asked = entriesOf("SharedInterface::GetSuffix");
        ASSERT_EQ(asked.size(), 1);
        EXPECT_EQ(asked.first().value(QLatin1String("args")).toArray().at(0).toInt(), row.suffixes);
        EXPECT_EQ(countOf("zFileDialog::getOpenFileName"), 1);
        EXPECT_EQ(reports(), Lines{});
    }
}

TEST_F(MetaObject, TheBrowsesWithoutAPageOfTheirOwnLeaveTheOtherPagesAlone) {
    const struct {
        const char* slot;
        const char* page;  ///< Whose combo box takes the file; null for none.
    } rows[] = {{"slotScanXjgs", nullptr},
                {"slotScanXjjs", nullptr},
                {"slotScanXjsh_YN", "auditPage"},
                {"slotScanXjZcb", "contractingPage"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.slot);
        open();
        workbench::FileAnswer answer;
        answer.path = file;
        host.switches().fileAnswers = {answer};
        ASSERT_TRUE(call(row.slot));
        for (const char* page : {"auditPage", "contractingPage"}) {
            const bool own = row.page && std::string(row.page) == page;
            EXPECT_EQ(combo(page)->currentText(), own ? file : QString()) << page;
        }
    }
}

TEST_F(MetaObject, TheKindOfAFileIsToldByItsSuffix) {
    open();
    int kind = -1;
    ASSERT_TRUE(QMetaObject::invokeMethod(dialog.get(), "getDkType", Qt::DirectConnection,
                                          Q_RETURN_ARG(int, kind),
                                          Q_ARG(QString, QStringLiteral(" sgcfz "))));
    EXPECT_EQ(kind, 17);
}

TEST_F(MetaObject, TheHistoryReachesBothCombosAndKeepsTheirText) {
    open();
    combo("auditPage")->setCurrentText(QStringLiteral("typed"));
    dialog->SetLsjl(history + history + QStringList{QStringLiteral("BD##/x.GCFX")});
    for (const char* page : {"auditPage", "contractingPage"}) {
        EXPECT_EQ(texts(combo(page)), (QStringList{local, cloud, cloud})) << page;
    }
    EXPECT_EQ(combo("auditPage")->currentText(), QStringLiteral("typed"));
    EXPECT_EQ(combo("contractingPage")->currentText(), QString());
    EXPECT_EQ(countOf("SharedInterface::GetFileInfo"), 2);
    // No page of this dialog has the estimate templates that are filled before the history.
    EXPECT_EQ(flowLines(),
              (Lines(2, "call SharedInterface::GetFileInfo(\"" + local.toStdString() + "\")")));
}

TEST_F(MetaObject, EveryHistoryRefillFillsItsOwnComboAlone) {
    const struct {
        const char* refill;
        bool audit, contracting;
    } rows[] = {{"initShLsjlList", true, false},
                {"initZcbLsjlList", false, true},
                {"initJsLsjlList", false, false},
                {"initXjXlData", true, true}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.refill);
        open();
        dialog->SetLsjl(history);
        combo("auditPage")->clear();
        combo("contractingPage")->clear();
        ASSERT_TRUE(call(row.refill));
        const QStringList all{local, cloud};
        EXPECT_EQ(texts(combo("auditPage")), row.audit ? all : QStringList());
        EXPECT_EQ(texts(combo("contractingPage")), row.contracting ? all : QStringList());
        EXPECT_EQ(reports(), Lines{});
    }
}

TEST_F(MetaObject, TheStepsOfTheConstructionDoTheirWorkOnce) {
    open();
    const int widgets = dialog->findChildren<QWidget*>().size();
    for (const char* step : {"CreateUI", "InitWidgetDisplay", "initConnect"}) {
        ASSERT_TRUE(call(step));
    }
    EXPECT_EQ(dialog->findChildren<QWidget*>().size(), widgets);
    EXPECT_EQ(entries().size(), 4);
    EXPECT_EQ(journalLines(), Lines{});
    click(button("simpleTaxButton"));
    ASSERT_TRUE(call("InitWidgetDisplay"));
    EXPECT_EQ(taxStack()->currentIndex(), 1) << "a second call does not turn the pages back";
    pick(auditLabel);
    clearJournal();
    click(child<zBaseButton>(find<QWidget>("auditPage"), "browseButton"));
    EXPECT_EQ(countOf("zFileDialog::getOpenFileName"), 1);
    click(child<zBaseButton>(find<QWidget>("auditPage"), "newButton"));
    EXPECT_EQ(countOf("box"), 1);
}

TEST_F(MetaObject, APluginManagerThatComesLaterIsTakenByInitJcTxOnly) {
    host.switches().pluginManagerPresent = false;
    open();
    host.switches().pluginManagerPresent = true;
    ASSERT_TRUE(callCreatePro({}, 16));
    EXPECT_EQ(countOf("AppPluginManager::isLoaded"), 0);
    dialog->InitJcTx();
    clearJournal();
    ASSERT_TRUE(callCreatePro({}, 16));
    EXPECT_EQ(journalLines({"AppPluginManager::isLoaded"}),
              Lines{"call AppPluginManager::isLoaded(16)"});
}

}  // namespace
