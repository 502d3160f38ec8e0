#include <QPainter>
#include <QStyledItemDelegate>

#include "tests/dialog/DialogFixture.h"

namespace {

using namespace dialog_tests;
using workbench::FirstPage;

class Templates : public DialogTest {
  protected:
    void SetUp() override {
        path = host.addTemplate(QStringLiteral("kvys"), QStringLiteral("甲.MODX"));
        deep = host.addTemplate(QStringLiteral("kvys"), QStringLiteral("夹/深.MODX"));
    }
    void showTree() {
        open();
        click(button("templateButton"));
        settle();
        clearJournal();
    }
    QTreeWidgetItem* fileItem() { return tree()->topLevelItem(0); }
    QTreeWidgetItem* folderItem() { return tree()->topLevelItem(1); }
    QWidget* row(QTreeWidgetItem* item) { return tree()->itemWidget(item, 0); }
    zBaseButton* newButton(QTreeWidgetItem* item) { return row(item)->findChild<zBaseButton*>(); }
    void doubleClickRow(QTreeWidgetItem* item, int column = 0) {
        const QRect area = tree()->visualItemRect(item);
        const int x = column == 0 ? area.left() + 60 : tree()->columnViewportPosition(1) + 10;
        const QPoint place(x, area.center().y());
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, Qt::NoModifier, place);
        doubleClick(tree()->viewport(), place);
    }
    /// @return what is painted before a row, where its folder is opened and closed.
    QImage branch(QTreeWidgetItem* item) {
        const QRect area = tree()->visualItemRect(item);
        return tree()->viewport()->grab({0, area.top(), area.left(), area.height()}).toImage();
    }
    std::string created(const QString& file) const {
        return "signal SignalCreateMB(4, 44, \"" + file.toStdString() + "\")";
    }
    QString path;
    QString deep;
    const std::string service = R"(call osgi::ObjectHelper::GetService("firstPagePlugin"))";
    const std::string asked = "call FirstPagePlugin::canStartNew(true)";
    const std::string accepted = "dialog NewProCfgDialog done 1";
};

TEST_F(Templates, TheTreeShowsFilesThenFoldersExpanded) {
    showTree();
    ASSERT_EQ(tree()->topLevelItemCount(), 2);
    EXPECT_EQ(row(fileItem())->findChild<QLabel*>()->text(), QStringLiteral("甲.MODX"));
    EXPECT_EQ(fileItem()->data(0, 257).toString(), path);
    EXPECT_EQ(row(folderItem())->findChild<QLabel*>()->text(), QStringLiteral("夹"));
    EXPECT_FALSE(folderItem()->data(0, 257).isValid());
    EXPECT_TRUE(folderItem()->isExpanded());
    ASSERT_EQ(folderItem()->childCount(), 1);
    EXPECT_EQ(folderItem()->child(0)->data(0, 257).toString(), deep);
    EXPECT_TRUE(fileItem()->text(0).isEmpty()) << "the row's label shows the text alone";
}

TEST_F(Templates, OnlyFileRowsHaveANewButton) {
    showTree();
    ASSERT_TRUE(newButton(fileItem()));
    EXPECT_EQ(newButton(fileItem())->text(), QStringLiteral("新建"));
    EXPECT_EQ(newButton(fileItem())->minimumWidth(), 70);
    EXPECT_EQ(newButton(fileItem())->maximumWidth(), 70);
    EXPECT_FALSE(newButton(folderItem()));
    const QWidget* label = row(fileItem())->findChild<QLabel*>();
    EXPECT_LT(label->geometry().right(), newButton(fileItem())->geometry().left());
}

TEST_F(Templates, FoldersShowWhetherTheyAreOpen) {
    host.addTemplate(QStringLiteral("kvys"), QStringLiteral("末/深.MODX"));
    showTree();
    ASSERT_EQ(tree()->topLevelItemCount(), 3);
    const auto expected = [](const char* name, const QImage& shown) {
        QImage image = shown.copy();
        image.fill(zBaseWidget(nullptr, 10).normalBackColor());
        QPainter painter(&image);
        QIcon(QLatin1String(":/Image/TongYong/ProTree/") + QLatin1String(name))
            .paint(&painter, image.rect());
        return image;
    };
    for (int row : {1, 2}) {
        SCOPED_TRACE(row);
        QTreeWidgetItem* folder = tree()->topLevelItem(row);
        EXPECT_EQ(branch(folder), expected("branch-open.png", branch(folder)));
        folder->setExpanded(false);
        settle();
        EXPECT_EQ(branch(folder), expected("branch-closed.png", branch(folder)));
    }
}

