// What hands do besides clicks: each thing is a step, or is listed as not recorded.
#include <QAction>
#include <QClipboard>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>
#include <QScopeGuard>
#include <QWheelEvent>
#include <QWindow>
#include <algorithm>

#include "dialog/xzGcLxDialog.h"
#include "import/importExcelSelFile.h"
#include "tests/workbench/RecordFixture.h"
#include "workbench/app/Surface.h"
#include "workbench/record/Recorder.h"

namespace testing_support {

namespace {

const char* const menuModel = "清单计价【国标2013规范，四川2020定额】（税率9%）";
const char* const schoolFile = "锦江区第三中学教学楼.GCFX";

class RecordHandsTest : public RecordTest {
  protected:
    QLineEdit* field() { return workbench::fileCombo(dialog)->lineEdit(); }
    /// Opens the menu of the card with the mouse, which lets go above the menu, and uses it.
    void openMenu(const std::function<void(QMenu*)>& use) {
        const auto menu = whenModal<QMenu>([&use](QMenu* shown) {
            QTest::mouseRelease(shown, Qt::LeftButton, {}, QPoint(-3, -3));
            use(shown);
        });
        QTest::mousePress(workbench::menuButtonOf(model(menuModel)), Qt::LeftButton);
    }
    /// @return the lines of the report behind the first.
    Lines notRecorded() const {
        Lines lines;
        for (const QString& line : report.split(QLatin1Char('\n')).mid(1))
            lines.push_back(line.toStdString());
        return lines;
    }
};

TEST_F(RecordHandsTest, APathThatIsPastedFromTheMenuOfItsField) {
    const int code = record([this] {
        inDialog([this](auto*) {
            ribbon("审核工程");
            QGuiApplication::clipboard()->setText(projectFile(schoolFile));
            const QPoint place = field()->mapTo(dialog, field()->rect().center());
            const auto menu = whenModal<QMenu>([](QMenu* shown) {
                const QList<QAction*> actions = shown->actions();
                const auto paste = std::find_if(actions.begin(), actions.end(), [](auto* action) {
                    return action->text().contains(QLatin1String("Ctrl+V"));
                });
                ASSERT_TRUE(paste != actions.end() && (*paste)->isEnabled());
                QTest::mouseClick(shown, Qt::LeftButton, {},
                                  shown->actionGeometry(*paste).center());
            });
            QTest::mouseClick(dialog->windowHandle(), Qt::RightButton, {}, place);
            EXPECT_TRUE(
                QTest::qWaitFor([this] { return field()->text() == projectFile(schoolFile); }));
            create();
        });
    });
    EXPECT_EQ(code, 0) << report.toStdString();
    EXPECT_EQ(steps(),
              (Lines{"open", "ribbon 审核工程",
                     std::string("file {installation}/ProjectFiles/") + schoolFile, "create"}));
}

TEST_F(RecordHandsTest, APathThatIsDroppedOnItsField) {
    const int code = record([this] {
        inDialog([this](auto*) {
            ribbon("审核工程");
            QMimeData path;
            path.setText(projectFile(schoolFile));
            field()->clear();
            QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &path, Qt::LeftButton,
                                  Qt::NoModifier);
            QApplication::sendEvent(field(), &enter);
            QDropEvent drop(QPoint(5, 5), Qt::CopyAction, &path, Qt::LeftButton, Qt::NoModifier);
            QApplication::sendEvent(field(), &drop);
            create();
        });
    });
    EXPECT_EQ(code, 0) << report.toStdString();
    EXPECT_EQ(steps().at(2), std::string("file {installation}/ProjectFiles/") + schoolFile);
}

TEST_F(RecordHandsTest, AWindowThatIsMinimisedAndRestoredWasOpenedOnce) {
    const int code = record([this] {
        inDialog([this](NewProCfgDialog* shown) {
            ASSERT_TRUE(QTest::qWaitForWindowExposed(shown));
            shown->windowHandle()->showMinimized();
            settle();
            shown->windowHandle()->showNormal();
            settle();
            ASSERT_TRUE(QTest::qWaitForWindowExposed(shown));
            ribbon("审核工程");
            QTest::keyClick(shown, Qt::Key_Escape);
        });
    });
    EXPECT_EQ(code, 0) << report.toStdString();
    EXPECT_EQ(steps(), (Lines{"open", "ribbon 审核工程", "key Esc"}));
}

TEST_F(RecordHandsTest, AMenuThatIsClosedWithoutAChoiceIsListedAndHindersNothing) {
    const std::string unsaid =
        std::string("the menu of ") + menuModel + ", closed without a choice, behind step 1";
    const int code = record([&] {
        const workbench::Recorder another;
        inDialog([this](auto*) {
            openMenu([](QMenu* shown) { QTest::keyClick(shown, Qt::Key_Escape); });
            doubleClick(child<QWidget>(model(menuModel), "lblTitle"));
        });
        EXPECT_EQ(another.unsaid(), QStringList{QString::fromStdString(unsaid)});
    });
    EXPECT_EQ(code, 0) << report.toStdString();
    EXPECT_EQ(steps(), (Lines{"open", std::string("model ") + menuModel + " double-click"}));
    EXPECT_EQ(notRecorded(), Lines{"not recorded: " + unsaid});
}

TEST_F(RecordHandsTest, AnEntryOfAMenuByWhateverKey) {
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        const int code = record([this, key] {
            // The key is let go when the menu is gone.
            inDialog([this, key](auto*) {
                openMenu([key](QMenu* shown) {
                    QTest::keyClick(shown, Qt::Key_Down);
                    QTest::keyPress(shown, key,
                                    key == Qt::Key_Enter ? Qt::KeypadModifier : Qt::NoModifier);
                });
            });
        });
        EXPECT_EQ(code, 0) << key << report.toStdString();
        ASSERT_EQ(steps().size(), 2u) << key;
        EXPECT_NE(steps().at(1).find(std::string(menuModel) + " menu"), std::string::npos) << key;
    }
}

