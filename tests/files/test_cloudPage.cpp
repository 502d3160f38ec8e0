#include <QFile>
#include <QJsonDocument>
#include <QRegularExpression>

#include "fileDialog.h"
#include "files/cloudDisk.h"
#include "tests/files/FileTesting.h"

namespace {

/// The answers that docs/writing-a-host.md gives as examples, in their order.
class CloudPage : public testing::Test {
  protected:
    CloudPage() {
        QFile page(QStringLiteral(REPOSITORY "/docs/writing-a-host.md"));
        EXPECT_TRUE(page.open(QIODevice::ReadOnly));
        const QString text =
            QString::fromUtf8(page.readAll())
                .replace(QStringLiteral("D:/下载"), host.path(QStringLiteral("Downloads")));
        const QRegularExpression block(QStringLiteral("```json\n(.*?)```"),
                                       QRegularExpression::DotMatchesEverythingOption);
        for (auto found = block.globalMatch(text); found.hasNext();)
            examples.append(QJsonDocument::fromJson(found.next().captured(1).toUtf8()).object());
        host.write(QStringLiteral("CloudDisks/企业云盘/甲/工程.GCFX"), "company");
        host.write(QStringLiteral("CloudDisks/个人云盘/我的/工程.GCFX"), "personal");
    }
    static QJsonValue dataOf(const QJsonObject& answer) { return answer[QStringLiteral("data")]; }

    testing_support::TemporaryInstallation host;
    QVector<QJsonObject> examples;
    const QString name = QStringLiteral("工程.GCFX");
};

TEST_F(CloudPage, ThePersonalExampleLeadsToItsFile) {
    ASSERT_EQ(examples.size(), 5);
    const auto file = newpro::findInCloud(
        newpro::personalTopLevel(examples.at(0)), {QStringLiteral("我的"), name},
        [](const QJsonObject& folder) { return folder[QStringLiteral("xjdata")].toArray(); });
    ASSERT_TRUE(file);
    EXPECT_EQ((*file)[QStringLiteral("xzlj")], QStringLiteral("个人云盘/我的/工程.GCFX"));
}

TEST_F(CloudPage, TheEnterpriseExamplesLeadToTheirFile) {
    ASSERT_EQ(examples.size(), 5);
    const auto file = newpro::findInCloud(
        dataOf(examples.at(1)).toArray(), {QStringLiteral("甲"), name},
        [&](const QJsonObject& folder) {
            EXPECT_EQ(folder[QStringLiteral("wjjid")], QStringLiteral("企业云盘/甲"));
            return dataOf(examples.at(2)).toArray();
        });
    ASSERT_TRUE(file);
    EXPECT_EQ((*file)[QStringLiteral("xzlj")], QStringLiteral("企业云盘/甲/工程.GCFX"));
}

/// @return whether the answer has all that the example has.
bool holds(const QJsonValue& answer, const QJsonValue& example) {
    if (example.isArray()) {
        const QJsonArray parts = example.toArray();
        if (answer.toArray().size() != parts.size()) return false;
        for (int i = 0; i < parts.size(); ++i)
            if (!holds(answer[i], parts.at(i))) return false;
        return true;
    }
    if (!example.isObject()) return answer == example;
    const QJsonObject members = example.toObject();
    for (auto it = members.begin(); it != members.end(); ++it)
        if (!holds(answer[it.key()], *it)) return false;
    return true;
}

/// The examples are what the tests of the cloud disks, and the scenarios, run with.
TEST_F(CloudPage, TheExamplesAreAnsweredByTheFolderBackedService) {
    ASSERT_EQ(examples.size(), 5);
    const QString folder = QStringLiteral("企业云盘/甲");
    const QString link = folder + QLatin1Char('/') + name;
    const QString local = host.path(QStringLiteral("Downloads/") + link);
    const QJsonObject answers[] = {
        zFileDialog::LoadGrypData(), zFileDialog::LoadQyypData(),
        zFileDialog::LoadQyypMlData(folder, QStringLiteral("qy001")),
        zFileDialog::IsExistDownLoadfile(name, folder),
        zFileDialog::downLoadYunpanFile(name, link, local, QStringLiteral("0"))};
    for (int i = 0; i < examples.size(); ++i)
        EXPECT_TRUE(holds(answers[i], examples.at(i)))
            << QJsonDocument(answers[i]).toJson().toStdString();
}

}  // namespace
