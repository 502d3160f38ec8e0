#include "files/cloudDisk.h"

#include <map>

#include "core/guard.h"
#include "fileDialog.h"
#include "tests/files/RecordingDialog.h"
#include "tests/files/properties.h"

namespace {

using files_testing::boxLine;
using newpro::findInCloud;
using testing_support::countOf;
using testing_support::Lines;

const QString connectionLost = QStringLiteral("无法连接到原云盘地址");

QJsonObject node(const QString& name, bool folder, const QJsonArray& children = {}) {
    return {{QStringLiteral("wjjmc"), name},
            {QStringLiteral("wjlx"), folder ? QStringLiteral("1") : QStringLiteral("2")},
            {QStringLiteral("xjdata"), children},
            {QStringLiteral("xzlj"), QStringLiteral("link of ") + name}};
}

QJsonArray childrenOf(const QJsonObject& folder) {
    return folder.value(QLatin1String("xjdata")).toArray();
}

TEST(CloudWalk, FetchesEachFolderOnTheWayOnceAndNoOther) {
    const QJsonArray top{
        node(QStringLiteral("b"), true),
        node(QStringLiteral("a"), true,
             {node(QStringLiteral("b"), true, {node(QStringLiteral("c.GCFX"), false)})})};
    QStringList fetched;
    const auto file =
        findInCloud(top, {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c.GCFX")},
                    [&](const QJsonObject& folder) {
                        fetched.append(folder.value(QLatin1String("wjjmc")).toString());
                        return std::optional<QJsonArray>(childrenOf(folder));
                    });
    ASSERT_TRUE(file);
    EXPECT_EQ(file->value(QLatin1String("xzlj")).toString(), QStringLiteral("link of c.GCFX"));
    EXPECT_EQ(fetched, (QStringList{QStringLiteral("a"), QStringLiteral("b")}));
}

TEST(CloudWalk, TheWayLeadsThroughFoldersAndEndsAtAFile) {
    const QJsonArray top{node(QStringLiteral("x"), false),
                         node(QStringLiteral("x"), true, {node(QStringLiteral("y"), false)})};
    const auto fetch = [](const QJsonObject& folder) {
        return std::optional<QJsonArray>(childrenOf(folder));
    };
    EXPECT_TRUE(findInCloud(top, {QStringLiteral("x")}, fetch));
    EXPECT_TRUE(findInCloud(top, {QStringLiteral("x"), QStringLiteral("y")}, fetch));
    EXPECT_FALSE(findInCloud(top, {QStringLiteral("X")}, fetch));
    EXPECT_FALSE(findInCloud(top, {QStringLiteral("y"), QStringLiteral("x")}, fetch));
    EXPECT_FALSE(findInCloud(top, {}, fetch));
    EXPECT_FALSE(findInCloud({}, {QStringLiteral("x")}, fetch));
}

TEST(CloudWalk, EndsWhenAFolderIsRefused) {
    const QJsonArray top{node(QStringLiteral("x"), true, {node(QStringLiteral("y"), false)})};
    EXPECT_FALSE(findInCloud(top, {QStringLiteral("x"), QStringLiteral("y")},
                             [](const QJsonObject&) { return std::nullopt; }));
}

TEST(CloudWalk, RecordsWithoutMembersOrOfOtherTypesArePassedOver) {
    const QJsonArray damaged{
        QJsonValue(),
        7,
        QStringLiteral("x"),
        QJsonArray{1},
        QJsonObject(),
        QJsonObject{{QStringLiteral("wjjmc"), 7}, {QStringLiteral("wjlx"), QStringLiteral("1")}},
        QJsonObject{{QStringLiteral("wjjmc"), QStringLiteral("x")}, {QStringLiteral("wjlx"), 1}},
        node(QStringLiteral("x"), true, {node(QStringLiteral("y"), false)})};
    EXPECT_TRUE(findInCloud(
        damaged, {QStringLiteral("x"), QStringLiteral("y")},
        [](const QJsonObject& folder) { return std::optional<QJsonArray>(childrenOf(folder)); }));
}

TEST(CloudWalk, TheRootOfThePersonalDiskIsFoundByItsName) {
    const QJsonObject root =
        node(QStringLiteral("根目录"), true, {node(QStringLiteral("a"), false)});
    const auto answer = [](const QJsonValue& data) {
        return QJsonObject{{QStringLiteral("data"), data}};
    };
    const QString key = QStringLiteral("anything");
    EXPECT_EQ(newpro::personalTopLevel(answer(QJsonObject{{key, QJsonArray{root}}})).size(), 1);
    EXPECT_EQ(newpro::personalTopLevel(answer(QJsonObject{{QStringLiteral("a"), 1},
                                                          {QStringLiteral("b"), QJsonArray()},
                                                          {key, QJsonArray{root}}}))
                  .size(),
              1);
    for (const QJsonValue& data :
         {QJsonValue(), QJsonValue(1), QJsonValue(QJsonArray{root}), QJsonValue(QJsonObject()),
          QJsonValue(QJsonObject{{key, QJsonArray{node(QStringLiteral("别的"), true)}}})}) {
        EXPECT_TRUE(newpro::personalTopLevel(answer(data)).isEmpty());
    }
}

/// A tree of names, in which siblings differ.
QJsonArray anyTree(int depth) {
    QJsonArray nodes;
    const int count = *rc::gen::inRange(0, 5);
    for (int i = 0; i < count; ++i) {
        const bool folder = depth > 1 && *rc::gen::arbitrary<bool>();
        const QString name = *files_testing::anyText(QStringLiteral("工程.|")) + QString::number(i);
        nodes.append(node(name, folder, folder ? anyTree(depth - 1) : QJsonArray()));
    }
    return nodes;
}

void collectFiles(const QJsonArray& nodes, const QStringList& above, QVector<QStringList>& paths) {
    for (const QJsonValue& value : nodes) {
        const QJsonObject entry = value.toObject();
        const QStringList path =
            above + QStringList(entry.value(QLatin1String("wjjmc")).toString());
        if (entry.value(QLatin1String("wjlx")) == QLatin1String("1")) {
            collectFiles(childrenOf(entry), path, paths);
        } else {
            paths.append(path);
        }
    }
}

RC_GTEST_PROP(CloudWalk, EveryFileOfATreeIsFoundWithOneFetchPerFolder, ()) {
    const QJsonArray top = anyTree(5);
    QVector<QStringList> paths;
    collectFiles(top, {}, paths);
    for (const QStringList& path : paths) {
        int fetched = 0;
        const auto file = findInCloud(top, path, [&](const QJsonObject& folder) {
            ++fetched;
            return std::optional<QJsonArray>(childrenOf(folder));
        });
        RC_ASSERT(bool(file));
        RC_ASSERT(file->value(QLatin1String("xzlj")).toString() ==
                  QStringLiteral("link of ") + path.constLast());
        RC_ASSERT(fetched == path.size() - 1);
        const QStringList beyond = path + QStringList(QStringLiteral("x"));
        RC_ASSERT(!findInCloud(top, beyond, [](const QJsonObject& folder) {
            return std::optional<QJsonArray>(childrenOf(folder));
        }));
    }
}

QJsonValue anyJson(int depth) {
    static const QStringList keys{QStringLiteral("wjjmc"), QStringLiteral("wjlx"),
                                  QStringLiteral("xjdata"), QStringLiteral("data")};
    switch (*rc::gen::inRange(0, depth > 0 ? 6 : 4)) {
        case 0:
            return QJsonValue();
        case 1:
            return *rc::gen::arbitrary<bool>();
        case 2:
            return *rc::gen::arbitrary<double>();
        case 3:
            return *rc::gen::element(QStringLiteral("1"), QStringLiteral("a"), QString());
        case 4: {
            QJsonArray list;
            for (int i = *rc::gen::inRange(0, 4); i > 0; --i) list.append(anyJson(depth - 1));
            return list;
        }
        default: {
            QJsonObject object;
            for (const QString& key : keys) {
                if (*rc::gen::arbitrary<bool>()) object.insert(key, anyJson(depth - 1));
            }
            return object;
        }
    }
}

RC_GTEST_PROP(CloudWalk, AnyJsonIsWalkedAndOnlyAFileOfTheNameIsFound, ()) {
    const QJsonValue answer = anyJson(6);
    newpro::personalTopLevel(answer.toObject());
    const auto file = findInCloud(
        answer.toArray(), {QStringLiteral("a"), QStringLiteral("a")},
        [](const QJsonObject& folder) { return std::optional<QJsonArray>(childrenOf(folder)); });
    if (!file) return;
    RC_ASSERT(file->value(QLatin1String("wjjmc")) == QJsonValue(QStringLiteral("a")));
    RC_ASSERT(file->value(QLatin1String("wjlx")) != QJsonValue(QStringLiteral("1")));
}

TEST(CloudOwner, OnlyARecordOfAnotherUserForThisPathCounts) {
    const QString path = QStringLiteral("企业云盘/a.GCFX");
    const auto record = [](const QString& first, const QString& user, int count) {
        QStringList fields{first, user};
        while (fields.size() < count) fields.append(QStringLiteral("x"));
        return fields.join(QLatin1String("##"));
    };
    const QString u1 = QStringLiteral("u1");
    const QString u2 = QStringLiteral("u2");
    const struct {
        const char* name;
        QStringList list;
        bool another;
    } rows[] = {
        {"no list", {}, false},
        {"own record", {record(path, u1, 15)}, false},
        {"record of another", {record(path, u2, 15)}, true},
        {"own record among others", {record(path, u2, 15), record(path, u1, 15)}, false},
        {"another path", {record(path + QLatin1Char('x'), u2, 15)}, false},
        {"another layout", {record(path, u2, 14), QStringLiteral("yp##") + path}, false},
        {"a path that equals the user id", {record(u1, u2, 15)}, false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(newpro::belongsToAnother(row.list, path, u1), row.another) << row.name;
    }
    EXPECT_TRUE(newpro::belongsToAnother({record(u1, u2, 15)}, u1, u1));
}

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
    void listFile(const QString& path, const QString& user) {
        QStringList fields{path, user};
        while (fields.size() < 15) fields.append(QStringLiteral("x"));
        host.write(
            QStringLiteral("FileList.Ini"),
            (QStringLiteral("bd##/a.GCFX\r\n") + fields.join(QChar(0x1F)) + QStringLiteral("\r\n"))
                .toUtf8());
        host.switches().account.loggedIn = true;
        host.switches().account.userId = QStringLiteral("u1");
    }

    const QString company = QStringLiteral("企业云盘/甲/乙/工程.GCFX");
    const QString personal = QStringLiteral("个人云盘/我的/工程.GCFX");
    testing_support::TemporaryInstallation host;
    files_testing::RecordingDialog dialog;
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
         {"企业云盘/甲/丙/工程.GCFX", "企业云盘/甲/乙/别的.GCFX", "企业云盘/甲/乙", "个人云盘/我的",
          "个人云盘/x/工程.GCFX", "个人云盘/我的/工程.GCFX/x", "个人云盘"}) {
        EXPECT_FALSE(resolve(QString::fromUtf8(path))) << path;
        EXPECT_EQ(boxes(), Lines{}) << path;
        EXPECT_EQ(countOf("zFileDialog::downLoadYunpanFile"), 0) << path;
    }
    EXPECT_EQ(local, QStringLiteral("as before"));
}

TEST_F(CloudDisk, AnEnterprisePathOfOneComponentIsToldAndNotAskedFor) {
    for (const char* path : {"企业云盘", "", "/", "别的"}) {
        EXPECT_FALSE(resolve(QString::fromUtf8(path)));
        EXPECT_EQ(boxes(), Lines{boxLine(connectionLost)}) << path;
        EXPECT_EQ(countOf("zFileDialog::LoadQyypData"), 0);
    }
}

TEST_F(CloudDisk, ARefusedListingShowsTheMessageOfTheService) {
    host.switches().cloud.refused = true;
    for (const QString& path : {company, personal}) {
        EXPECT_FALSE(resolve(path));
        ASSERT_EQ(boxes().size(), 1u);
        EXPECT_NE(boxes().front(), boxLine(connectionLost));
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
            const bool found = newpro::guardedOr("NewProCfgDialog", "NewProCfgDialog::slot", false,
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
