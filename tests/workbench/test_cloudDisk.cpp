// The cloud disks behind zFileDialog: their records, downloads, and answers gone wrong.
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include "fileDialog.h"
#include "tests/support/TestSupport.h"
#include "tests/workbench/Writer.h"
#include "workbench/hostlibs/common/FileDialogState.h"
#include "workbench/hostlibs/fileDialog/CloudBrowser.h"
#include "workbench/hostlibs/fileDialog/CloudDisk.h"

#ifdef Q_OS_LINUX
#include <sys/inotify.h>
#include <unistd.h>
#endif

using namespace testing_support;

namespace {

const char* const personal = "CloudDisks/个人云盘/";
const char* const company = "CloudDisks/企业云盘/";

QJsonArray list(const QJsonObject& answer) {
    return workbench::cloud::nodesOf(answer);
}

QJsonArray children(const QJsonValue& node) {
    return node.toObject().value(QStringLiteral("xjdata")).toArray();
}

QString text(const QJsonValue& node, const char* key) {
    return node.toObject().value(QLatin1String(key)).toString();
}

Lines names(const QJsonArray& nodes) {
    Lines lines;
    for (const QJsonValue& node : nodes) lines.push_back(text(node, "wjjmc").toStdString());
    return lines;
}

int code(const QJsonObject& answer) {
    return answer.value(QStringLiteral("code")).toInt(-1);
}

QByteArray content(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

class CloudDisk : public testing::Test {
  protected:
    QString put(const char* disk, const char* file, const QByteArray& content = "x") {
        return host.write(utf(disk) + utf(file), content);
    }
    QString downloads(const char* file) { return host.path(utf("Downloads/") + utf(file)); }

    TemporaryInstallation host;
};

}  // namespace

TEST_F(CloudDisk, ThePersonalTreeIsOneAnswerBelowARootNode) {
    put(personal, "项目/二〇二四/楼.GCFX");
    put(personal, "桥.GCFG");
    const QJsonObject answer = zFileDialog::LoadGrypData();
    EXPECT_EQ(code(answer), 0);
    ASSERT_TRUE(answer.value(QStringLiteral("data")).isObject());
    const QJsonValue root = list(answer).first();
    EXPECT_EQ(text(root, "wjjmc"), utf("根目录"));
    ASSERT_EQ(names(children(root)), (Lines{"项目", "桥.GCFG"}));
    const QJsonValue folder = children(root).at(0);
    EXPECT_EQ(text(folder, "wjlx"), utf("1"));
    const QJsonValue file = children(children(folder).at(0)).at(0);
    EXPECT_EQ(text(file, "wjjmc"), utf("楼.GCFX"));
    EXPECT_EQ(text(file, "wjlx"), utf("2"));
    EXPECT_FALSE(text(file, "xzlj").isEmpty());
}

TEST_F(CloudDisk, TheEnterpriseDiskAnswersFolderByFolder) {
    put(company, "造价部/预算/楼.GCFX");
    const QJsonObject top = zFileDialog::LoadQyypData();
    ASSERT_TRUE(top.value(QStringLiteral("data")).isArray());
    const QJsonValue department = list(top).at(0);
    EXPECT_EQ(text(department, "wjjmc"), utf("造价部"));
    EXPECT_TRUE(children(department).isEmpty());
    const QJsonObject second =
        zFileDialog::LoadQyypMlData(text(department, "wjjid"), text(department, "wjjgsqyid"));
    EXPECT_EQ(code(second), 0);
    ASSERT_EQ(names(list(second)), Lines{"预算"});
    const QJsonValue inner = list(second).at(0);
    const QJsonObject third =
        zFileDialog::LoadQyypMlData(text(inner, "wjjid"), text(inner, "wjjgsqyid"));
    EXPECT_EQ(names(list(third)), Lines{"楼.GCFX"});
}

TEST_F(CloudDisk, TheJournalHoldsTheNumberOfNodesInPlaceOfATree) {
    put(personal, "a/b/c.GCFX");
    put(company, "d.GCFX");
    zFileDialog::LoadGrypData();
    zFileDialog::LoadQyypData();
    zFileDialog::IsExistDownLoadfile(utf("d.GCFX"), utf("企业云盘"));
    EXPECT_EQ(answered("zFileDialog::LoadGrypData").toObject().value(QStringLiteral("data")), 4);
    EXPECT_EQ(answered("zFileDialog::LoadQyypData").toObject().value(QStringLiteral("data")), 1);
    EXPECT_EQ(journalNames({"call"}),
              (Lines{"zFileDialog::LoadGrypData", "zFileDialog::LoadQyypData",
                     "zFileDialog::IsExistDownLoadfile"}));
    const QJsonObject copy = answered("zFileDialog::IsExistDownLoadfile").toObject();
    EXPECT_FALSE(copy.value(QStringLiteral("data"))
                     .toObject()
                     .value(QStringLiteral("isExist"))
                     .toBool(true));
}

TEST_F(CloudDisk, NoEnterpriseFolderIsReachedOutsideTheDisk) {
    put(personal, "秘密/a.GCFX");
    put(company, "公开/b.GCFX");
    ASSERT_TRUE(QDir().mkpath(host.path(QStringLiteral("CloudDisks/企业云盘乙"))));
    ASSERT_TRUE(QFile::link(host.folder(), host.path(utf(company) + QStringLiteral("link"))));
    const QString enterprise = text(list(zFileDialog::LoadQyypData()).at(0), "wjjgsqyid");
    ASSERT_EQ(code(zFileDialog::LoadQyypMlData(utf("企业云盘/公开"), enterprise)), 0);
    const char* const ids[] = {"",
                               "/",
                               "..",
                               "企业云盘/..",
                               "企业云盘/",
                               "企业云盘乙",
                               "/etc",
                               "个人云盘/秘密",
                               "企业云盘/公开/../../个人云盘",
                               "企业云盘/公开/b.GCFX",
                               "企业云盘/link",
                               "企业云盘/没有"};
    for (const char* id : ids) {
        const QJsonObject answer = zFileDialog::LoadQyypMlData(utf(id), enterprise);
        EXPECT_EQ(code(answer), 1) << id;
        EXPECT_FALSE(text(answer, "msg").isEmpty()) << id;
    }
    EXPECT_EQ(code(zFileDialog::LoadQyypMlData(utf("企业云盘/公开"), utf("qy9"))), 1);
}

#ifdef Q_OS_UNIX
TEST_F(CloudDisk, LinksOfTheFileSystemAreNoNodes) {
    put(personal, "a/b.GCFX");
    ASSERT_TRUE(QFile::link(host.path(utf(personal)), host.path(utf(personal) + utf("a/loop"))));
    const QJsonArray top = children(list(zFileDialog::LoadGrypData()).first());
    EXPECT_EQ(names(children(top.at(0))), Lines{"b.GCFX"});
}
#endif

TEST_F(CloudDisk, ADownloadCopiesTheFileBelowTheDownloads) {
    put(company, "造价部/楼.GCFX", "the building");
    const QString link = utf("企业云盘/造价部/楼.GCFX");
    const QJsonObject before =
        zFileDialog::IsExistDownLoadfile(utf("楼.GCFX"), utf("企业云盘/造价部"));
    const QJsonObject where = before.value(QStringLiteral("data")).toObject();
    EXPECT_FALSE(where.value(QStringLiteral("isExist")).toBool());
    const QString path = text(where, "filPath");
    EXPECT_EQ(path, downloads("企业云盘/造价部/楼.GCFX"));
    const QJsonObject answer =
        zFileDialog::downLoadYunpanFile(utf("楼.GCFX"), link, path, QStringLiteral("0"));
    EXPECT_EQ(code(answer), 0);
    EXPECT_EQ(text(answer, "data"), path);
    EXPECT_EQ(content(path), "the building");
    const QJsonObject after =
        zFileDialog::IsExistDownLoadfile(utf("楼.GCFX"), utf("企业云盘/造价部"));
    EXPECT_TRUE(
        after.value(QStringLiteral("data")).toObject().value(QStringLiteral("isExist")).toBool());
}

TEST_F(CloudDisk, TheSeparatorOfCloudPathsIsTheHosts) {
    zFileDialog::pathFgf = QStringLiteral("|");
    const QJsonObject answer = zFileDialog::IsExistDownLoadfile(utf("a.GCFX"), utf("个人云盘|b"));
    EXPECT_EQ(text(answer.value(QStringLiteral("data")), "filPath"),
              downloads("个人云盘/b/a.GCFX"));
    EXPECT_EQ(code(zFileDialog::IsExistDownLoadfile(utf("a.GCFX"), utf("个人云盘/b"))), 1);
}

TEST_F(CloudDisk, OnlyACurrentCopyThatTheCallerKnowsOfIsKept) {
    struct Case {
        const char* title;
        const char* flag;
        QByteArray local;
        int ageOfCopy;  // seconds against the cloud file
        QByteArray expected;
    };
    const Case cases[] = {{"newer copy of the same size", "1", "mine", 10, "mine"},
                          {"the caller knows of none", "0", "mine", 10, "disk"},
                          {"older than the cloud file", "1", "mine", -10, "disk"},
                          {"of another size", "1", "mine too", 10, "disk"}};
    const QDateTime time = QDateTime::currentDateTime().addDays(-1);
    for (const Case& each : cases) {
        const auto stamp = [](const QString& path, const QDateTime& when) {
            QFile file(path);
            return file.open(QIODevice::ReadWrite) &&
                   file.setFileTime(when, QFileDevice::FileModificationTime);
        };
        ASSERT_TRUE(stamp(put(personal, "a.GCFX", "disk"), time));
        const QString copy = host.write(utf("Downloads/个人云盘/a.GCFX"), each.local);
        ASSERT_TRUE(stamp(copy, time.addSecs(each.ageOfCopy)));
        const QJsonObject answer = zFileDialog::downLoadYunpanFile(
            utf("a.GCFX"), utf("个人云盘/a.GCFX"), copy, QLatin1String(each.flag));
        EXPECT_EQ(code(answer), 0) << each.title;
        EXPECT_EQ(content(copy), each.expected) << each.title;
    }
}

#ifdef Q_OS_LINUX

TEST_F(CloudDisk, TheEarlierCopyHasItsNameUntilTheNewOneTakesIt) {
    put(personal, "a.GCFX", "new");
    const QString copy = host.write(utf("Downloads/个人云盘/a.GCFX"), "old");
    const int watch = inotify_init1(IN_NONBLOCK);
    const QByteArray folder = QFile::encodeName(QFileInfo(copy).path());
    ASSERT_GE(inotify_add_watch(watch, folder.constData(), IN_DELETE | IN_MOVED_TO), 0);
    const QJsonObject answer = zFileDialog::downLoadYunpanFile(
        utf("a.GCFX"), utf("个人云盘/a.GCFX"), copy, QStringLiteral("0"));
    EXPECT_EQ(code(answer), 0);
    EXPECT_EQ(content(copy), "new");
    alignas(inotify_event) char events[4096];
    ASSERT_GT(read(watch, events, sizeof events), 0);
    close(watch);
    EXPECT_EQ(reinterpret_cast<const inotify_event*>(events)->mask, IN_MOVED_TO)
        << "the earlier copy was removed first";
}

#endif

TEST_F(CloudDisk, TwoWorkbenchesFetchTheSameFileAtTheSameTime) {
    const QByteArray disk = QByteArray(100000, 'x') + "end";
    put(personal, "a.GCFX", disk);
    int others = 0;
    const auto another = [&](qint64, qint64) {
        if (others++ > 0) return true;
        Writer writer({QStringLiteral("download"), host.folder(), utf("a.GCFX")});
        EXPECT_TRUE(writer.finish());
        EXPECT_EQ(content(downloads("个人云盘/a.GCFX")), disk) << "of the other";
        return true;
    };
    workbench::CloudBrowser browser([] { return true; }, another);
    ASSERT_TRUE(browser.goTo(workbench::PersonalPlace));
    workbench::FileAnswer answer;
    ASSERT_TRUE(browser.download(utf("a.GCFX"), answer)) << browser.error().toStdString();
    EXPECT_GT(others, 1);
    EXPECT_EQ(content(answer.path), disk);
    EXPECT_EQ(filesIn(QFileInfo(answer.path).path()), QStringList{utf("a.GCFX")});
}

TEST_F(CloudDisk, ADownloadNeverReadsOrWritesOutsideItsFolders) {
    struct Case {
        const char* name;
        const char* link;
        const char* localPath;
    };
    const QString good = put(personal, "a.GCFX", "cloud");
    put(personal, "folder/b.GCFX");
    const QString secret = host.write(QStringLiteral("secret.txt"), "secret");
#ifdef Q_OS_UNIX
    ASSERT_TRUE(QFile::link(secret, host.path(utf(personal) + QStringLiteral("link"))));
#endif
    ASSERT_TRUE(QDir().mkpath(host.path(QStringLiteral("Downloads"))));
#ifdef Q_OS_UNIX
    ASSERT_TRUE(QFile::link(host.path(QStringLiteral("ProjectFiles")),
                            host.path(QStringLiteral("Downloads/out"))));
#endif
    const Case cases[] = {{"secret.txt", "个人云盘/../../secret.txt", ""},
                          {"link", "个人云盘/link", ""},
                          {"a.GCFX", "", ""},
                          {"a.GCFX", "/个人云盘/a.GCFX", ""},
                          {"b.GCFX", "个人云盘/a.GCFX", ""},
                          {"folder", "个人云盘/folder", ""},
                          {"gone.GCFX", "个人云盘/gone.GCFX", ""},
                          {"a.GCFX", "个人云盘/a.GCFX", "/tmp/a.GCFX"},
                          {"a.GCFX", "个人云盘/a.GCFX", "Downloads/../ProjectFiles/a.GCFX"},
#ifdef Q_OS_UNIX
                          {"a.GCFX", "个人云盘/a.GCFX", "Downloads/out/a.GCFX"},
#endif
                          {"a.GCFX", "个人云盘/a.GCFX", "ProjectFiles/a.GCFX"}};
    for (const Case& each : cases) {
        QString target = utf(each.localPath);
        if (!target.isEmpty() && !target.startsWith(QLatin1Char('/'))) target = host.path(target);
        const QJsonObject answer = zFileDialog::downLoadYunpanFile(utf(each.name), utf(each.link),
                                                                   target, QStringLiteral("0"));
        EXPECT_EQ(code(answer), 1) << each.link << " to " << each.localPath;
        EXPECT_FALSE(text(answer, "msg").isEmpty());
        EXPECT_EQ(text(answer, "data"), QString());
    }
    EXPECT_TRUE(QDir(host.path(QStringLiteral("ProjectFiles"))).isEmpty());
    EXPECT_EQ(content(good), "cloud");
}

TEST_F(CloudDisk, NamesThatAreNoPlainNamesHaveNoLocalCopy) {
    for (const char* name : {"", ".", "..", "a/b", "../a", "a\\b"})
        EXPECT_EQ(code(zFileDialog::IsExistDownLoadfile(utf(name), utf("个人云盘"))), 1) << name;
    EXPECT_EQ(code(zFileDialog::IsExistDownLoadfile(utf("a"), utf("个人云盘/.."))), 1);
    for (const char* name : {"a.GCFX", "文件 “甲”.GCFX", "😀.GCFX", "...", " "})
        EXPECT_EQ(code(zFileDialog::IsExistDownLoadfile(utf(name), utf("个人云盘"))), 0) << name;
}

TEST_F(CloudDisk, ARefusingServiceAnswersEverythingWithAMessage) {
    put(company, "a.GCFX");
    host.switches().cloud.refused = true;
    const QJsonObject answers[] = {
        zFileDialog::LoadGrypData(), zFileDialog::LoadQyypData(),
        zFileDialog::LoadQyypMlData(utf("企业云盘"), utf("qy001")),
        zFileDialog::IsExistDownLoadfile(utf("a.GCFX"), utf("企业云盘")),
        zFileDialog::downLoadYunpanFile(utf("a.GCFX"), utf("企业云盘/a.GCFX"), QString(),
                                        QStringLiteral("0"))};
    for (const QJsonObject& answer : answers) {
        EXPECT_EQ(code(answer), 1);
        EXPECT_FALSE(text(answer, "msg").isEmpty());
    }
    EXPECT_FALSE(QFile::exists(downloads("企业云盘/a.GCFX")));
}

TEST_F(CloudDisk, ABrokenServiceSpoilsEveryAnswerInTheSameWayEachTime) {
    for (int i = 0; i < 12; ++i) put(personal, qPrintable(QStringLiteral("f%1/a.GCFX").arg(i)));
    put(company, "a.GCFX");
    const QJsonObject whole = zFileDialog::LoadGrypData();
    host.switches().cloud.broken = true;
    const QJsonObject spoilt = zFileDialog::LoadGrypData();
    EXPECT_EQ(spoilt, zFileDialog::LoadGrypData());
    EXPECT_LT(children(list(spoilt).first()).size(), children(list(whole).first()).size());
    bool nameless = false, typeless = false, childless = false, nodeless = false;
    for (const auto& node : children(list(spoilt).first())) {
        const QJsonObject object = node.toObject();
        nodeless |= !node.isObject();
        nameless |= node.isObject() && !object.contains(QStringLiteral("wjjmc"));
        typeless |= object.value(QStringLiteral("wjlx")).isDouble();
        childless |= object.value(QStringLiteral("xjdata")).isString();
    }
    EXPECT_TRUE(nameless && typeless && childless && nodeless);
    const QJsonObject copy = zFileDialog::IsExistDownLoadfile(utf("a.GCFX"), utf("企业云盘"));
    EXPECT_FALSE(copy.value(QStringLiteral("data")).toObject().contains(QStringLiteral("isExist")));
    const QJsonObject file = zFileDialog::downLoadYunpanFile(utf("a.GCFX"), utf("企业云盘/a.GCFX"),
                                                             QString(), QStringLiteral("0"));
    EXPECT_FALSE(file.value(QStringLiteral("data")).isString());
}

TEST_F(CloudDisk, ASlowServiceTakesItsTimeAndLetsTheProgramLive) {
    host.switches().cloud.slow = true;
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&ticks] { ++ticks; });
    timer.start(100);
    QElapsedTimer clock;
    clock.start();
    zFileDialog::LoadQyypData();
    EXPECT_GE(clock.elapsed(), workbench::cloud::slowAnswerMs - 50);
    EXPECT_GE(ticks, 5);
    EXPECT_FALSE(QGuiApplication::overrideCursor());
}

