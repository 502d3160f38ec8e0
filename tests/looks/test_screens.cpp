/// The workbench on screens of several sizes.
#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScopeGuard>

#include "dialog/NewProCfgDialog.h"
#include "tests/looks/CutTexts.h"
#include "tests/looks/EveryWindow.h"
#include "tests/support/Looks.h"
#include "workbench/app/MainWindow.h"
#include "workbench/app/ScaleLimit.h"
#include "workbench/app/Surface.h"
#include "workbench/hostlibs/common/Skin.h"

namespace {

using testing_support::child;
using testing_support::settle;
using workbench::Host;
using workbench::Language;
using workbench::Surface;

const QSize laptop(1366, 768);
const QSize large(3840, 2160);

class Screens : public testing::Test {
  protected:
    Screens() {
        window.show();
        settle();
        limit = window.findChild<workbench::ScaleLimit*>();
    }
    QString notice() { return child<QLabel>(&window, "scaleNotice")->text(); }
    bool noticed() { return child<QLabel>(&window, "scaleNotice")->isVisible(); }
    bool noted() { return !child<QLabel>(&window, "scale.note")->isHidden(); }

    looks_tests::SampleHost host;
    workbench::MainWindow window;
    workbench::ScaleLimit* limit;
};

TEST_F(Screens, AScaleIsLimitedToWhatTheScreenHoldsAndComesBack) {
    limit->fit(laptop);
    EXPECT_FALSE(noticed());
    EXPECT_FALSE(noted());
    Host::instance().setScale(1.5);
    EXPECT_EQ(Host::instance().scale(), 1);
    EXPECT_EQ(limit->wanted(), 1.5);
    EXPECT_TRUE(noticed());
    EXPECT_TRUE(noted());
    EXPECT_EQ(notice(), QStringLiteral("屏幕容不下 150 %，缩放限为 100 %"));
    EXPECT_EQ(child<QLabel>(&window, "scale.note")->text(), notice());
    EXPECT_EQ(child<QComboBox>(&window, "scale")->currentText(), QStringLiteral("100 %"));
    limit->fit(large);
    EXPECT_EQ(Host::instance().scale(), 1.5);
    EXPECT_FALSE(noticed());
    EXPECT_FALSE(noted());
    EXPECT_EQ(child<QComboBox>(&window, "scale")->currentText(), QStringLiteral("150 %"));
    limit->fit(laptop);
    EXPECT_EQ(Host::instance().scale(), 1);
    Host::instance().setScale(1);  // no change, and so no other wish
    EXPECT_EQ(limit->wanted(), 1.5);
}

TEST_F(Screens, AScreenThatIsTooSmallForTheDialogAtAnyScaleIsSaid) {
    const QString small = QStringLiteral("屏幕太小，100 % 也容不下对话框");
    limit->fit(large);
    for (const QSize& screen : {QSize(1366, 728), QSize(800, 1280)}) {
        window.resize(laptop);
        limit->fit(screen);
        settle();
        EXPECT_TRUE(noticed());
        EXPECT_TRUE(noted());
        EXPECT_EQ(notice(), small);
        auto* note = child<QLabel>(&window, "scale.note");
        EXPECT_EQ(note->text(), small);
        EXPECT_EQ(note->visibleRegion().boundingRect(), note->rect()) << "scrolled into sight";
        EXPECT_EQ(testing_support::clippedTexts(&window, 0, {}), QStringList());
        Host::instance().setScale(2);
        EXPECT_EQ(Host::instance().scale(), 1);
        EXPECT_EQ(notice(), small);
        limit->fit(large);
        EXPECT_FALSE(noticed());
        Host::instance().setScale(1);
        settle();
    }
    limit->fit({880, 750});
    EXPECT_FALSE(noticed());
}

TEST_F(Screens, TheDialogFitsAtEveryScaleThatIsLeft) {
    for (const QSize& screen : {QSize(1024, 768), laptop, QSize(1920, 1080), large}) {
        limit->fit(screen);
        for (const double scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
            Host::instance().setScale(scale);
            const NewProCfgDialog dialog(0, true, nullptr);
            EXPECT_LE(dialog.width(), screen.width()) << scale;
            EXPECT_LE(dialog.height(), screen.height()) << scale;
        }
    }
}

/// At the largest scale that each holds, with all that the status bar has to say.
TEST_F(Screens, NothingOfTheWindowIsCutInEitherLanguage) {
    const struct {
        QSize screen;
        double scale;
    } screens[] = {{laptop, 1}, {{1920, 1080}, 1.25}, {{2560, 1440}, 1.5}, {large, 2}};
    const auto chinese = qScopeGuard([] { Surface::instance().setLanguage(Language::Chinese); });
    for (const Language language : {Language::Chinese, Language::English})
        for (const auto& each : screens) {
            SCOPED_TRACE(each.scale);
            Surface::instance().setLanguage(language);
            limit->fit(each.screen);
            Host::instance().setScale(3);
            ASSERT_EQ(Host::instance().scale(), each.scale);
            settle();  // and so is the least size
            window.resize(each.screen);
            child<QLabel>(&window, "createdMessage")
                ->setText(
                    workbench::said("已创建工程文件：%1").arg(QStringLiteral("某住宅小区.GCFX")));
            settle();
            EXPECT_EQ(window.size(), each.screen);
            EXPECT_TRUE(noticed());
            EXPECT_EQ(testing_support::clippedTexts(&window, 0, {}), QStringList());
            EXPECT_EQ(looks_tests::cutWithoutDots(&window), QStringList());
            EXPECT_TRUE(child<QLabel>(&window, "createdMessage")->isVisible());
            EXPECT_GE(child<QPlainTextEdit>(&window, "detailRequest")->height(),
                      workbench::scaled(120));
        }
}

}  // namespace
