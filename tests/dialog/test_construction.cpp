#include <QAbstractItemView>
#include <QLayout>

#include "tests/dialog/DialogFixture.h"

namespace {

using namespace dialog_tests;

class Construction : public DialogTest {};

TEST_F(Construction, AsksTheHostInThisOrder) {
    make();
    EXPECT_EQ(journalLinesWithout({"ProjectSettingHelper::GetProjectSettingHelper",
                                   "SharedInterface::getInstance", "CpfMain::GetInstance"}),
              (Lines{
                  "call CpfMain::IsProdAreaYN()",
                  "call SharedInterface::GetAppPath()",  // template tree
                  "call CpfMain::GetOpenVersion(1.3)",
                  R"(call ProjectSettingHelper::GetProTaxTemplateInfoList("Kvys", "Kvys"))",
                  R"(call ProjectSettingHelper::GetPricingModelInfoMap("Kvys", ""))",
                  R"(call ProjectSettingHelper::GetPricingModelInfoMap("Kvys", ""))",
                  R"(call ProjectSettingHelper::GetPricingModelInfoMap("Kvys", ""))",
                  R"(call ProjectSettingHelper::GetPricingModelInfoMap("Kvys", ""))",
                  "call SharedInterface::GetAppPath()",  // template cards
                  "call AppPluginManager::instance()",
                  "call InterfaceAdaptation::openMaxDialogMode(860, 735)",
              }));
}

TEST_F(Construction, GivesTitleSizeAndModality) {
    for (double scale : {1.0, 1.5, 2.0}) {
        workbench::Host::instance().setScale(scale);
        make();
        const QSize size(qRound(880 * scale), qRound(750 * scale));
        EXPECT_EQ(dialog->windowTitle(), QStringLiteral("新建工程"));
        EXPECT_EQ(dialog->minimumSize(), size);
        EXPECT_EQ(dialog->maximumSize(), size);
        EXPECT_TRUE(dialog->isModal());
    }
}

TEST_F(Construction, LeavesTheTenderButtonHiddenWhateverIsAsked) {
    for (bool show : {true, false}) {
        for (double version : {1.0, 1.3, 2.0}) {
            host.switches().openVersion = version;
            make(show)->show();
            EXPECT_TRUE(button("importTenderButton")->isHidden()) << show << version;
            EXPECT_EQ(countOf("CpfMain::GetOpenVersion"), show ? 1 : 0);
        }
    }
}

TEST_F(Construction, NamesTheTenderButtonAfterTheArea) {
    make();
    EXPECT_EQ(button("importTenderButton")->text(), QStringLiteral("导入CJZ新建"));
    EXPECT_EQ(button("importTenderButton")->minimumWidth(), 120);
    EXPECT_EQ(button("importTenderButton")->maximumWidth(), 120);
    EXPECT_EQ(button("importTenderButton")->iconSize(), QSize(14, 14));
    host.switches().prodAreaYN = true;
    make();
    EXPECT_EQ(button("importTenderButton")->text(), QStringLiteral("导入YFJZ新建"));
}

TEST_F(Construction, ShowsTheTaxModesThatHaveModels) {
    make();
    EXPECT_EQ(shownTaxButtons(),
              (Lines{"generalTaxButton", "simpleTaxButton", "businessTaxButton"}));
    host.setModels(kvys, 2, {});
    make();
    EXPECT_EQ(shownTaxButtons(), (Lines{"generalTaxButton", "simpleTaxButton"}));
    host.setModels(kvys, 1, {});
    host.setModels(kvys, 0, {});
    make();
    EXPECT_EQ(shownTaxButtons(), Lines{"generalTaxButton"});
    host.clearModels();
    make();
    EXPECT_EQ(shownTaxButtons(), Lines{"generalTaxButton"});
    host.switches().configurationPresent = false;
    make();
    EXPECT_EQ(shownTaxButtons(), Lines{"generalTaxButton"});
    EXPECT_EQ(countOf("exception"), 0);
}

TEST_F(Construction, ChecksTheGeneralTaxButtonAlone) {
    open();
    EXPECT_EQ(checkedTaxButtons(), Lines{"generalTaxButton"});
    EXPECT_EQ(taxStack()->currentIndex(), 0);
    EXPECT_TRUE(list("lswGeneralTax")->isVisible());
    EXPECT_FALSE(list("lswSimpleTax")->isVisible());
}

TEST_F(Construction, ShowsTheTemplateButtonAsSoonAsThereIsATemplate) {
    make();
    EXPECT_TRUE(button("templateButton")->isHidden());
    host.write(QStringLiteral("MBSC/kvys/folder/readme.txt"));
    make();
    EXPECT_TRUE(button("templateButton")->isHidden()) << "a folder is no template";
    host.addTemplate(QStringLiteral("kvys"), QStringLiteral("folder/deep.MODX"));
    make();
    EXPECT_FALSE(button("templateButton")->isHidden()) << "a row of the tree is one";
    for (bool yunnan : {false, true}) {
        host.switches().prodAreaYN = yunnan;
        make();
        EXPECT_FALSE(button("templateButton")->isHidden()) << yunnan;
    }
}

TEST_F(Construction, ShowsTheTemplateButtonForACardWithoutARow) {
    // Hidden files are listed as cards, but not in the tree.
    host.addTemplate(QStringLiteral("kvys"), QStringLiteral(".hidden.MODX"));
    make();
    EXPECT_EQ(list("lswTemplateEng")->count(), 1);
    EXPECT_EQ(tree()->topLevelItemCount(), 0);
    EXPECT_FALSE(button("templateButton")->isHidden());
}

TEST_F(Construction, PutsTheFivePagesIntoTheStack) {
    make();
    ASSERT_EQ(taxStack()->count(), 5);
    const char* const names[] = {"lswGeneralTax", "lswSimpleTax", "lswBusinessTax", "templateTree",
                                 "contractingPage"};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(taxStack()->widget(i)->objectName(), QLatin1String(names[i]));
    }
}

