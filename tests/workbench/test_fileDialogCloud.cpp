// The cloud disks in the host's file dialog.
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProgressBar>
#include <algorithm>

#include "osgi.h"
#include "tests/workbench/FileDialogHand.h"
#include "workbench/hostlibs/fileDialog/LoginWindow.h"

using namespace testing_support;
using workbench::LoginWindow;
using workbench::OpenDialog;

namespace {

class CloudFileDialog : public FileDialog {
  protected:
    CloudFileDialog() {
        host.write(utf("CloudDisks/个人云盘/住宅/楼.GCFX"), "cloud");
        host.write(utf("CloudDisks/企业云盘/造价部/桥.GCFX"), "bridge");
    }
};

}  // namespace

TEST_F(CloudFileDialog, AFileOfThePersonalDiskIsDownloadedAfterTheLogIn) {
    const auto driver = whenOpen([](Hand& hand) {
        {
            const auto login = whenModal<LoginWindow>([](LoginWindow* window) {
                auto* user = child<QLineEdit>(window, "userField");
                user->clear();
                QTest::keyClicks(user, QStringLiteral("zhang"));
                click(child<QPushButton>(window, "loginButton"));
                EXPECT_FALSE(child<QLabel>(window, "errorLabel")->text().isEmpty());
                auto* password = child<QLineEdit>(window, "passwordField");
                QTest::keyClicks(password, QStringLiteral("secret"));
                QTest::keyClick(password, Qt::Key_Return);
            });
            hand.press("place3");
        }
        EXPECT_EQ(hand.place(), QStringLiteral("place3"));
        EXPECT_EQ(hand.read("pathField"), utf("个人云盘"));
        hand.doubleClickRow("住宅");
        hand.clickRow("楼.GCFX");
        hand.press("openButton");
    });
    const QString path = open(projects);
    EXPECT_EQ(path, host.path(utf("Downloads/个人云盘/住宅/楼.GCFX")));
    EXPECT_TRUE(QFile::exists(path));
    EXPECT_EQ(zFileDialog::iClickedBtn, 3);
    EXPECT_EQ(zFileDialog::GetFilePath(), utf("个人云盘/住宅/楼.GCFX"));
    EXPECT_EQ(zFileDialog::getCurrentPath(), QString());
    EXPECT_TRUE(host.switches().account.loggedIn);
    EXPECT_EQ(zFileDialog::userId, QStringLiteral("zhang"));
}

TEST_F(CloudFileDialog, TheEnterpriseDiskIsReachedByATypedPathWithTheHostsSeparator) {
    host.switches().account.loggedIn = true;
    zFileDialog::pathFgf = QStringLiteral("|");
    const auto driver = whenOpen([](Hand& hand) {
        hand.write("pathField", utf("企业云盘|没有"));
        hand.key("pathField", Qt::Key_Return);
        EXPECT_FALSE(hand.message().isEmpty());
        EXPECT_EQ(hand.place(), QStringLiteral("place1"));
        hand.write("pathField", utf("企业云盘|造价部"));
        hand.key("pathField", Qt::Key_Return);
        EXPECT_EQ(hand.place(), QStringLiteral("place4"));
        hand.press("upButton");
        EXPECT_EQ(hand.names(), Lines{"造价部"});
        hand.key("fileList", Qt::Key_Return);
        hand.doubleClickRow("桥.GCFX");
    });
    EXPECT_EQ(open(projects), host.path(utf("Downloads/企业云盘/造价部/桥.GCFX")));
    EXPECT_EQ(zFileDialog::iClickedBtn, 4);
    EXPECT_EQ(zFileDialog::GetFilePath(), utf("企业云盘|造价部|桥.GCFX"));
}

TEST_F(CloudFileDialog, WithoutALogInThePlaceStays) {
    host.switches().account.login = workbench::Login::Cancelled;
    const auto driver = whenOpen([](Hand& hand) {
        hand.press("place4");
        EXPECT_EQ(hand.place(), QStringLiteral("place1"));
        EXPECT_EQ(hand.names().size(), 4u);
        hand.press("cancelButton");
    });
    EXPECT_EQ(open(projects), QString());
}

