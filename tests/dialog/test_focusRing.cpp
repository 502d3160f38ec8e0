/// Whether the button that has the keys shows it.
#include <QMenu>

#include "tests/dialog/KeyboardFixture.h"
#include "workbench/hostlibs/zControl/MessageBox.h"

namespace {

using namespace dialog_tests;

class FocusRing : public Keyboard {
  protected:
    /// The button that creates from the file of the audit page; its field is empty.
    zBaseButton* auditButton() {
        open();
        pick(auditLabel);
        return child<zBaseButton>(find<QWidget>("auditPage"), "newButton");
    }
    /// @return whether the button looks other than without the keys, which it loses here.
    bool loseRing(QWidget* button) {
        // As a window manager does when the window above has closed.
        dialog->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
        // A menu gives the keys back once its closing is through.
        EXPECT_TRUE(QTest::qWaitFor([button] { return button->hasFocus(); }));
        const QImage before = button->grab().toImage();
        button->clearFocus();
        return button->grab().toImage() != before;
    }
};

TEST_F(FocusRing, IsThereForEveryWayButTheMouse) {
    zBaseButton* button = auditButton();
    const struct {
        Qt::FocusReason reason;
        bool ring;
    } ways[] = {{Qt::TabFocusReason, true},
                {Qt::BacktabFocusReason, true},
                {Qt::ShortcutFocusReason, true},
                {Qt::OtherFocusReason, true},
                {Qt::MouseFocusReason, false}};
    for (const auto& way : ways) {
        button->setFocus(way.reason);
        EXPECT_EQ(loseRing(button), way.ring) << way.reason;
    }
}

TEST_F(FocusRing, IsAsItWasWhenABoxHasBeenAnswered) {
    host.switches().boxesAnswerThemselves = false;
    for (const bool byKey : {true, false}) {
        zBaseButton* button = auditButton();
        const auto answer = testing_support::whenModal<workbench::MessageBox>(
            [](workbench::MessageBox* box) { QTest::keyClick(box->focusWidget(), Qt::Key_Space); });
        if (byKey) {
            button->setFocus(Qt::TabFocusReason);
            key(Qt::Key_Space);
        } else {
            click(button);
        }
        settle();
        EXPECT_EQ(loseRing(button), byKey);
    }
}

TEST_F(FocusRing, IsStillThereWhenAMenuHasBeenClosed) {
    open();
    key(Qt::Key_Down);
    key(Qt::Key_Tab);
    key(Qt::Key_Tab);
    QWidget* arrow = focused();
    ASSERT_EQ(arrow->accessibleName(), QStringLiteral("选择计费方式"));
    {
        const auto escape = testing_support::whenModal<QMenu>(
            [](QMenu* menu) { QTest::keyClick(menu, Qt::Key_Escape); });
        key(Qt::Key_Space);
    }
    EXPECT_TRUE(loseRing(arrow));
}

TEST_F(FocusRing, IsAsItWasInADialogThatStaysOpenAfterAll) {
    RefusesToClose refusing;
    const QString file = host.write(QStringLiteral("甲.GCFX"));
    for (const bool byKey : {true, false}) {
        zBaseButton* button = auditButton();
        find<QWidget>("auditPage")->findChild<QComboBox*>()->setCurrentText(file);
        dialog->installEventFilter(&refusing);
        if (byKey) {
            button->setFocus(Qt::TabFocusReason);
            key(Qt::Key_Space);
        } else {
            click(button);
        }
        ASSERT_TRUE(dialog->isVisible());
        EXPECT_EQ(loseRing(button), byKey);
    }
}

}  // namespace
