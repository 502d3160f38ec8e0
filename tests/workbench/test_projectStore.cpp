#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

#include "tests/support/TestSupport.h"
#include "workbench/hostlibs/common/ProjectStore.h"
#include "workbench/projects/ProjectFile.h"

namespace testing_support {

using workbench::ProjectFile;
using workbench::ProjectStore;

namespace {

struct Store {
    TemporaryInstallation installation;
    ProjectStore store;
    QStringList made;
    QStringList failures;

    Store() {
        QObject::connect(&store, &ProjectStore::created,
                         [this](const QString& path) { made.append(path); });
        QObject::connect(&store, &ProjectStore::failed,
                         [this](const QString& text) { failures.append(text); });
    }

    /// @return the one file made so far; a default one where it is not one.
    ProjectFile onlyFile() {
        EXPECT_EQ(made.size(), 1);
        EXPECT_TRUE(failures.isEmpty()) << failures.join(QLatin1Char('\n')).toStdString();
        if (made.size() != 1) return {};
        QString error;
        const auto project = ProjectFile::read(made.constFirst(), &error);
        EXPECT_TRUE(project) << error.toStdString();
        return project.value_or(ProjectFile());
    }
};

QJsonObject object(const char* json) {
    return QJsonDocument::fromJson(json).object();
}

}  // namespace

TEST(ProjectStore, MakesTheFileThatEachMessageAsksFor) {
    const struct {
        int client;
        int code;
        const char* payload;  ///< "SOURCE" stands for an existing budget file.
        const char* suffix;
        int type;
        const char* summary;
    } rows[] = {
        {4, 100, R"({"GcLx":"甲","apptype":"Kvys"})", "GCFX", 4, "按“甲”新建预算"},
        {6, 102, R"({"GcLx":"","GsMb":"通用","GcLj":""})", "GCFG", 2, "新建概算，概算模板：通用"},
        {4, 103, R"({"GcLx":"","GcLj":"SOURCE","apptype":"Kvys"})", "SGCFX", 5,
         "由工程文件“源.GCFX”新建审核"},
        {16, 103, R"({"GcLx":"","GcLj":"SOURCE","apptype":"Kvzcb"})", "SGCFZ", 17,
         "由工程文件“源.GCFX”新建审核"},
        {8, 104, R"({"GcLx":"","JsMb":"乙","GcLj":"SOURCE","apptype":"Kvjs"})", "GCFJ", 8,
         "新建结算，源文件：源.GCFX，结算模板：乙"},
        {16, 105, R"({"GcLx":"丙","apptype":"Kvzcb"})", "GCFZ", 16, "按“丙”新建总承包"},
        {4, 107, R"({"isnewapp":true,"type":0,"path":"SOURCE","jjms":"丁","gcmb":""})", "GCFX", 4,
         "由Excel“源.GCFX”导入，计价模式：丁"},
        {16, 107, R"({"isnewapp":true,"type":0,"path":"SOURCE","jjms":"","gcmb":""})", "GCFZ", 16,
         "由Excel“源.GCFX”导入"},
        {4, 108, R"({"dzb_file":"SOURCE"})", "GCFX", 4, "由电子招投标数据“源.GCFX”导入"},
        {16, 114, R"({"pro_file":"SOURCE","client_pid":16})", "GCFZ", 16,
         "由工程文件“源.GCFX”新建总承包"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.code);
        Store store;
        const QString source = store.installation.write(QStringLiteral("源.GCFX"));
        const QJsonObject payload =
            object(QByteArray(row.payload).replace("SOURCE", source.toUtf8()).constData());
        Communication::GetInstance()->SendMsgToPlugin(row.client, row.code, payload);

        const ProjectFile project = store.onlyFile();
        EXPECT_EQ(project.programType, row.type);
        EXPECT_EQ(QFileInfo(store.made.value(0)).suffix(), QLatin1String(row.suffix));
        EXPECT_EQ(project.summary(), QString::fromUtf8(row.summary));
        EXPECT_EQ(project.request.value(QLatin1String("payload")).toObject(), payload);
        EXPECT_EQ(project.request.value(QLatin1String("client")).toInt(), row.client);
    }
}

TEST(ProjectStore, MakesAProjectFromAModelJournalsItAndPutsItAtTheHeadOfTheHistory) {
    Store store;
    store.installation.values().addToHistory(QStringLiteral("bd##old"));
    const QVariantMap map{{QStringLiteral("m_strProjectType"), QStringLiteral("清单/计价")},
                          {QStringLiteral("mJfms"), 1}};
    store.store.createFromModel(16, 95, map);
    const ProjectFile project = store.onlyFile();
    EXPECT_EQ(project.kind(), QStringLiteral("总承包工程"));
    EXPECT_EQ(project.summary(), QStringLiteral("按计价模式“清单/计价”新建，整体计费"));
    const QString path = store.made.value(0);
    EXPECT_TRUE(path.startsWith(store.installation.path(QStringLiteral("ProjectFiles/清单_计价-"))))
        << path.toStdString();
    EXPECT_EQ(journalLines({"project"}), Lines{"project " + path.toStdString()});
    EXPECT_EQ(store.installation.values().history,
              (QStringList{QStringLiteral("bd##") + path, QStringLiteral("bd##old")}));
}

TEST(ProjectStore, ATemplateCardsMessageAndSignalMakeOneFile) {
    Store store;
    const QString path =
        store.installation.addTemplate(QStringLiteral("kvys"), QStringLiteral("学校.MODX"));
    Communication::GetInstance()->SendMsg(4, 44, path);
    store.store.createFromTemplate(16, 44, path);
    const ProjectFile project = store.onlyFile();
    EXPECT_EQ(project.programType, 16) << "the signal knows the kind";
    EXPECT_EQ(project.source.value(QLatin1String("path")).toString(), path);
    EXPECT_EQ(
        project.source.value(QLatin1String("sha256")).toString(),
        QString::fromLatin1(QCryptographicHash::hash("x", QCryptographicHash::Sha256).toHex()));
}

TEST(ProjectStore, TheSameRequestTwiceMakesTwoFiles) {
    Store store;
    const QVariantMap map{{QStringLiteral("m_strProjectType"), QStringLiteral("甲")}};
    store.store.createFromModel(4, 95, map);
    store.store.createFromModel(4, 95, map);
    ASSERT_EQ(store.made.size(), 2);
    EXPECT_NE(store.made.at(0), store.made.at(1));
    EXPECT_TRUE(store.made.at(1).endsWith(QLatin1String("-002.GCFX")));
}

TEST(ProjectStore, RequestsThatAskForNothingMakeNoFile) {
    Store store;
    Communication* host = Communication::GetInstance();
    host->SendMsgToPlugin(7, 0, object(R"({"GcLx":"甲"})"));
    host->SendMsgToPlugin(4, 999, object(R"({"GcLx":"甲"})"));
    host->SendMsgToPlugin(4, 103, object(R"({"GcLx":""})"));
    host->SendMsg(4, 95, QVariantMap());
    store.store.createFromModel(-1, 95, QVariantMap());
    store.store.createFromTemplate(4, 44, QString());
    EXPECT_TRUE(store.made.isEmpty());
    EXPECT_EQ(countOf("project"), 0);
}

TEST(ProjectStore, ASourceThatHasVanishedIsReportedAndMakesNoFile) {
    Store store;
    store.store.createFromTemplate(4, 44, store.installation.path(QStringLiteral("gone.MODX")));
    EXPECT_TRUE(store.made.isEmpty());
    ASSERT_EQ(store.failures.size(), 1);
    EXPECT_TRUE(store.failures.at(0).contains(QStringLiteral("gone.MODX")));
    EXPECT_TRUE(store.installation.values().history.isEmpty());
}

TEST(ProjectStore, ACloudFileAndAFolderAreKeptByTheirPath) {
    Store store;
    const QString cloud = QStringLiteral("企业云盘/总包/x.GCFZ");
    Communication::GetInstance()->SendMsgToPlugin(
        4, 103, {{QStringLiteral("GcLj"), cloud}, {QStringLiteral("GcLx"), QString()}});
    Communication::GetInstance()->SendMsgToPlugin(
        4, 107, {{QStringLiteral("path"), store.installation.folder()}});
    ASSERT_EQ(store.made.size(), 2);
    EXPECT_TRUE(store.made.at(0).endsWith(QLatin1String(".SGCFZ"))) << "audits what it names";
    EXPECT_EQ(ProjectFile::read(store.made.at(0))->source,
              (QJsonObject{{QStringLiteral("path"), cloud}}));
}

TEST(ProjectStore, AnAuditOfAnAuditKeepsItsSuffix) {
    Store store;
    Communication::GetInstance()->SendMsgToPlugin(
        4, 103,
        {{QStringLiteral("GcLj"),
          QStringLiteral(SAMPLE_INSTALLATION "/ProjectFiles/天府产业园一期-审核.SGCFZ")}});
    ASSERT_EQ(store.made.size(), 1);
    EXPECT_EQ(QFileInfo(store.made.at(0)).suffix(), QStringLiteral("SGCFZ"));
}

TEST(ProjectStore, FileNamesAreSafeWhateverTheTitle) {
    const struct {
        QString title;
        QString name;
    } rows[] = {
        {QStringLiteral("a/b\\c:d*e?f\"g<h>i|j"), QStringLiteral("a_b_c_d_e_f_g_h_i_j")},
        {QStringLiteral("甲##乙"), QStringLiteral("甲__乙")},
        {QStringLiteral("..\n 甲\t乙 "), QStringLiteral("甲 乙")},
        {QStringLiteral("工程😀"), QStringLiteral("工程😀")},
        {QString(60, QLatin1Char('a')), QString(40, QLatin1Char('a'))},
        {QString(39, QLatin1Char('a')) + QStringLiteral("😀"), QString(39, QLatin1Char('a'))},
        {QStringLiteral("..."), QString()},
        {QString(QChar(0xD83D)), QString(QChar(0xFFFD))},
    };
    for (const auto& row : rows) EXPECT_EQ(workbench::safeFileName(row.title), row.name);
}

TEST(ProjectStore, AProjectFolderThatCannotBeMadeIsReported) {
    Store store;
    store.installation.values().basicSettings.projectFolder =
        store.installation.write(QStringLiteral("file")) + QStringLiteral("/below");
    store.store.createFromModel(4, 95, QVariantMap());
    EXPECT_TRUE(store.made.isEmpty());
    EXPECT_EQ(store.failures.size(), 1);
}

TEST(ProjectStore, ListensOnlyWhileItLives) {
    TemporaryInstallation installation;
    { ProjectStore store; }
    Communication::GetInstance()->SendMsgToPlugin(4, 100, object(R"({"GcLx":"甲"})"));
    EXPECT_EQ(countOf("project"), 0);
}

}  // namespace testing_support