TEST_F(Construction, KeepsTheTemplateListHiddenOutsideTheStackAndFillsIt) {
    host.addTemplate(QStringLiteral("kvys"), QStringLiteral("t.MODX"));
    open();
    QListWidget* templates = list("lswTemplateEng");
    EXPECT_TRUE(templates->isHidden());
    EXPECT_LT(taxStack()->indexOf(templates), 0);
    EXPECT_TRUE(find<QWidget>("pMiddlePanelV")->isAncestorOf(templates));
    EXPECT_EQ(templates->count(), 1);
}

TEST_F(Construction, BuildsTheRibbonEntriesInTheirOrder) {
    make();
    QStringList labels;
    for (QWidgetAction* action : entries()) {
        labels << action->property("name").toString();
        EXPECT_EQ(action->defaultWidget()->property("name"), action->property("name"));
    }
    EXPECT_EQ(labels, (QStringList{budgetLabel, auditLabel, excelLabel, tenderLabel}));
    for (const char* asked : {"style", "alignment", "exclusive"})
        EXPECT_EQ(find<QWidget>("ribbon")->property(asked).toInt(), 1) << asked;
    EXPECT_TRUE(entryButton(budgetLabel)->icon().isNull());
    EXPECT_EQ(checkedEntries(), QStringList{budgetLabel});
    EXPECT_EQ(boldEntries(), QStringList{budgetLabel});
}

TEST_F(Construction, ShowsTheMainPage) {
    make();
    EXPECT_EQ(pageStack()->currentWidget()->objectName(), QStringLiteral("pMiddlePanelV"));
    EXPECT_EQ(pageStack()->count(), 2) << "the main page serves three entries and is in once";
    EXPECT_TRUE(pageStack()->indexOf(find<QWidget>("auditPage")) >= 0);
}

TEST_F(Construction, LaysOutHeaderRowAndStylesAsDesigned) {
    open();
    EXPECT_EQ(find<QWidget>("ribbon")->parentWidget()->height(), 60);
    EXPECT_EQ(find<QWidget>("ribbon")->contentsMargins(), QMargins(6, 0, 4, 10));
    EXPECT_EQ(find<QWidget>("pMiddlePanelV")->layout()->contentsMargins(),
              QMargins(16, 16, 16, 10));
    EXPECT_EQ(button("generalTaxButton")->parentWidget()->height(), 30);
    EXPECT_EQ(pageStack()->styleSheet(),
              QStringLiteral("#m_StackedWidget{background: transparent;}"));
    EXPECT_EQ(taxStack()->styleSheet(),
              QStringLiteral("/* QListWidget */QListWidget{background:transparent;}"
                             "QListWidget::item{background:transparent;}"));
    EXPECT_EQ(list("lswGeneralTax")->styleSheet(),
              QStringLiteral(".QWidget{\nbackground-color: transparent;}"));
    for (const char* name : {"lswSimpleTax", "lswBusinessTax", "lswTemplateEng"}) {
        EXPECT_EQ(list(name)->styleSheet(),
                  QStringLiteral(".QWidget{\n    background-color: transparent;\n}"));
    }
}

TEST_F(Construction, LabelsTheTaxRow) {
    make();
    const char* const texts[] = {"一般计税", "简易计税", "营业税", "模板工程", "预算工程"};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(button(taxButtons[i])->text(), QString::fromUtf8(texts[i]));
        EXPECT_TRUE(button(taxButtons[i])->isCheckable());
    }
    EXPECT_EQ(button("budgetButton")->cursor().shape(), Qt::PointingHandCursor);
}

