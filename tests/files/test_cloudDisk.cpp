#include "files/cloudDisk.h"

#include <map>

#include "core/guard.h"
#include "fileDialog.h"
#include "tests/files/FileTesting.h"

namespace {

using files_testing::boxLine;
using testing_support::countOf;
using testing_support::Lines;

const QString connectionLost = QStringLiteral("无法连接到原云盘地址");

class CloudDisk : public testing::Test {
  protected:
    CloudDisk() {
        host.write(QStringLiteral("CloudDisks/企业云盘/甲/乙/工程.GCFX"), "company");
        host.write(QStringLiteral("CloudDisks/个人云盘/我的/工程.GCFX"), "personal");
    }
    bool resolve(const QString& cloudPath, bool select = false) {
        testing_support::clearJournal();
        return newpro::resolveCloudPath(local, cloudPath, select, dialog.pages);
    }
    static QByteArray contentOf(const QString& file) {
        QFile in(file);
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
    }
    Lines boxes() const { return testing_support::journalLines({"box"}); }
    /// @return the arguments of the download.
    QJsonArray asked() const {
        return testing_support::entriesOf("zFileDialog::downLoadYunpanFile")
            .value(0)
            .value(QLatin1String("args"))
            .toArray();
    }
    void listFile(const QString& path, const QString& user, const QString& before = QString()) {
        QStringList fields{path, user};
        while (fields.size() < 15) fields.append(QStringLiteral("x"));
        host.write(QStringLiteral("FileList.Ini"),
                   (QStringLiteral("bd##/a.GCFX\r\n") + before + fields.join(QChar(0x1F)) +
                    QStringLiteral("\r\n"))
                       .toUtf8());
        host.switches().account.loggedIn = true;
        host.switches().account.userId = QStringLiteral("u1");
    }