TEST_F(Templates, ADoubleClickOnAFileRowAsksThenAcceptsThenSignals) {
    showTree();
    doubleClickRow(fileItem());
    EXPECT_EQ(flowLines(), (Lines{service, asked, accepted, created(path)}));
    EXPECT_EQ(dialog->result(), int(QDialog::Accepted));
}

TEST_F(Templates, ADoubleClickOnTheTextOfARowDoesTheSame) {
    showTree();
    auto* text = row(fileItem())->findChild<QLabel*>();
    QTest::mouseClick(text, Qt::LeftButton);
    doubleClick(text);
    EXPECT_EQ(flowLines(), (Lines{service, asked, accepted, created(path)}));
}

TEST_F(Templates, TheNewButtonOfARowDoesTheSame) {
    showTree();
    click(newButton(folderItem()->child(0)));
    EXPECT_EQ(flowLines(), (Lines{service, asked, accepted, created(deep)}));
}

TEST_F(Templates, ADoubleClickOnAFolderOrTheSecondColumnCreatesNothing) {
    showTree();
    doubleClickRow(folderItem());
    tree()->expandAll();
    doubleClickRow(fileItem(), 1);
    EXPECT_EQ(flowLines(), Lines{});
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(Templates, AHostThatIsNotReadyKeepsTheTreesDialogOpen) {
    for (const auto& [state, lines] : {std::pair(FirstPage::Absent, Lines{service}),
                                       std::pair(FirstPage::Busy, Lines{service, asked})}) {
        host.switches().firstPage = state;
        showTree();
        doubleClickRow(fileItem());
        EXPECT_EQ(flowLines(), lines);
        clearJournal();
        click(newButton(fileItem()));
        EXPECT_EQ(flowLines(), lines);
        EXPECT_TRUE(dialog->isVisible());
    }
}

TEST_F(Templates, ACardAcceptsThenAsksThenSendsThenSignals) {
    open();
    clearJournal();
    const Lines expected{accepted, service, asked,
                         "call Communication::SendMsg(4, 44, \"" + path.toStdString() + "\")",
                         created(path)};
    QWidget* shown = card("lswTemplateEng", 0);
    child<zBaseButton>(shown, "btnNewProject")->click();
    EXPECT_EQ(flowLines(), expected);
    dialog->show();
    clearJournal();
    doubleClick(shown);
    EXPECT_EQ(flowLines(), expected);
    dialog->show();
    clearJournal();
    doubleClick(shown, Qt::RightButton);
    EXPECT_EQ(flowLines(), Lines{});
}

TEST_F(Templates, AHostThatIsNotReadyStillClosesTheCardsDialog) {
    for (const auto& [state, lines] :
         {std::pair(FirstPage::Absent, Lines{accepted, service}),
          std::pair(FirstPage::Busy, Lines{accepted, service, asked})}) {
        host.switches().firstPage = state;
        open();
        child<zBaseButton>(card("lswTemplateEng", 0), "btnNewProject")->click();
        EXPECT_EQ(flowLines(), lines);
    }
}

TEST_F(Templates, TheProgramTypeOfTheKindIsSent) {
    open();
    addKindOnMainPage(QStringLiteral("结算工程"));
    pick(QStringLiteral("结算工程"));
    clearJournal();
    child<zBaseButton>(card("lswTemplateEng", 0), "btnNewProject")->click();
    EXPECT_EQ(flowLines().back(), "signal SignalCreateMB(8, 44, \"" + path.toStdString() + "\")");
}

/// Counts how often rows are placed, which each layout of the tree does with all of them.
struct CountsPlaces : QStyledItemDelegate {
    mutable int placed = 0;
    void updateEditorGeometry(QWidget* row, const QStyleOptionViewItem& option,
                              const QModelIndex&) const override {
        ++placed;
        row->setGeometry(option.rect);
    }
};

TEST_F(Templates, ManyAreLaidOutTogetherWhenAnotherKindIsPicked) {
    constexpr int many = 200;
    for (int i = 0; i < many; ++i) {
        for (const char* kind : {"kvys", "kvzcb"})
            host.addTemplate(QLatin1String(kind), QStringLiteral("模板%1.MODX").arg(i));
    }
    CountsPlaces rows;
    open();
    addKindOnMainPage(contractingLabel);
    click(button("templateButton"));
    settle();
    tree()->setItemDelegate(&rows);
    for (const QString& kind : {contractingLabel, budgetLabel}) {
        rows.placed = 0;
        pick(kind);
        click(button("templateButton"));
        settle();
        ASSERT_GE(tree()->topLevelItemCount(), many);
        EXPECT_GE(rows.placed, many);
        EXPECT_LE(rows.placed, 10 * many) << "not once for each row that comes";
        QTreeWidgetItem* item = tree()->topLevelItem(many - 1);
        EXPECT_EQ(tree()->itemWidget(item, 0)->y(), tree()->visualItemRect(item).y());
    }
    dialog.reset();  // before what places its rows
}

TEST_F(Templates, AMissingFolderLeavesListAndTreeEmpty) {
    ASSERT_TRUE(QDir(host.path(QStringLiteral("MBSC"))).removeRecursively());
    open();
    EXPECT_EQ(list("lswTemplateEng")->count(), 0);
    EXPECT_EQ(tree()->topLevelItemCount(), 0);
    EXPECT_TRUE(button("templateButton")->isHidden());
    EXPECT_EQ(countOf("exception"), 0);
}

TEST_F(Templates, AMissingFolderOfTheNextKindEmptiesTheTree) {
    ASSERT_TRUE(QDir(host.path(QStringLiteral("MBSC/kvzcb"))).removeRecursively());
    open();
    addKindOnMainPage(contractingLabel);
    pick(contractingLabel);
    EXPECT_EQ(tree()->topLevelItemCount(), 0);
    EXPECT_EQ(list("lswTemplateEng")->count(), 0);
}

TEST_F(Templates, AFileThatVanishedStillSendsItsPath) {
    showTree();
    ASSERT_TRUE(QFile::remove(path));
    click(newButton(fileItem()));
    EXPECT_EQ(flowLines().back(), created(path));
}

TEST_F(Templates, ARowIsAddedThroughTheMetaObject) {
    open();
    const auto add = [this](const QString& text, QTreeWidgetItem* parent, bool isFile,
                            const QString& data) {
        QTreeWidgetItem* item = nullptr;
        EXPECT_TRUE(QMetaObject::invokeMethod(dialog.get(), "addOneRowItem", Qt::DirectConnection,
                                              Q_RETURN_ARG(QTreeWidgetItem*, item),
                                              Q_ARG(QString, text), Q_ARG(QTreeWidgetItem*, parent),
                                              Q_ARG(bool, isFile), Q_ARG(QString, data)));
        return item;
    };
    QTreeWidgetItem* folder = add(QStringLiteral("f"), nullptr, false, QStringLiteral("ignored"));
    ASSERT_TRUE(folder);
    EXPECT_EQ(tree()->indexOfTopLevelItem(folder), 2);
    EXPECT_FALSE(folder->data(0, 257).isValid());
    QTreeWidgetItem* file = add(QStringLiteral("x"), folder, true, QStringLiteral("/x.MODX"));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->parent(), folder);
    EXPECT_EQ(file->data(0, 257).toString(), QStringLiteral("/x.MODX"));
}

TEST_F(Templates, AnExceptionOfAReceiverIsReportedAndTheDialogStaysUsable) {
    showTree();
    const QMetaObject::Connection broken =
        QObject::connect(dialog.get(), &NewProCfgDialog::SignalCreateMB, [] { throw "boom"; });
    click(newButton(fileItem()));
    EXPECT_EQ(countOf("exception"), 1);
    dialog->show();
    doubleClickRow(fileItem());
    EXPECT_EQ(countOf("exception"), 2);
    QObject::disconnect(broken);
    dialog->show();
    clearJournal();
    click(newButton(fileItem()));
    EXPECT_EQ(flowLines(), (Lines{service, asked, accepted, created(path)}));
}

}  // namespace
