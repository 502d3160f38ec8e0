// The window over a download that takes its time.
#include "workbench/hostlibs/fileDialog/DownloadWindow.h"

#include <QFileInfo>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <algorithm>

#include "fileDialog.h"
#include "tests/support/TestSupport.h"
#include "workbench/hostlibs/fileDialog/CloudDisk.h"

using namespace testing_support;
using workbench::DownloadWindow;

namespace {

class DownloadWindowTest : public testing::Test {
  protected:
    DownloadWindowTest() {
        host.write(utf("CloudDisks/企业云盘/大.GCFX"), QByteArray(4000, 'x'));
        host.switches().cloud.slow = true;
    }
    /// @param known the copy that the caller knows of. @return the code of the answer.
    static int download(const std::function<void(DownloadWindow*)>& use, const QString& known) {
        const auto driver = whenModal<DownloadWindow>(use);
        const QJsonObject answer = zFileDialog::downLoadYunpanFile(
            utf("大.GCFX"), utf("企业云盘/大.GCFX"), known, known.isEmpty() ? utf("0") : utf("1"));
        const QString data = answer.value(QStringLiteral("data")).toString();
        const int code = answer.value(QStringLiteral("code")).toInt(-1);
        if (code == 1) {
            EXPECT_EQ(data, QString());
        }
        return code;
    }

    TemporaryInstallation host;
    const QString copy = host.path(utf("Downloads/企业云盘/大.GCFX"));
};

TEST_F(DownloadWindowTest, IsGivenUpByAClickOrAKeyAndLeavesNoPartOfAFile) {
    host.write(utf("Downloads/企业云盘/大.GCFX"), "earlier");
    const auto press = [](DownloadWindow* window) {
        EXPECT_TRUE(child<QLabel>(window, "downloadText")->text().startsWith(utf("正在下载：")));
        click(child<QPushButton>(window, "cancelDownload"));
    };
    EXPECT_EQ(download(press, copy), 1);
    const auto escape = [](DownloadWindow* window) { QTest::keyClick(window, Qt::Key_Escape); };
    EXPECT_EQ(download(escape, copy), 1);
    EXPECT_EQ(contentOf(copy), "earlier");
    EXPECT_EQ(QFileInfo(copy).dir().entryList(QDir::Files).size(), 1);
}

TEST_F(DownloadWindowTest, ShowsHowFarItIsUntilTheFileIsThere) {
    QVector<int> seen;
    QElapsedTimer clock;
    clock.start();
    const auto watch = [&seen](DownloadWindow* window) {
        auto* bar = child<QProgressBar>(window, "downloadBar");
        seen.append(bar->value());
        QObject::connect(bar, &QProgressBar::valueChanged, bar,
                         [&seen](int value) { seen.append(value); });
    };
    EXPECT_EQ(download(watch, QString()), 0);
    EXPECT_EQ(QFileInfo(copy).size(), 4000);
    EXPECT_GE(clock.elapsed(), workbench::cloud::slowAnswerMs - 50);
    EXPECT_GE(seen.size(), 10);
    EXPECT_TRUE(std::is_sorted(seen.begin(), seen.end()));
}

TEST_F(DownloadWindowTest, MayDieWithItsParent) {
    auto* parent = new QDialog;
    parent->setModal(true);
    parent->show();
    EXPECT_EQ(download([parent](DownloadWindow*) { delete parent; }, QString()), 1);
    EXPECT_FALSE(QFileInfo::exists(copy));
}

}  // namespace