TEST_F(CloudDisk, TenThousandNodesTenLevelsDeepAreServed) {
    const QString top = host.path(utf(personal));
    for (int branch = 0; branch < 100; ++branch) {
        QString folder = top + QString::number(branch);
        for (int level = 0; level < 9; ++level) folder += QStringLiteral("/层");
        ASSERT_TRUE(QDir().mkpath(folder));
        for (int file = 0; file < 90; ++file) {
            QFile out(folder + QStringLiteral("/%1.GCFX").arg(file));
            ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        }
    }
    EXPECT_EQ(workbench::cloud::countNodes(list(zFileDialog::LoadGrypData())), 100 * 100 + 1);
}

TEST_F(CloudDisk, TheBrowserAsksOncePerEnterpriseFolderAndNothingOnTheWayUp) {
    put(company, "一/二/a.GCFX");
    put(personal, "一/二/a.GCFX");
    int asked = 0;
    workbench::CloudBrowser browser([&asked] { return ++asked > 0; });
    ASSERT_TRUE(browser.goTo(workbench::CompanyPlace, {utf("一"), utf("二")}));
    EXPECT_EQ(asked, 3);
    EXPECT_EQ(browser.path(), utf("企业云盘/一/二"));
    EXPECT_FALSE(browser.folderId().isEmpty());
    EXPECT_TRUE(browser.up() && browser.up());
    EXPECT_FALSE(browser.up());
    EXPECT_EQ(asked, 3);
    ASSERT_TRUE(browser.goTo(workbench::PersonalPlace, {utf("一"), utf("二")}));
    EXPECT_EQ(asked, 4);
}

TEST_F(CloudDisk, AFailedStepLeavesTheBrowserWhereItWas) {
    put(company, "一/a.GCFX");
    bool patient = true;
    workbench::CloudBrowser browser([&patient] { return patient; });
    ASSERT_TRUE(browser.goTo(workbench::CompanyPlace, {utf("一")}));
    EXPECT_FALSE(browser.enter(utf("a.GCFX")));
    EXPECT_FALSE(browser.enter(QString()));
    EXPECT_FALSE(browser.goTo(workbench::CompanyPlace, {utf("没有")}));
    EXPECT_FALSE(browser.error().isEmpty());
    patient = false;
    EXPECT_FALSE(browser.goTo(workbench::PersonalPlace));
    EXPECT_TRUE(browser.error().isEmpty());
    EXPECT_EQ(browser.path(), utf("企业云盘/一"));
}
