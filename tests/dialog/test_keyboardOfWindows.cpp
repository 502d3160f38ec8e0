/// What the keys do on the pages for files, and which of them every window keeps for itself.
#include <QLineEdit>

#include "dialog/xzGcLxDialog.h"
#include "import/TemplateProListItem.h"
#include "import/importExcelSelFile.h"
#include "tests/dialog/KeyboardFixture.h"

namespace {

using namespace dialog_tests;

TEST_F(Keyboard, EnterIsTakenByNoButtonThatOnlyHappensToBeThere) {
    openTree();
    button("generalTaxButton")->click();
    settle();
    xzGcLxDialog chooser(dialog.get());
    importExcelSelFile excel(dialog.get());
    for (QWidget* window : {static_cast<QWidget*>(dialog.get()), static_cast<QWidget*>(&chooser),
                            static_cast<QWidget*>(&excel)}) {
        const auto buttons = window->findChildren<QPushButton*>();
        EXPECT_GE(buttons.size(), 2) << window->metaObject()->className();
        for (const QPushButton* one : buttons) {
            EXPECT_FALSE(one->autoDefault() || one->isDefault())
                << window->metaObject()->className() << " " << one->objectName().toStdString();
        }
    }
    EXPECT_FALSE(dialog->findChildren<TemplateProListItem*>().isEmpty());
}

TEST_F(Keyboard, ReturnInAnEmptyFieldDoesWhatTheNewButtonDoes) {
    for (const bool audit : {true, false}) {
        open();
        if (!audit) addKindOnMainPage(contractingLabel);
        pick(audit ? auditLabel : contractingLabel);
        if (!audit) click(button("budgetButton"));
        auto* page = find<QWidget>(audit ? "auditPage" : "contractingPage");
        clearJournal();
        click(child<zBaseButton>(page, "newButton"));
        const Lines byButton = flowLines();
        EXPECT_FALSE(byButton.empty());
        clearJournal();
        child<QComboBox>(page, "fileCombo")->setFocus();
        hold(Qt::Key_Return, 3);
        EXPECT_EQ(flowLines(), byButton);
    }
}

TEST_F(Keyboard, ADialogThatStaysOpenAfterAllKeepsItsFocus) {
    RefusesToClose refusing;
    const QString file = host.write(QStringLiteral("甲.GCFX"));
    open();
    pick(auditLabel);
    auto* page = find<QWidget>("auditPage");
    page->findChild<QComboBox*>()->setCurrentText(file);
    auto* create = child<zBaseButton>(page, "newButton");
    create->setFocus();
    dialog->installEventFilter(&refusing);
    key(Qt::Key_Space);
    EXPECT_EQ(countOf("Communication::SendMsgToPlugin"), 1);
    ASSERT_TRUE(dialog->isVisible());
    EXPECT_EQ(focused(), create);
}

TEST_F(Keyboard, AFilePageTakesTheFocusIntoItsField) {
    open();
    pick(auditLabel);
    EXPECT_EQ(focused(), find<QWidget>("auditPage")->findChild<QComboBox*>());
    key(Qt::Key_Tab);
    EXPECT_EQ(focused()->objectName(), QStringLiteral("browseButton"));
    key(Qt::Key_Tab);
    EXPECT_EQ(focused()->objectName(), QStringLiteral("newButton"));
    key(Qt::Key_Tab);
    EXPECT_EQ(focused(), find<QWidget>("auditPage")->findChild<QComboBox*>());
}

TEST_F(Keyboard, EscapeClosesFromEveryStop) {
    for (int stops = 0; stops < 5; ++stops) {
        open();
        for (int i = 0; i < stops; ++i) key(Qt::Key_Tab);
        key(Qt::Key_Escape);
        EXPECT_FALSE(dialog->isVisible()) << stops;
        EXPECT_EQ(countOf("signal"), 0);
    }
}

}  // namespace
