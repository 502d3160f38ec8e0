/// Answers that a cloud service may give and the workbench's never does.
#include <QJsonDocument>

#include "files/cloudDisk.h"
#include "fuzz/cloudAnswers.h"
#include "tests/support/TestSupport.h"

namespace {

using fuzzing::cloudAnswers;

struct CloudAnswers : testing::Test {
    testing_support::TemporaryInstallation host;

    ~CloudAnswers() override { cloudAnswers() = {}; }
    void answerWith(const QByteArrayList& answers) {
        cloudAnswers() = {};
        for (const QByteArray& answer : answers)
            cloudAnswers().next.append(QJsonDocument::fromJson(answer).object());
    }
};

TEST_F(CloudAnswers, ATopLevelWithNodesIsWalkedWhateverItsCode) {
    const QByteArray nodes = R"([{"wjjmc":"甲.GCFX","wjlx":"2","xzlj":"l"}])";
    const struct {
        const char* path;
        QByteArray data;
    } disks[] = {
        {"企业云盘/甲.GCFX", nodes},
        {"个人云盘/甲.GCFX", R"({"list":[{"wjjmc":"根目录","wjlx":"1","xjdata":)" + nodes + "}]}"}};
    for (const auto& disk : disks) {
        SCOPED_TRACE(disk.path);
        answerWith({R"({"code":1,"msg":"拒绝","data":)" + disk.data + "}",
                    R"({"code":0,"data":{"isExist":false}})",
                    R"({"code":0,"data":"/downloads/甲.GCFX"})"});
        QString local;
        EXPECT_TRUE(newpro::resolveCloudPath(local, QString::fromUtf8(disk.path), false,
                                             newpro::FilePages()));
        EXPECT_EQ(local, QStringLiteral("/downloads/甲.GCFX"));
        EXPECT_EQ(testing_support::countOf("box"), 0);
    }
}

}  // namespace
