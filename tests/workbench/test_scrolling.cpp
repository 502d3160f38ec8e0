/// The workbench's own lists scroll by pixels.
#include <QAbstractItemView>
#include <QComboBox>
#include <QScrollBar>
#include <QTreeView>

#include "tests/support/Wheel.h"
#include "tests/workbench/FileDialogHand.h"
#include "tests/workbench/MainWindowFixture.h"

namespace testing_support {

namespace {

constexpr int many = 60;

/// Turns a part of a notch, as fine wheels and touchpads do, over a list with more rows than it
/// shows.
void expectPixels(QAbstractItemView* list) {
    SCOPED_TRACE(list->metaObject()->className());
    const QModelIndex first = list->model()->index(0, 0);
    list->scrollToTop();
    ASSERT_GT(list->verticalScrollBar()->maximum(), 0);
    const int row = list->visualRect(first).height();
    for (const bool touchpad : {false, true}) {
        const int before = list->visualRect(first).top();
        touchpad ? stroke(list->viewport(), -16, -6) : turn(list->viewport(), -16);
        const int way = before - list->visualRect(first).top();
        EXPECT_GT(way, 0);
        EXPECT_LT(way, row) << "not by whole rows";
    }
    EXPECT_EQ(list->horizontalScrollMode(), QAbstractItemView::ScrollPerPixel);
}

TEST_F(MainWindowTest, ListsOfProjectsAndOfTheJournalScrollByPixels) {
    for (int i = 0; i < many; ++i) host.write(QStringLiteral("ProjectFiles/记事%1.txt").arg(i));
    for (int i = 0; i < many; ++i) workbench::Journal::instance().project(QString::number(i));
    key(window.get(), Qt::Key_F5);
    auto* journal = part<QTreeView>("journalView");
    EXPECT_TRUE(QTest::qWaitFor([&] { return journal->model()->rowCount() >= many; }));
    settle();
    expectPixels(list);
    expectPixels(journal);
}

TEST(ScrollingTest, TheListOfFilesScrollsByPixels) {
    TemporaryInstallation host;
    for (int i = 0; i < many; ++i) host.write(QStringLiteral("D/%1.txt").arg(i));
    const auto driver = whenModal<workbench::OpenDialog>([](workbench::OpenDialog* dialog) {
        settle();
        expectPixels(child<QTreeView>(dialog, "fileList"));
        dialog->close();
    });
    open(host.path(QStringLiteral("D")), 2, OpenFile,
         {QStringLiteral("甲"), QStringLiteral("txt")});
}

TEST(ScrollingTest, TheListOfAFieldScrollsByPixels) {
    TemporaryInstallation host;
    QComboBox field;
    for (int i = 0; i < many; ++i) field.addItem(QString::number(i));
    field.show();
    field.showPopup();
    settle();
    expectPixels(field.view());
    field.hidePopup();
}

}  // namespace

}  // namespace testing_support