TEST_F(CloudFileDialog, ARefusalIsShownAndTheDialogGoesOn) {
    host.switches().account.loggedIn = true;
    host.switches().cloud.refused = true;
    const auto driver = whenOpen([this](Hand& hand) {
        hand.press("place3");
        EXPECT_FALSE(hand.message().isEmpty());
        EXPECT_EQ(hand.place(), QStringLiteral("place1"));
        host.switches().cloud.refused = false;
        hand.press("place3");
        hand.doubleClickRow("住宅");
        host.switches().cloud.refused = true;
        hand.doubleClickRow("楼.GCFX");
        EXPECT_TRUE(hand.dialog->isVisible());
        EXPECT_FALSE(hand.message().isEmpty());
        hand.press("cancelButton");
    });
    EXPECT_EQ(open(projects), QString());
}

TEST_F(CloudFileDialog, BrokenAnswersShowWhatCanBeReadAndChooseNothing) {
    host.switches().account.loggedIn = true;
    for (const char* name : {"1.GCFX", "2.GCFX", "3.GCFX", "4.GCFX", "5.GCFX", "6.GCFX"})
        host.write(utf("CloudDisks/企业云盘/") + utf(name));
    const auto driver = whenOpen([this](Hand& hand) {
        host.switches().cloud.broken = true;
        hand.press("place3");
        hand.press("place4");
        EXPECT_EQ(hand.place(), QStringLiteral("place4"));
        EXPECT_FALSE(hand.names().empty());
        for (const std::string& name : hand.names()) {
            hand.write("nameField", QString::fromStdString(name));
            hand.press("openButton");
            EXPECT_FALSE(hand.message().isEmpty());
        }
        hand.press("cancelButton");
    });
    EXPECT_EQ(open(projects), QString());
}

TEST_F(CloudFileDialog, WaitingForASlowDiskCanBeGivenUp) {
    host.switches().account.loggedIn = true;
    host.switches().cloud.slow = true;
    QElapsedTimer clock;
    clock.start();
    const auto driver = whenOpen([](Hand& hand) {
        QTimer::singleShot(0, hand.dialog, [&hand] {
            EXPECT_EQ(hand.message(), utf("正在连接云盘…"));
            EXPECT_FALSE(hand.list()->isEnabled());
            hand.press("cancelButton");
        });
        hand.press("place4");
        EXPECT_TRUE(hand.dialog->isVisible());
        EXPECT_EQ(hand.place(), QStringLiteral("place1"));
        EXPECT_TRUE(hand.list()->isEnabled());
        QTimer::singleShot(0, hand.dialog, [&hand] { hand.dialog->close(); });
        hand.press("place3");
        EXPECT_FALSE(hand.dialog->isVisible());
    });
    EXPECT_EQ(open(projects), QString());
    EXPECT_LT(clock.elapsed(), 1900);
}

TEST_F(CloudFileDialog, ItsParentMayDieWhileItWaitsForASlowDisk) {
    host.switches().account.loggedIn = true;
    host.switches().cloud.slow = true;
    auto* parent = new QWidget;
    const auto driver = whenModal<OpenDialog>([parent](OpenDialog* dialog) {
        QTimer::singleShot(0, [parent] { delete parent; });
        auto* place = child<QPushButton>(dialog, "place4");
        QMetaObject::invokeMethod(place, "click", Qt::QueuedConnection);
    });
    EXPECT_EQ(zFileDialog::getOpenFileName(parent, projects, nullptr, 2, QString(), true, QString(),
                                           true, OpenFile),
              QString());
}

