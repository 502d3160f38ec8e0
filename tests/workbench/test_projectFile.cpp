#include <QDir>
#include <QFile>

#include "tests/support/TestSupport.h"
#include "workbench/projects/ProjectFile.h"
#include "workbench/projects/fileKind.h"

namespace testing_support {

using workbench::ProjectFile;

namespace {

QString sample(const QString& name) {
    return QStringLiteral(SAMPLE_INSTALLATION "/ProjectFiles/") + name;
}

ProjectFile someProject() {
    ProjectFile project;
    project.programType = 4;
    project.name = QStringLiteral("教学楼");
    project.created = QDateTime(QDate(2026, 11, 21), QTime(8, 30));
    project.request = {
        {QStringLiteral("code"), 100},
        {QStringLiteral("payload"), QJsonObject{{QStringLiteral("GcLx"), QStringLiteral("定额")}}}};
    return project;
}

}  // namespace

TEST(ProjectFile, IsReadBackAsItWasWritten) {
    TemporaryInstallation installation;
    const ProjectFile written = someProject();
    const QString path = installation.path(QStringLiteral("甲.GCFX"));
    QString error;
    ASSERT_TRUE(written.writeNew(path, error)) << error.toStdString();
    const auto read = ProjectFile::read(path, &error);
    ASSERT_TRUE(read) << error.toStdString();
    EXPECT_EQ(read->programType, 4);
    EXPECT_EQ(read->kind(), QStringLiteral("预算工程"));
    EXPECT_EQ(read->name, written.name);
    EXPECT_EQ(read->created, written.created);
    EXPECT_EQ(read->request, written.request);
    EXPECT_EQ(read->summary(), QStringLiteral("按“定额”新建预算"));
}

TEST(ProjectFile, NeverReplacesAnotherFile) {
    TemporaryInstallation installation;
    const QString path = installation.write(QStringLiteral("甲.GCFX"), "mine");
    QString error;
    EXPECT_FALSE(someProject().writeNew(path, error));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_EQ(QFileInfo(path).size(), 4);
}

TEST(ProjectFile, ADamagedFileIsRecognisedWithAReason) {
    const struct {
        const char* content;
        const char* reason;
    } rows[] = {
        {"", "不是工程文件"},
        {"会议纪要", "不是工程文件"},
        {"{}", "不是工程文件"},
        {"[1]", "不是工程文件"},
        {R"({"workbenchProject": 1, "programType": 4, "na)", "内容不完整"},
        {R"({"workbenchProject": 2})", "版本"},
        {R"({"workbenchProject": 1, "programType": 7})", "工程类型"},
        {R"({"workbenchProject": 1, "programType": "4"})", "工程类型"},
        {R"({"workbenchProject": 1, "programType": 4})", "工程名称"},
        {R"({"workbenchProject": 1, "programType": 4, "name": "a", "created": "x"})", "创建时间"},
        {R"({"workbenchProject": 1, "programType": 4, "name": "a", "created": "2026-01-01T08:00:00",
             "request": 1})",
         "新建请求"},
    };
    for (const auto& row : rows) {
        TemporaryInstallation installation;
        const QString path = installation.write(QStringLiteral("x.GCFX"), row.content);
        QString error;
        EXPECT_FALSE(ProjectFile::read(path, &error)) << row.content;
        EXPECT_TRUE(error.contains(QString::fromUtf8(row.reason)))
            << row.content << " gave " << error.toStdString();
        EXPECT_EQ(workbench::programTypeOfFile(path), -1);
    }
}

TEST(ProjectFile, AHugeFileIsNoneAndIsNotReadWhole) {
    TemporaryInstallation installation;
    const QString path = installation.write(QStringLiteral("x.GCFX"), "{");
    ASSERT_TRUE(QFile::resize(path, 4LL * 1024 * 1024 * 1024));
    EXPECT_FALSE(ProjectFile::read(path));
}

TEST(ProjectFile, EverySampleFileIsOfTheTypeOfItsSuffix) {
    const QMap<QString, int> types{
        {QStringLiteral("GCFX"), 4},   {QStringLiteral("PMW"), 4},   {QStringLiteral("BAK"), 4},
        {QStringLiteral("SBAK"), 4},   {QStringLiteral("GCF"), 4},   {QStringLiteral("GCFZ"), 16},
        {QStringLiteral("BAKZ"), 16},  {QStringLiteral("GCFG"), 2},  {QStringLiteral("SGCFZ"), 17},
        {QStringLiteral("SBAKZ"), 17}, {QStringLiteral("SGCFX"), 5}, {QStringLiteral("SPMW"), 5},
        {QStringLiteral("SGCFJ"), 5},  {QStringLiteral("SGCF"), 5},  {QStringLiteral("SGCFG"), 5}};
    QSet<QString> seen;
    for (const QFileInfo& file : QDir(sample(QString())).entryInfoList(QDir::Files)) {
        if (file.fileName().startsWith(QStringLiteral("会议纪要"))) continue;
        EXPECT_EQ(GetProgramTypeByFile(file.filePath()), types.value(file.suffix(), -2))
            << file.fileName().toStdString();
        seen.insert(file.suffix());
    }
    EXPECT_EQ(seen.size(), types.size()) << "a suffix has no sample";
}

TEST(ProjectFile, ACloudPathIsJudgedByItsSuffix) {
    const struct {
        const char* path;
        int type;
    } rows[] = {{"个人云盘/a/b.gcfx", 4}, {"企业云盘/b.GCFZ", 16}, {"企业云盘/b.GCFG", 2},
                {"企业云盘/b.SBAKZ", 17}, {"企业云盘/b.SGCFJ", 5}, {"企业云盘/b.GCF", 4},
                {"企业云盘/b.", -1},      {"企业云盘/b", -1},      {"个人云盘", -1},
                {"团队云盘/b.GCFX", -1}};
    for (const auto& row : rows) {
        EXPECT_EQ(workbench::programTypeOfFile(QString::fromUtf8(row.path)), row.type) << row.path;
    }
}

TEST(ProjectFile, FileInformationComesFromTheContent) {
    const auto answer = [](const QString& path) {
        QString name, kind, suffix, detail;
        SharedInterface::GetFileInfo(path, name, kind, suffix, detail);
        return QStringList{name, kind, suffix};
    };
    TemporaryInstallation installation;
    EXPECT_EQ(answer(sample(QStringLiteral("锦江区第三中学教学楼.GCFX"))),
              (QStringList{QStringLiteral("锦江区第三中学教学楼"), QStringLiteral("预算工程"),
                           QStringLiteral("GCFX")}));
    EXPECT_EQ(answer(sample(QStringLiteral("会议纪要（误存为工程）.GCFX"))),
              (QStringList{QString(), QString(), QString()}));
    EXPECT_EQ(answer(QStringLiteral("/no/such/file.sgcfx")),
              (QStringList{QString(), QString(), QStringLiteral("SGCFX")}))
        << "a file that is not there keeps the suffix of its path";
}

}  // namespace testing_support
