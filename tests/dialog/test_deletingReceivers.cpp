/// A host may delete the dialog in whatever the dialog calls it by.
#include "tests/dialog/DialogFixture.h"

namespace {

using namespace dialog_tests;

class DeletingReceiver : public DialogTest {
  protected:
    void SetUp() override {
        host.addTemplate(QStringLiteral("kvys"), QStringLiteral("甲.MODX"));
        open();
        alive = dialog.get();
    }
    /// Of the signals of a closing dialog `finished` is the last; Qt itself goes on after the
    /// others.
    template <typename Signal>
    void deleteOn(Signal signal) {
        QObject::connect(dialog.get(), signal, [this] { dialog.reset(); });
    }
    void expectGone() {
        EXPECT_FALSE(alive);
        settle();
        EXPECT_EQ(countOf("exception"), 0);
        EXPECT_EQ(countOf("InterfaceAdaptation::closeMaxDialogMode"), 1);
    }
    QTreeWidgetItem* showTree() {
        click(button("templateButton"));
        settle();
        return tree()->topLevelItem(0);
    }
    void doubleClickTree(const QPoint& place) {
        QWidget* viewport = tree()->viewport();
        QTest::mouseClick(viewport, Qt::LeftButton, Qt::NoModifier, place);
        doubleClick(viewport, place);
    }
    QWidget* showCard() {
        QListWidget* cards = list("lswTemplateEng");
        cards->setParent(find<QWidget>("auditPage"));
        cards->resize(600, 100);
        cards->show();
        pick(auditLabel);
        return card("lswTemplateEng", 0);
    }
    QPointer<NewProCfgDialog> alive;
};

TEST_F(DeletingReceiver, OfADoubleClickInTheTemplateTree) {
    const QPoint place = tree()->visualItemRect(showTree()).center();
    deleteOn(&NewProCfgDialog::SignalCreateMB);
    doubleClickTree(place);
    expectGone();
}

TEST_F(DeletingReceiver, OfTheAcceptanceByADoubleClickInTheTemplateTree) {
    const QPoint place = tree()->visualItemRect(showTree()).center();
    deleteOn(&QDialog::finished);
    doubleClickTree(place);
    expectGone();
    EXPECT_EQ(countOf("signal"), 0);
}

TEST_F(DeletingReceiver, OfANewButtonInTheTemplateTree) {
    auto* create = tree()->itemWidget(showTree(), 0)->findChild<zBaseButton*>();
    deleteOn(&NewProCfgDialog::SignalCreateMB);
    click(create);
    expectGone();
}

TEST_F(DeletingReceiver, OfATemplateCardsNewButton) {
    auto* create = child<zBaseButton>(showCard(), "btnNewProject");
    deleteOn(&NewProCfgDialog::SignalCreateMB);
    click(create);
    expectGone();
}

TEST_F(DeletingReceiver, OfATemplateCardsDoubleClick) {
    QWidget* shown = showCard();
    deleteOn(&NewProCfgDialog::SignalCreateMB);
    doubleClick(shown);
    expectGone();
}

TEST_F(DeletingReceiver, OfTheAcceptanceByAnImportPickedWithTheMouse) {
    for (const QString& import : {excelLabel, tenderLabel}) {
        SCOPED_TRACE(import.toStdString());
        open();
        alive = dialog.get();
        host.switches().firstPage = workbench::FirstPage::Absent;
        deleteOn(&QDialog::finished);
        click(entryButton(import));
        expectGone();
    }
}

TEST_F(DeletingReceiver, OfAKindsEntryPickedWithTheMouse) {
    // A host's own slot behind the dialog's dispatcher.
    QObject::connect(entry(auditLabel), &QAction::triggered, [this] { dialog.reset(); });
    click(entryButton(auditLabel));
    expectGone();
}

TEST_F(DeletingReceiver, OfAnEntryThatItsHostTakesOut) {
    QAction* added = addKindOnMainPage(contractingLabel);
    delete qobject_cast<QWidgetAction*>(added)->defaultWidget();
    delete added;
    pick(auditLabel);
    pick(budgetLabel);
    dialog->setKJMRWZ(contractingLabel, true);
    dialog->setGcButtonVisible(contractingLabel, false);
    EXPECT_EQ(boldEntries(), QStringList{budgetLabel});
    EXPECT_EQ(countOf("exception"), 0);
    addKindOnMainPage(contractingLabel);
    pick(contractingLabel);
    EXPECT_EQ(boldEntries(), QStringList{contractingLabel});
}

TEST_F(DeletingReceiver, OfAnImportsEntryWhileTheKindsOneGetsItsMarkBack) {
    for (const QString& import : {excelLabel, tenderLabel}) {
        SCOPED_TRACE(import.toStdString());
        open();
        host.switches().firstPage = workbench::FirstPage::Absent;
        const QPointer<QAction> taken(entry(import));
        QObject::connect(entryButton(budgetLabel), &QAbstractButton::toggled, [taken](bool on) {
            if (on) delete taken;
        });
        click(entryButton(import));
        settle();
        EXPECT_FALSE(taken);
        EXPECT_EQ(countOf("osgi::ObjectHelper::GetService"), 1) << "the import begins";
        EXPECT_EQ(countOf("exception"), 0);
    }
}

/// Deletes a page as soon as the ribbon has begun with its entry.
struct PageRemover : QObject {
    explicit PageRemover(QWidget* page) : page(page) {}
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::ChildAdded) delete page;
        return false;
    }
    QPointer<QWidget> page;
};

TEST_F(DeletingReceiver, OfThePageWhoseEntryIsAdded) {
    auto* page = new QWidget;
    PageRemover remover(page);
    find<QWidget>("ribbon")->installEventFilter(&remover);
    QAction* added = dialog->addXjPage({QString(), estimateLabel, 0}, page);
    ASSERT_FALSE(remover.page);
    ASSERT_TRUE(added);
    QWidget* shown = pageStack()->currentWidget();
    pick(estimateLabel);
    EXPECT_EQ(pageStack()->currentWidget(), shown);
    EXPECT_EQ(boldEntries(), QStringList{estimateLabel});
    EXPECT_EQ(countOf("exception"), 0);
}

}  // namespace