TEST_F(CloudFileDialog, ADownloadShowsHowFarItIsAndIsGivenUpWithoutATrace) {
    host.switches().account.loggedIn = true;
    const QByteArray content(4000, 'x');
    host.write(utf("CloudDisks/个人云盘/大.GCFX"), content);
    const QString old = host.write(utf("Downloads/个人云盘/大.GCFX"), "earlier");
    const auto driver = whenOpen([&](Hand& hand) {
        hand.press("place3");
        hand.clickRow("大.GCFX");
        host.switches().cloud.slow = true;
        auto* bar = child<QProgressBar>(hand.dialog, "progressBar");
        EXPECT_FALSE(bar->isVisible());
        QVector<int> values;
        QTimer look;
        QObject::connect(&look, &QTimer::timeout, [&] {
            if (!bar->isVisible() || bar->maximum() == 0) return;
            if (!values.contains(bar->value())) values.append(bar->value());
            EXPECT_FALSE(hand.list()->isEnabled());
            EXPECT_TRUE(hand.message().startsWith(utf("正在下载：")));
            if (values.size() == 3) {
                look.stop();
                hand.press("cancelButton");
            }
        });
        look.start(5);
        hand.press("openButton");
        EXPECT_EQ(values.size(), 3);
        EXPECT_TRUE(std::is_sorted(values.begin(), values.end()));
        EXPECT_TRUE(hand.dialog->isVisible());
        EXPECT_TRUE(hand.message().contains(utf("已取消下载"))) << hand.message().toStdString();
        EXPECT_FALSE(bar->isVisible());
        EXPECT_TRUE(hand.list()->isEnabled());
        EXPECT_EQ(QFileInfo(old).size(), 7) << "the earlier copy stays";
        EXPECT_EQ(QFileInfo(old).dir().entryList(QDir::Files).size(), 1);
        host.switches().cloud.slow = false;
        hand.clickRow("大.GCFX");
        hand.press("openButton");
    });
    EXPECT_EQ(open(projects), old);
    EXPECT_EQ(QFileInfo(old).size(), content.size());
}

TEST_F(CloudFileDialog, ItsParentMayDieInTheMiddleOfADownload) {
    host.switches().account.loggedIn = true;
    auto* parent = new QWidget;
    const auto driver = whenModal<OpenDialog>([&](OpenDialog* dialog) {
        Hand hand(dialog);
        hand.press("place3");
        hand.doubleClickRow("住宅");
        hand.clickRow("楼.GCFX");
        host.switches().cloud.slow = true;
        auto* bar = child<QProgressBar>(dialog, "progressBar");
        auto* look = new QTimer(bar);
        QObject::connect(look, &QTimer::timeout, bar, [bar, parent] {
            if (bar->isVisible() && bar->maximum() > 0) delete parent;
        });
        look->start(5);
        QMetaObject::invokeMethod(child<QPushButton>(dialog, "openButton"), "click",
                                  Qt::QueuedConnection);
    });
    EXPECT_EQ(zFileDialog::getOpenFileName(parent, projects, nullptr, 2, QString(), true, QString(),
                                           true, OpenFile),
              QString());
    EXPECT_TRUE(QDir(host.path(utf("Downloads/个人云盘/住宅"))).isEmpty());
}

TEST_F(CloudFileDialog, TheFirstPageShowsTheSameLogInWindow) {
    auto* first = static_cast<FirstPagePlugin*>(osgi::ObjectHelper::GetService("firstPagePlugin"));
    ASSERT_TRUE(first);
    {
        const auto login = whenModal<LoginWindow>(
            [](LoginWindow* window) { click(child<QPushButton>(window, "cancelButton")); });
        first->showLogin({});
    }
    EXPECT_FALSE(host.switches().account.loggedIn);
    const auto login = whenModal<LoginWindow>([](LoginWindow* window) {
        QTest::keyClicks(child<QLineEdit>(window, "passwordField"), QStringLiteral("p"));
        click(child<QPushButton>(window, "loginButton"));
    });
    first->showLogin({});
    EXPECT_TRUE(host.switches().account.loggedIn);
    EXPECT_EQ(host.switches().account.userId, QStringLiteral("u1"));
}
