#include "files/fileChoice.h"

#include "fileDialog.h"
#include "tests/files/FileTesting.h"

namespace {

using files_testing::everyFlow;
using newpro::factsOf;
using newpro::FileFacts;
using newpro::FileFlow;
using newpro::judge;
using newpro::Verdict;

class FileChoice : public testing::Test {
  protected:
    testing_support::TemporaryInstallation host;
};

/// @return facts of a regular local file with this suffix.
FileFacts factsOnDisk(const std::optional<QString>& suffix) {
    return {true, false, true, true, suffix};
}

FileFacts factsInCloud(const std::optional<QString>& suffix) {
    return {true, true, false, false, suffix};
}

TEST_F(FileChoice, AFirstComponentThatNamesADiskMakesACloudPath) {
    const struct {
        const char* path;
        bool cloud;
    } rows[] = {
        {"企业云盘|a.GCFX", true},
        {"个人云盘|a.GCFX", true},
        {"||个人云盘||a.GCFX", true},
        {"企业云盘", true},
        {"", false},
        {"|", false},
        {"/企业云盘/a.GCFX", false},
        {"企业云盘 |a", false},
        {"a|企业云盘", false},
        {"企业云盘2|a.GCFX", false},
    };
    zFileDialog::pathFgf = QStringLiteral("|");
    for (const auto& row : rows) {
        EXPECT_EQ(newpro::isCloudPath(QString::fromUtf8(row.path)), row.cloud) << row.path;
    }
}

TEST_F(FileChoice, ASeparatorOfSeveralCharactersServesAsWell) {
    zFileDialog::pathFgf = QStringLiteral(">>");
    EXPECT_EQ(
        newpro::cloudComponents(QStringLiteral("企业云盘>>a>b>>>>c")),
        (QStringList{QStringLiteral("企业云盘"), QStringLiteral("a>b"), QStringLiteral("c")}));
}

TEST_F(FileChoice, TheFactsOfLocalPathsComeFromTheDisk) {
    const FileFacts file = factsOf(host.write(QStringLiteral("x.y.gcfx")));
    EXPECT_TRUE(file.named && !file.cloud && file.exists && file.isFile);
    EXPECT_EQ(*file.suffix, QStringLiteral("GCFX"));
    EXPECT_FALSE(factsOf(host.write(QStringLiteral("none"))).suffix);
    EXPECT_FALSE(factsOf(host.write(QStringLiteral("dot."))).suffix);

    const FileFacts folder = factsOf(host.folder());
    EXPECT_TRUE(folder.exists && !folder.isFile);
    EXPECT_FALSE(factsOf(host.path(QStringLiteral("missing.GCFX"))).exists);
    EXPECT_FALSE(factsOf(QString()).named);
    EXPECT_TRUE(factsOf(QStringLiteral(" ")).named);
}

TEST_F(FileChoice, ATextThatCanBeNoPathIsNoFile) {
    for (const QString& text : {QStringLiteral("/a") + QChar(QChar::Null) + QStringLiteral(".GCFX"),
                                QString(300, QLatin1Char('n')), QString(QChar(0xD800))}) {
        EXPECT_EQ(judge(FileFlow::Audit, factsOf(text)), Verdict::NotFound);
    }
}

TEST_F(FileChoice, TheFactsOfCloudPathsComeFromTheirLastComponent) {
    const struct {
        const char* path;
        std::optional<QString> suffix;
    } rows[] = {
        {"企业云盘/a/b.c.gcfx", QStringLiteral("GCFX")},
        {"企业云盘/a.GCFX/", QStringLiteral("GCFX")},
        {"企业云盘/a.b/c", std::nullopt},
        {"个人云盘", std::nullopt},
        {"个人云盘/a.", QString()},
        {"个人云盘/.GCFX", QStringLiteral("GCFX")},
    };
    zFileDialog::pathFgf = QStringLiteral("/");
    for (const auto& row : rows) {
        const FileFacts facts = factsOf(QString::fromUtf8(row.path));
        EXPECT_TRUE(facts.named && facts.cloud) << row.path;
        EXPECT_EQ(facts.suffix, row.suffix) << row.path;
    }
}

TEST_F(FileChoice, EveryFlowJudgesSuffixesByItsRule) {
    const struct {
        const char* suffix;
        bool audit, others;
    } rows[] = {
        // One suffix of each type code; then those without.
        {"GCFG", true, false}, {"BAK", true, true}, {"SGCFG", true, false}, {"GCFZ", true, true},
        {"SBAKZ", true, true}, {"GCF", true, true}, {"TXT", false, true},   {"", false, true},
    };
    for (const auto& row : rows) {
        const QString suffix = QLatin1String(row.suffix);
        for (FileFlow flow : everyFlow) {
            const bool accepted = flow == FileFlow::Audit ? row.audit : row.others;
            const Verdict verdict = accepted ? Verdict::Accepted : Verdict::WrongSuffix;
            EXPECT_EQ(judge(flow, factsInCloud(suffix)), verdict) << row.suffix << int(flow);
            EXPECT_EQ(judge(flow, factsOnDisk(suffix)), verdict) << row.suffix << int(flow);
        }
    }
}

TEST_F(FileChoice, WhatIsNoFileIsRefusedByEveryFlow) {
    const QString suffix = QStringLiteral("GCFX");
    const FileFacts emptyCloudPath{false, true, false, false, suffix};
    const FileFacts missing{true, false, false, false, suffix};
    const FileFacts folder{true, false, true, false, suffix};
    for (FileFlow flow : everyFlow) {
        EXPECT_EQ(judge(flow, FileFacts()), Verdict::NothingChosen);
        EXPECT_EQ(judge(flow, emptyCloudPath), Verdict::NothingChosen);
        EXPECT_EQ(judge(flow, missing), Verdict::NotFound);
        EXPECT_EQ(judge(flow, folder), Verdict::NotAFile);
        EXPECT_EQ(judge(flow, factsOnDisk(std::nullopt)), Verdict::WrongSuffix);
        EXPECT_EQ(judge(flow, factsInCloud(std::nullopt)), Verdict::WrongSuffix);
    }
}

TEST_F(FileChoice, EveryVerdictHasTheMessageOfItsFlow) {
    const QString budget = QStringLiteral("请选择预算工程文件");
    const QString anyKind = QStringLiteral("请选择预算/概算/总承包工程文件");
    const QString project = QStringLiteral("请选择工程文件");
    const struct {
        FileFlow flow;
        QString noFile, wrongSuffix;
    } rows[] = {
        {FileFlow::Estimate, budget, budget},
        {FileFlow::Settlement, budget, budget},
        {FileFlow::Audit, budget, anyKind},
        {FileFlow::Contracting, project, project},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(refusalText(row.flow, Verdict::NothingChosen), row.noFile);
        EXPECT_EQ(refusalText(row.flow, Verdict::NotAFile), row.noFile);
        EXPECT_EQ(refusalText(row.flow, Verdict::WrongSuffix), row.wrongSuffix);
        EXPECT_EQ(refusalText(row.flow, Verdict::NotFound),
                  QStringLiteral("找不到该文件，请检查文件路径是否正确"));
        EXPECT_EQ(refusalText(row.flow, Verdict::Accepted), QString());
    }
}

}  // namespace
