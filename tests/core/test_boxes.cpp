/// The module's message boxes, as the host gets them and as they stand on the screen.
#include "core/boxes.h"

#include <QAbstractButton>
#include <QDialog>

#include "tests/support/TestSupport.h"

namespace {

using testing_support::click;
using testing_support::journalLines;
using testing_support::Lines;
using testing_support::whenModal;

class Refusals : public testing::Test {
  protected:
    testing_support::TemporaryInstallation host;
    const QString text = QStringLiteral("请选择预算工程文件");
};

TEST_F(Refusals, GoToTheHostsInformationBox) {
    newpro::refuse(text);
    EXPECT_EQ(journalLines({"box"}),
              Lines{R"(box showInformation("提示", "请选择预算工程文件", ["确定"]))"});
}

TEST_F(Refusals, ThatAreCriticalGoToTheHostsCriticalBox) {
    newpro::refuseCritically(text);
    EXPECT_EQ(journalLines({"box"}),
              Lines{R"(box showCritical("提示", "请选择预算工程文件", ["确定"]))"});
}

TEST_F(Refusals, StandOverTheMainWindowUntilTheyAreAnswered) {
    host.switches().boxesAnswerThemselves = false;
    QWidget mainWindow;
    workbench::Host::instance().setMainWindow(&mainWindow);
    for (const auto refusal : {newpro::refuse, newpro::refuseCritically}) {
        const QWidget* parent = nullptr;
        const auto driver = whenModal<QDialog>([&](QDialog* box) {
            parent = box->parentWidget();
            click(box->findChild<QAbstractButton*>());
        });
        refusal(text);
        EXPECT_EQ(parent, &mainWindow);
    }
    workbench::Host::instance().setMainWindow(nullptr);
}

}  // namespace