TEST_F(RecordHandsTest, ARowThatIsReachedInOneDragFromTheArrow) {
    const int code = record([this] {
        inDialog([this](auto*) {
            ribbon("审核工程");
            QComboBox* combo = workbench::fileCombo(dialog);
            QTest::mousePress(combo, Qt::LeftButton, {},
                              QPoint(combo->width() - 6, combo->height() / 2));
            QWidget* list = combo->view()->viewport();
            ASSERT_TRUE(list->isVisible());
            const QPoint row = combo->view()->visualRect(combo->model()->index(1, 0)).center();
            QTest::mouseMove(list, row - QPoint(30, 0));
            QTest::mouseMove(list, row);
            QTest::mouseRelease(list, Qt::LeftButton, {}, row);
            ASSERT_EQ(combo->currentIndex(), 1);
            create();
        });
    });
    EXPECT_EQ(code, 0) << report.toStdString();
    EXPECT_EQ(steps(),
              (Lines{"open", "ribbon 审核工程",
                     "pick {installation}/ProjectFiles/高新区科研楼安装工程.GCFX", "create"}));
}

TEST_F(RecordHandsTest, ARowThatTheWheelHasBrought) {
    const int code = record([this] {
        inDialog([this](NewProCfgDialog* shown) {
            ribbon("审核工程");
            QComboBox* combo = workbench::fileCombo(dialog);
            const int before = combo->currentIndex();
            const QPointF middle = combo->rect().center();
            for (int i = 0; i < 2; ++i) {
                QWheelEvent wheel(middle, combo->mapToGlobal(middle.toPoint()), {}, {0, -120},
                                  Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
                QApplication::sendEvent(combo, &wheel);
            }
            ASSERT_NE(combo->currentIndex(), before);
            QTest::keyClick(shown, Qt::Key_Escape);
        });
    });
    EXPECT_EQ(code, 0) << report.toStdString();
    EXPECT_EQ(steps().back(), "key Esc");
    EXPECT_EQ(steps().at(2).rfind("pick ", 0), 0u) << steps().at(2);
}

TEST_F(RecordHandsTest, ButtonsThatSayNothingAreListed) {
    const int code = record([this] {
        inDialog([this](NewProCfgDialog* shown) {
            QWidget* card = model(menuModel);
            QTest::mouseClick(card, Qt::RightButton);
            QWidget* button = workbench::taxModeButton(shown, utf("简易计税"));
            QTest::mousePress(button, Qt::LeftButton);
            QTest::mouseRelease(button, Qt::LeftButton, {}, QPoint(-20, -20));
            QTest::keyClick(shown, Qt::Key_Escape);
        });
    });
    EXPECT_EQ(code, 0) << report.toStdString();
    EXPECT_EQ(steps(), (Lines{"open", "key Esc"}));
    ASSERT_EQ(notRecorded().size(), 2u) << report.toStdString();
    EXPECT_EQ(notRecorded()[0].rfind("not recorded: another button on ", 0), 0u);
    EXPECT_EQ(notRecorded()[1].rfind("not recorded: a drag on ", 0), 0u);
}

TEST_F(RecordHandsTest, AKeyThatClosesTheDialogIsTheLastStep) {
    int code = record([this] {
        inDialog([](NewProCfgDialog* shown) { QTest::keyClick(shown, Qt::Key_Escape); });
    });
    EXPECT_EQ(code, 0) << report.toStdString();
    EXPECT_EQ(steps(), (Lines{"open", "key Esc"}));
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Space}) {
        code = record([&] {
            const auto driver = whenModal<xzGcLxDialog>([key](xzGcLxDialog* shown) {
                auto* cancel = child<QWidget>(shown, "BtnQx");
                cancel->setFocus();
                QTest::keyClick(cancel, key);
            });
            pressInWindow(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
        });
        EXPECT_EQ(code, 0) << key << report.toStdString();
        EXPECT_EQ(steps(), (Lines{"open xzGcLxDialog",
                                  key == Qt::Key_Escape ? "key Esc" : "key Space BtnQx"}));
    }
    code = record([this] {
        inDialog([this](auto*) {
            const auto excel = whenModal<importExcelSelFile>(
                [](importExcelSelFile* window) { QTest::keyClick(window, Qt::Key_Escape); });
            ribbon("导入Excel新建");
        });
    });
    EXPECT_EQ(code, 0) << report.toStdString();
}

TEST_F(RecordHandsTest, TheWindowShowsThatItRecordsAndKeepsToItsInstallation) {
    using workbench::Language;
    using workbench::Surface;
    const auto restored = qScopeGuard([] { Surface::instance().setLanguage(Language::Chinese); });
    record([this] {
        const struct {
            Language language;
            const char *title, *label;
        } rows[] = {{Language::Chinese, "录制中 — 新建工程工作台", "● 录制中"},
                    {Language::English, "Recording — New Project Workbench", "● Recording"}};
        auto* label = child<QLabel>(window, "recordingLabel");
        EXPECT_TRUE(label->isVisible());
        EXPECT_FALSE(window->findChild<QAction*>(QStringLiteral("openInstallationAction")));
        for (const auto& row : rows) {
            Surface::instance().setLanguage(row.language);
            EXPECT_EQ(window->windowTitle(), utf(row.title));
            EXPECT_EQ(label->text(), utf(row.label));
        }
        pressInWindow(Qt::Key_O, Qt::ControlModifier);
        EXPECT_EQ(workbench::topWindow(), nullptr);
    });
}

}  // namespace

}  // namespace testing_support