    const QString company = QStringLiteral("企业云盘/甲/乙/工程.GCFX");
    const QString personal = QStringLiteral("个人云盘/我的/工程.GCFX");
    testing_support::TemporaryInstallation host;
    testing_support::FakeDialog dialog;
    QString local = QStringLiteral("as before");
};

TEST_F(CloudDisk, TheEnterpriseDiskIsAskedOncePerLevel) {
    ASSERT_TRUE(resolve(company));
    EXPECT_EQ(contentOf(local), "company");
    EXPECT_EQ(
        testing_support::journalNames({"call"}),
        (Lines{"Users::Instance", "Users::Kvy", "UserInfo::IsLogin", "zFileDialog::LoadQyypData",
               "zFileDialog::LoadQyypMlData", "zFileDialog::LoadQyypMlData",
               "zFileDialog::IsExistDownLoadfile", "zFileDialog::downLoadYunpanFile"}));
}

TEST_F(CloudDisk, ThePersonalDiskIsAskedOnceInAll) {
    ASSERT_TRUE(resolve(personal));
    EXPECT_EQ(contentOf(local), "personal");
    EXPECT_EQ(
        testing_support::journalNames({"call"}),
        (Lines{"Users::Instance", "Users::Kvy", "UserInfo::IsLogin", "zFileDialog::LoadGrypData",
               "zFileDialog::IsExistDownLoadfile", "zFileDialog::downLoadYunpanFile"}));
}

TEST_F(CloudDisk, ADeepPathCostsOneRequestPerLevel) {
    QString folder = QStringLiteral("企业云盘");
    for (int level = 0; level < 9; ++level) folder += QStringLiteral("/层%1").arg(level);
    host.write(QStringLiteral("CloudDisks/") + folder + QStringLiteral("/a.GCFX"));
    ASSERT_TRUE(resolve(folder + QStringLiteral("/a.GCFX")));
    EXPECT_EQ(countOf("zFileDialog::LoadQyypData") + countOf("zFileDialog::LoadQyypMlData"), 10);
}

TEST_F(CloudDisk, TheDownloadIsAskedForWithTheFlagOfAnEarlierCopy) {
    ASSERT_TRUE(resolve(company));
    EXPECT_EQ(asked().at(3).toString(), QStringLiteral("0"));
    ASSERT_TRUE(resolve(company));
    EXPECT_EQ(asked().at(3).toString(), QStringLiteral("1"));
    EXPECT_EQ(asked().at(2).toString(), local);
    EXPECT_EQ(testing_support::entriesOf("zFileDialog::IsExistDownLoadfile")
                  .value(0)
                  .value(QLatin1String("args"))
                  .toArray(),
              (QJsonArray{QStringLiteral("工程.GCFX"), QStringLiteral("企业云盘/甲/乙")}));
}

TEST_F(CloudDisk, TheSeparatorIsTheHosts) {
    zFileDialog::pathFgf = QStringLiteral("|");
    EXPECT_TRUE(resolve(QStringLiteral("|企业云盘||甲|乙|工程.GCFX")));
    EXPECT_EQ(contentOf(local), "company");
    EXPECT_FALSE(resolve(company));
}

TEST_F(CloudDisk, AComponentThatIsNotFoundEndsItWithoutABox) {
    for (const char* path :
         {"企业云盘/甲/丙/工程.GCFX", "企业云盘/甲/乙/别的.GCFX", "企业云盘/甲/丁",
          "个人云盘/x/工程.GCFX", "个人云盘/我的/工程.GCFX/x", "个人云盘"}) {
        EXPECT_FALSE(resolve(QString::fromUtf8(path))) << path;
        EXPECT_EQ(boxes(), Lines{}) << path;
        EXPECT_EQ(countOf("zFileDialog::downLoadYunpanFile"), 0) << path;
    }
    EXPECT_EQ(local, QStringLiteral("as before"));
}

TEST_F(CloudDisk, TheLastComponentIsFoundByItsNameAlone) {
    // A folder is no file, which only the download can tell.
    for (const char* path : {"企业云盘/甲/乙", "个人云盘/我的"}) {
        EXPECT_FALSE(resolve(QString::fromUtf8(path))) << path;
        EXPECT_EQ(countOf("zFileDialog::downLoadYunpanFile"), 1) << path;
        EXPECT_EQ(boxes(), Lines{boxLine(connectionLost)}) << path;
    }
}

TEST_F(CloudDisk, AnEnterprisePathOfOneComponentIsToldAndNotAskedFor) {
    for (const char* path : {"企业云盘", "", "/", "别的"}) {
        EXPECT_FALSE(resolve(QString::fromUtf8(path)));
        EXPECT_EQ(boxes(), Lines{boxLine(connectionLost)}) << path;
        EXPECT_EQ(countOf("zFileDialog::LoadQyypData"), 0);
    }
}

TEST_F(CloudDisk, ARefusedFolderShowsTheMessageOfTheService) {
    // The service starts to refuse behind the disk's top level.
    const auto connection =
        QObject::connect(&workbench::Journal::instance(), &workbench::Journal::recorded,
                         [&](const QJsonObject& entry) {
                             const QString name = entry.value(QLatin1String("name")).toString();
                             if (name == QLatin1String("zFileDialog::LoadQyypData"))
                                 host.switches().cloud.refused = true;
                         });
    const bool found = resolve(company);
    QObject::disconnect(connection);
    EXPECT_FALSE(found);
    EXPECT_EQ(boxes(), Lines{boxLine(QStringLiteral("云盘服务拒绝了请求，请稍后再试"))});
    EXPECT_EQ(countOf("zFileDialog::downLoadYunpanFile"), 0);
    EXPECT_EQ(local, QStringLiteral("as before"));
}

TEST_F(CloudDisk, TheTopLevelIsNotJudgedByItsCode) {
    host.switches().cloud.refused = true;
    for (const QString& path : {company, personal}) {
        EXPECT_FALSE(resolve(path));
        EXPECT_EQ(boxes(), Lines{}) << "what is refused has no nodes, and that is all";
        EXPECT_EQ(countOf("zFileDialog::downLoadYunpanFile"), 0);
    }
    EXPECT_EQ(local, QStringLiteral("as before"));
}

TEST_F(CloudDisk, ARefusedDownloadIsTold) {
    // The service starts to refuse between the listing and the download.
    const auto connection =
        QObject::connect(&workbench::Journal::instance(), &workbench::Journal::recorded,
                         [&](const QJsonObject& entry) {
                             const QString name = entry.value(QLatin1String("name")).toString();
                             if (name == QLatin1String("zFileDialog::IsExistDownLoadfile")) {
                                 host.switches().cloud.refused = true;
                             }
                         });
    const bool found = resolve(company);
    QObject::disconnect(connection);
    EXPECT_FALSE(found);
    EXPECT_EQ(boxes(), Lines{boxLine(connectionLost)});
    EXPECT_EQ(local, QStringLiteral("as before"));
}

TEST_F(CloudDisk, BrokenAnswersNeverGiveAPath) {
    host.switches().cloud.broken = true;
    for (const QString& path : {company, personal}) {
        EXPECT_FALSE(resolve(path));
        EXPECT_LE(boxes().size(), 1u);
        EXPECT_EQ(local, QStringLiteral("as before"));
    }
}

TEST_F(CloudDisk, AFileOfAnotherAccountIsNotFound) {
    listFile(company, QStringLiteral("u2"));
    EXPECT_FALSE(resolve(company));
    EXPECT_EQ(boxes(), Lines{R"(box showCritical("提示", "未找到该工程文件", ["确定"]))"});
    EXPECT_EQ(countOf("zFileDialog::LoadQyypData"), 0);
    EXPECT_TRUE(resolve(personal));

    listFile(company, QStringLiteral("u1"));
    EXPECT_TRUE(resolve(company));
    listFile(company, QStringLiteral("u2"));
    host.switches().account.loggedIn = false;
    EXPECT_TRUE(resolve(company));
}

TEST_F(CloudDisk, TheFileListDoesNotEndAtANul) {
    listFile(company, QStringLiteral("u2"), QString(QChar::Null) + QLatin1Char('\n'));
    EXPECT_FALSE(resolve(company));
}

TEST_F(CloudDisk, TheFlagSelectsTheItemOfTheAuditPageAndNothingElse) {
    zBaseCombox* combo = dialog.pages.audit.fileCombo;
    for (const QString& item : {QStringLiteral("x"), company}) combo->addItem(item);
    EXPECT_TRUE(resolve(company, false));
    EXPECT_EQ(combo->currentIndex(), 0);
    EXPECT_TRUE(resolve(company, true));
    EXPECT_EQ(combo->currentIndex(), 1);
    EXPECT_TRUE(resolve(personal, true));
    EXPECT_EQ(combo->currentIndex(), 1);
    dialog.pages = {};
    EXPECT_TRUE(resolve(company, true));
}

TEST_F(CloudDisk, AnExceptionAtAnyHostCallIsReportedOnceAndASecondTrySucceeds) {
    listFile(company, QStringLiteral("u1"));
    ASSERT_TRUE(resolve(company));
    const Lines calls = testing_support::journalNames({"call"});
    std::map<std::string, int> seen;
    for (const std::string& call : calls) {
        const int nth = ++seen[call];
        for (const auto& kind : testing_support::thrownKinds()) {
            SCOPED_TRACE(call + " as " + kind.name);
            local = QStringLiteral("as before");
            testing_support::throwAt(call.c_str(), kind.as, nth);
            const bool found = newpro::guardedOr({"NewProCfgDialog", "slot"}, false,
                                                 [&] { return resolve(company); });
            EXPECT_FALSE(found);
            EXPECT_EQ(local, QStringLiteral("as before"));
            EXPECT_EQ(testing_support::journalLines({"exception"}),
                      Lines{std::string("exception NewProCfgDialog::slot: ") + kind.reported});
            testing_support::throwNoMore();
            EXPECT_TRUE(resolve(company));
        }
    }
}

}  // namespace
