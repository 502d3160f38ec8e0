// What the window keeps between runs, other installations, and what it says when something fails.
#include <QDockWidget>
#include <QMenu>
#include <QPushButton>
#include <QSettings>

#include "tests/workbench/FileDialogHand.h"
#include "tests/workbench/MainWindowFixture.h"
#include "tests/workbench/RunProgram.h"
#include "workbench/app/InstallationMenu.h"
#include "workbench/base/fileAdvice.h"
#ifdef Q_OS_UNIX
#include <sys/resource.h>

#include <csignal>
#endif

namespace testing_support {

namespace {

using workbench::Host;
using workbench::Language;
using workbench::Surface;

class ComfortTest : public MainWindowTest {
  protected:
    ComfortTest() : MainWindowTest(true) {}

    void endRun() {
        window->close();
        window.reset();
        settings.reset();
    }
    void startRun() {
        Host::instance().setSkin(workbench::lightSkin);
        Host::instance().setScale(1);
        Surface::instance().setLanguage(Language::Chinese);
        keepSettings();
        settings->applyLook();
        settings->follow();
        openWindow();
    }
    /// Ends the window and opens another one, as the next run of the program does.
    void restart() {
        endRun();
        startRun();
    }
    bool noticeShows(const QString& text) {
        const auto* notice = part<QWidget>("notice");
        return notice->isVisible() &&
               (this->text("noticeText") + QLatin1Char('\n') + this->text("noticeDetail"))
                   .contains(text);
    }
    /// @return another installation, whole.
    QString otherInstallation(const char* name) {
        const QString folder = host.path(utf(name));
        const QDir from(host.folder());
        for (const char* file : {"models.json", "settings.json", "history.json"}) {
            host.write(utf(name) + QLatin1Char('/') + QLatin1String(file));
            QFile::remove(folder + QLatin1Char('/') + QLatin1String(file));
            EXPECT_TRUE(QFile::copy(QStringLiteral(SAMPLE_INSTALLATION "/") + QLatin1String(file),
                                    folder + QLatin1Char('/') + QLatin1String(file)));
        }
        return folder;
    }
};

TEST_F(ComfortTest, WindowDocksSkinScaleAndLanguageAreThereAtTheNextRun) {
    settings->follow();
    window->resize(901, 633);
    part<QDockWidget>("journalDock")->hide();
    window->addDockWidget(Qt::LeftDockWidgetArea, part<QDockWidget>("hostDock"));
    Host::instance().setSkin(workbench::darkSkin);
    part<QAction>("language.en")->trigger();
    restart();
    EXPECT_EQ(window->size(), QSize(901, 633));
    EXPECT_FALSE(part<QDockWidget>("journalDock")->isVisible());
    EXPECT_EQ(window->dockWidgetArea(part<QDockWidget>("hostDock")), Qt::LeftDockWidgetArea);
    EXPECT_EQ(Host::instance().skin(), workbench::darkSkin);
    EXPECT_EQ(Surface::instance().language(), Language::English);
    EXPECT_TRUE(part<QAction>("language.en")->isChecked());
    Host::instance().setScale(1.5);
    restart();
    EXPECT_EQ(Host::instance().scale(), 1.5);
}

TEST_F(ComfortTest, WhatNobodyUnderstandsInTheSettingsIsLeftOut) {
    endRun();
    QFile file(settingsFile());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write("[look]\nskin=red\nscale=9000\nlanguage=xx\n[window]\ngeometry=1\ndocks=@Byte\n");
    file.close();
    startRun();
    EXPECT_EQ(Host::instance().skin(), workbench::lightSkin);
    EXPECT_EQ(Host::instance().scale(), 1);
    EXPECT_EQ(Surface::instance().language(), workbench::languageOf(QLocale::system()));
    EXPECT_TRUE(part<QDockWidget>("journalDock")->isVisible());
}

TEST_F(ComfortTest, TheInstallationsUsedLastAreInTheMenuTheLastOneFirst) {
    const QString first = otherInstallation("甲");
    const QString second = otherInstallation("乙");
    EXPECT_EQ(window->openInstallation(first), QString());
    EXPECT_EQ(text("installationFolder"),
              QStringLiteral("安装目录：") + QDir::toNativeSeparators(first));
    EXPECT_EQ(window->openInstallation(second), QString());
    EXPECT_EQ(window->openInstallation(first), QString());
    restart();
    EXPECT_EQ(settings->installations(), (QStringList{first, second}));
    ASSERT_TRUE(QDir(second).removeRecursively());
    auto* menu = part<QMenu>("installationMenu");
    Q_EMIT menu->aboutToShow();
    EXPECT_EQ(menu->actions().at(0)->text(), QDir::toNativeSeparators(first));
    EXPECT_TRUE(menu->actions().at(0)->isChecked());
    EXPECT_FALSE(menu->actions().at(1)->isEnabled()) << "it is gone";
    part<QAction>("forgetInstallations")->trigger();
    EXPECT_TRUE(settings->installations().isEmpty());
}

TEST_F(ComfortTest, AnotherInstallationIsChosenInTheFileDialogAndItsProjectsAreListed) {
    const QString other = otherInstallation("别处");
    host.write(QStringLiteral("别处/ProjectFiles/别的.txt"));
    const auto driver = whenOpen([&](Hand& hand) {
        EXPECT_EQ(hand.dialog->windowTitle(), QStringLiteral("打开安装目录"));
        hand.write("pathField", other);
        hand.key("pathField", Qt::Key_Return);
        hand.press("openButton");
    });
    key(window.get(), Qt::Key_O, Qt::ControlModifier);
    EXPECT_EQ(Host::instance().installation().folder, other);
    EXPECT_EQ(list->topLevelItemCount(), 1);
    EXPECT_EQ(settings->installations().first(), other);
}

TEST_F(ComfortTest, ABrokenInstallationIsSaidInTheWindowWithItsPlaceAndReadAgainWhenMended) {
    const QString folder = otherInstallation("坏");
    const QString models = folder + QStringLiteral("/models.json");
    ASSERT_TRUE(QFile::remove(models));
    host.write(QStringLiteral("坏/models.json"), "{\n\"Kvys\": 5}");
    const QString before = Host::instance().installation().folder;
    EXPECT_FALSE(window->openInstallation(folder).isEmpty());
    EXPECT_TRUE(noticeShows(QStringLiteral("安装目录无法打开")));
    EXPECT_TRUE(noticeShows(QDir::toNativeSeparators(models) + QStringLiteral(":2: Kvys")));
    EXPECT_TRUE(noticeShows(QStringLiteral("改正后重新读取")));
    EXPECT_EQ(Host::instance().installation().folder, before) << "the old one stays";
    EXPECT_FALSE(settings->installations().contains(folder));
    click(part<QPushButton>("noticeAction0"));
    EXPECT_TRUE(noticeShows(QStringLiteral("Kvys"))) << "it is still broken";
    part<QAction>("language.en")->trigger();
    EXPECT_TRUE(noticeShows(QStringLiteral("The installation cannot be opened")));
    ASSERT_TRUE(QFile::remove(models));
    ASSERT_TRUE(QFile::copy(QStringLiteral(SAMPLE_INSTALLATION "/models.json"), models));
    click(part<QPushButton>("noticeAction0"));
    EXPECT_FALSE(part<QWidget>("notice")->isVisible());
    EXPECT_EQ(Host::instance().installation().folder, folder);
}

TEST_F(ComfortTest, WithoutAnInstallationTheWindowSaysSoAndCreatesNothing) {
    window.reset();
    Host::instance().installation() = {};
    openWindow();
    EXPECT_FALSE(part<QAction>("newProjectAction")->isEnabled());
    EXPECT_EQ(text("installationFolder"), QStringLiteral("没有打开安装目录"));
    EXPECT_TRUE(child<QLabel>(list, "emptyState")->isVisible());
    EXPECT_EQ(list->topLevelItemCount(), 0);
    EXPECT_EQ(window->openInstallation(otherInstallation("新")), QString());
    EXPECT_TRUE(part<QAction>("newProjectAction")->isEnabled());
}

#ifdef Q_OS_UNIX
TEST_F(ComfortTest, AFolderThatNobodyOpensIsSaid) {
    // Nothing opens this scheme here: there is neither a desktop nor a handler.
    const QString path = qEnvironmentVariable("PATH");
    qputenv("PATH", "/nonexistent");
    clickRow("教学楼.GCFX");
    part<QAction>("showProjectInFolder")->trigger();
    EXPECT_TRUE(
        QTest::qWaitFor([this] { return noticeShows(QStringLiteral("没有程序能打开文件夹")); }));
    qputenv("PATH", path.toLocal8Bit());
    EXPECT_TRUE(noticeShows(QFileInfo(budget).path()));
    click(part<QPushButton>("noticeClose"));
    EXPECT_FALSE(part<QWidget>("notice")->isVisible());
}
#endif

TEST(FileAdvice, NamesTheCauseOfEveryReasonThatAPersonCanDoSomethingAbout) {
    const struct {
        int code;
        const char* word;
    } rows[] = {{ENOSPC, "磁盘已满"}, {EACCES, "权限"}, {EROFS, "只读"}, {EFBIG, "上限"}};
    for (const auto& row : rows) {
        const QString reason = QStringLiteral("/a/b: ") + qt_error_string(row.code);
        EXPECT_TRUE(
            QString::fromUtf8(workbench::fileAdvice(reason)).contains(QString::fromUtf8(row.word)))
            << row.word;
    }
    EXPECT_STREQ(workbench::fileAdvice(QStringLiteral("models.json:2: Kvys: must be")), "");
}

#ifdef Q_OS_UNIX

/// No file can grow until the end of the scope, as on a disk that is full.
class NoRoom {
  public:
    NoRoom() : handler(std::signal(SIGXFSZ, SIG_IGN)) {
        getrlimit(RLIMIT_FSIZE, &before);
        const rlimit none{0, before.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &none), 0);
    }
    ~NoRoom() {
        setrlimit(RLIMIT_FSIZE, &before);
        std::signal(SIGXFSZ, handler);
    }
    NoRoom(const NoRoom&) = delete;
    NoRoom& operator=(const NoRoom&) = delete;