TEST_F(Construction, SetsTheTreeUp) {
    make();
    EXPECT_EQ(tree()->columnCount(), 2);
    EXPECT_TRUE(tree()->isHeaderHidden());
    EXPECT_EQ(tree()->selectionMode(), QAbstractItemView::SingleSelection);
    EXPECT_EQ(tree()->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    EXPECT_EQ(tree()->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
}

TEST_F(Construction, ResizesTheTreesColumnsWithIt) {
    host.addTemplate(QStringLiteral("kvys"), QStringLiteral("t.MODX"));
    open();
    click(button("templateButton"));
    settle();
    const int shown = tree()->width();
    for (int width : {shown, 400, 611}) {
        tree()->resize(width, 200);
        EXPECT_EQ(tree()->columnWidth(0), width - 70);
        EXPECT_EQ(tree()->columnWidth(1), 70);
    }
}

TEST_F(Construction, FiltersKeysFromRibbonButtonsAndNothingElse) {
    open();
    zBaseButton* audit = entryButton(auditLabel);
    for (QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease, QEvent::ShortcutOverride}) {
        QKeyEvent key(type, Qt::Key_Space, Qt::NoModifier);
        key.ignore();
        EXPECT_TRUE(dialog->eventFilter(audit, &key)) << type;
        EXPECT_TRUE(key.isAccepted()) << type;
        QKeyEvent other(type, Qt::Key_Space, Qt::NoModifier);
        EXPECT_FALSE(dialog->eventFilter(button("generalTaxButton"), &other)) << type;
    }
    QEvent hover(QEvent::Enter);
    EXPECT_FALSE(dialog->eventFilter(audit, &hover));
}

TEST_F(Construction, KeysOnARibbonButtonDoNothing) {
    open();
    for (Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
        QTest::keyClick(entryButton(auditLabel), key);
        EXPECT_EQ(checkedEntries(), QStringList{budgetLabel});
        EXPECT_TRUE(dialog->isVisible());
    }
    EXPECT_EQ(journalLines(), Lines{});
}

TEST_F(Construction, EnablesShowsAndChecksEntriesByName) {
    open();
    dialog->setGcButtonEnable(auditLabel, false);
    EXPECT_FALSE(entryButton(auditLabel)->isEnabled());
    EXPECT_TRUE(entryButton(budgetLabel)->isEnabled());
    dialog->setGcButtonEnable(auditLabel, true);
    EXPECT_TRUE(entryButton(auditLabel)->isEnabled());
    dialog->setGcButtonVisible(excelLabel, false);
    EXPECT_FALSE(entryButton(excelLabel)->isVisible());
    dialog->setGcButtonVisible(excelLabel, true);
    EXPECT_TRUE(entryButton(excelLabel)->isVisible());
    dialog->setKJMRWZ(tenderLabel, true);
    EXPECT_TRUE(entryButton(tenderLabel)->isChecked());
    dialog->setKJMRWZ(tenderLabel, false);
    EXPECT_FALSE(entryButton(tenderLabel)->isChecked());
}

TEST_F(Construction, ANameThatNoEntryCarriesChangesNothing) {
    open();
    for (const QString& name : {QStringLiteral("没有"), QString(), QStringLiteral("预算")}) {
        dialog->setGcButtonEnable(name, false);
        dialog->setGcButtonVisible(name, false);
        dialog->setKJMRWZ(name, true);
    }
    for (QWidgetAction* action : entries()) {
        EXPECT_TRUE(action->defaultWidget()->isEnabled());
        EXPECT_TRUE(action->defaultWidget()->isVisible());
    }
    EXPECT_EQ(checkedEntries(), QStringList{budgetLabel});
}

TEST_F(Construction, EntriesOfTheSameNameAreSetTogether) {
    open();
    QAction* twin = addKindOnMainPage(auditLabel);
    dialog->setGcButtonEnable(auditLabel, false);
    EXPECT_FALSE(entry(auditLabel)->defaultWidget()->isEnabled());
    EXPECT_FALSE(qobject_cast<QWidgetAction*>(twin)->defaultWidget()->isEnabled());
}

TEST_F(Construction, AnAddedPageIsInTheStackOnce) {
    open();
    auto* page = new QWidget;
    const int before = pageStack()->count();
    ASSERT_TRUE(addKind(QStringLiteral("甲"), page));
    ASSERT_TRUE(addKind(QStringLiteral("乙"), page));
    EXPECT_EQ(pageStack()->count(), before + 1);
    pick(QStringLiteral("乙"));
    EXPECT_EQ(pageStack()->currentWidget(), page);
    EXPECT_EQ(boldEntries(), QStringList{QStringLiteral("乙")});
}

TEST_F(Construction, TakesThePluginManagerAnewOnRequest) {
    open();
    dialog->InitJcTx();
    EXPECT_EQ(journalLines(), Lines{"call AppPluginManager::instance()"});
}

TEST_F(Construction, TheDestructorEndsTheMaximisedMode) {
    open();
    dialog.reset();
    EXPECT_EQ(journalLines(), (Lines{"call InterfaceAdaptation::closeMaxDialogMode()",
                                     "dialog NewProCfgDialog done 0"}));
}

TEST_F(Construction, TheSignalsStandInTheirOrder) {
    const QMetaObject& meta = NewProCfgDialog::staticMetaObject;
    int last = -1;
    for (const char* name :
         {"SignalCreateCJZInt(int,int)", "SignalCreateCJZString(int,QString)",
          "SignalCreateMB(int,int,QString)", "SignalCreatePro(int,int,QVariant)"}) {
        const int index = meta.indexOfSignal(name);
        EXPECT_GT(index, last) << name;
        last = index;
    }
}

}  // namespace
