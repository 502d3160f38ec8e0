/// The menu's ways into the dialog, and their keys.
#include <QMenu>

#include "dialog/xzGcLxDialog.h"
#include "import/importExcelSelFile.h"
#include "tests/workbench/MainWindowFixture.h"
#include "workbench/hostlibs/fileDialog/OpenDialog.h"

namespace testing_support {

namespace {

using workbench::OpenDialog;

class StartTest : public MainWindowTest {
  protected:
    /// Starts by the entry of the menu and by its key; each time a window of this type comes.
    template <typename T>
    void expectWindow(const char* entry, Qt::Key code, const std::function<void(T*)>& check) {
        auto* action = part<QAction>(entry);
        EXPECT_TRUE(part<QMenu>("projectMenu")->actions().contains(action));
        const std::function<void()> ways[] = {
            [action] { action->trigger(); },
            [this, code] { key(window.get(), code, Qt::ControlModifier | Qt::ShiftModifier); }};
        for (const auto& start : ways) {
            window->activateWindow();
            EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
            const auto driver = whenModal<T>([&check](T* came) {
                settle();
                check(came);
                came->close();
            });
            start();
        }
    }
};

TEST_F(StartTest, TheAuditOpensTheDialogOnItsPage) {
    expectWindow<NewProCfgDialog>("newAuditAction", Qt::Key_A, [](NewProCfgDialog* dialog) {
        EXPECT_TRUE(child<QWidget>(dialog, "auditPage")->isVisible());
    });
}

TEST_F(StartTest, TheImportsOpenTheirWindows) {
    expectWindow<importExcelSelFile>("importExcelAction", Qt::Key_E, [](importExcelSelFile*) {});
    expectWindow<OpenDialog>("importTenderAction", Qt::Key_T, [](OpenDialog*) {});
    EXPECT_EQ(countOf("signal"), 0) << "both were cancelled";
}

TEST_F(StartTest, TheKindIsAskedForFirst) {
    expectWindow<xzGcLxDialog>("chooseKindAction", Qt::Key_N, [](xzGcLxDialog*) {});
}

TEST_F(StartTest, NothingStartsWithoutAnInstallation) {
    const char* const starts[] = {"newProjectAction", "chooseKindAction", "newAuditAction",
                                  "importExcelAction", "importTenderAction"};
    const auto expectAll = [&](bool enabled) {
        for (const char* start : starts)
            EXPECT_EQ(part<QAction>(start)->isEnabled(), enabled) << start;
    };
    expectAll(true);
    const QString folder = host.folder();
    window.reset();
    workbench::Host::instance().installation() = {};
    openWindow();
    expectAll(false);
    EXPECT_EQ(window->openInstallation(folder), QString());
    expectAll(true);
}

}  // namespace

}  // namespace testing_support