  private:
    void (*handler)(int);
    rlimit before{};
};

TEST_F(ComfortTest, AProjectThatCannotBeWrittenIsSaidWithReasonAndAdvice) {
    {
        const NoRoom disk;
        createFromFirstCard();
    }
    EXPECT_TRUE(noticeShows(QStringLiteral("工程没有完整保存")));
    EXPECT_TRUE(noticeShows(qt_error_string(EFBIG)));
    EXPECT_TRUE(noticeShows(QStringLiteral("上限")));
    EXPECT_EQ(rows().size(), 3u);
}

#endif

TEST_F(ComfortTest, ASourceWithANulInItsNameIsSaidByIt) {
    workbench::ProjectStore store;
    QString said;
    QObject::connect(&store, &workbench::ProjectStore::failed,
                     [&said](const QString& text) { said = text; });
    store.createFromTemplate(4, 44, QStringLiteral("/a") + QChar(0) + QStringLiteral("b.MODX"));
    EXPECT_TRUE(said.contains(workbench::nulReason())) << said.toStdString();
    EXPECT_FALSE(said.contains(QChar(0)));
    EXPECT_TRUE(QString::fromUtf8(workbench::fileAdvice(said)).contains(QStringLiteral("NUL")));
}

TEST(Program, ABrokenConfigurationOpensTheWindowAndIsStillToldOnTheTerminal) {
    QTemporaryDir folder;
    QFile models(folder.filePath(QStringLiteral("models.json")));
    ASSERT_TRUE(models.open(QIODevice::WriteOnly));
    models.write("{");
    models.close();
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    program.setProcessEnvironment(environment);
    const QString settings = folder.filePath(QStringLiteral("window.ini"));
    program.start(QStringLiteral(PROGRAM), {QStringLiteral("--installation"), folder.path(),
                                            QStringLiteral("--settings"), settings});
    QByteArray told;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            told += program.readAllStandardError();
            return told.contains("models.json:1: ");
        },
        20000))
        << told.toStdString();
    EXPECT_EQ(program.state(), QProcess::Running) << "the window stays";
#ifdef Q_OS_WIN  // where only a window on the screen could be asked to close
    program.kill();
#else
    program.terminate();
#endif
    EXPECT_TRUE(program.waitForFinished(20000));
}

}  // namespace

}  // namespace testing_support
