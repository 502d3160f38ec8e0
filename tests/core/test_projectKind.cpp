#include "core/projectKind.h"

#include "tests/support/TestSupport.h"

namespace {

using newpro::CurrentKind;
using newpro::kindOfLabel;

struct Row {
    const char* label;
    int programType;
    const char* appType;
    const char* appTypeKey;  ///< Null: left unchanged.
};

const Row rows[] = {
    {"预算工程", 4, "Kvys", "kvys"},      {"概算工程", 6, "Kvys", nullptr},
    {"结算工程", 8, "Kvjs", nullptr},     {"总承包工程", 16, "Kvzcb", "kvzcb"},
    {"全过程工程", 32, "Kvqgc", nullptr}, {"审核工程", 5, "Kvys", nullptr},
};

void choose(CurrentKind& kind, const char* label) {
    const newpro::ProjectKind* chosen = kindOfLabel(QString::fromUtf8(label));
    ASSERT_TRUE(chosen) << label;
    kind.choose(*chosen);
}

TEST(ProjectKind, StartsAsTheBudgetKind) {
    const CurrentKind kind;
    EXPECT_EQ(kind.programType, 4);
    EXPECT_EQ(kind.appType, QStringLiteral("Kvys"));
    EXPECT_EQ(kind.appTypeKey, QStringLiteral("kvys"));
}

TEST(ProjectKind, ChoosingAKindSetsWhatTheTableSays) {
    for (const Row& row : rows) {
        CurrentKind kind;
        kind.appTypeKey = QStringLiteral("left alone");
        choose(kind, row.label);
        EXPECT_EQ(kind.programType, row.programType) << row.label;
        EXPECT_EQ(kind.appType, QString::fromUtf8(row.appType)) << row.label;
        const char* key = row.appTypeKey ? row.appTypeKey : "left alone";
        EXPECT_EQ(kind.appTypeKey, QString::fromUtf8(key)) << row.label;
    }
}

TEST(ProjectKind, SettlementThenEstimateKeepsTheBudgetKey) {
    CurrentKind kind;
    choose(kind, "结算工程");
    choose(kind, "概算工程");
    EXPECT_EQ(kind.appType, QStringLiteral("Kvys"));
    EXPECT_EQ(kind.programType, 6);
    EXPECT_EQ(kind.appTypeKey, QStringLiteral("kvys"));
}

TEST(ProjectKind, ContractingThenSettlementKeepsTheContractingKey) {
    CurrentKind kind;
    choose(kind, "总承包工程");
    choose(kind, "结算工程");
    EXPECT_EQ(kind.appType, QStringLiteral("Kvjs"));
    EXPECT_EQ(kind.appTypeKey, QStringLiteral("kvzcb"));
}

TEST(ProjectKind, ATextThatIsNoLabelIsNoKind) {
    for (const char* text : {"", "预算", "预算工程 ", " 预算工程", "导入Excel新建", "导入YFJZ新建",
                             "模板工程", "Kvys"}) {
        EXPECT_EQ(kindOfLabel(QString::fromUtf8(text)), nullptr) << text;
    }
}

TEST(ProjectKind, EveryProgramTypeHasItsNameAndAnyOtherIsTheBudgetName) {
    for (int type = -40; type <= 70; ++type) {
        const char* expected = "预算工程";
        for (const Row& row : rows) {
            if (row.programType == type) expected = row.label;
        }
        EXPECT_EQ(newpro::kindName(type), QString::fromUtf8(expected)) << type;
    }
}

TEST(ProjectKind, TheProgramTypeOfAnApplicationTypeFollowsTheTable) {
    const struct {
        const char* appType;
        int type;
    } table[] = {{"Kvys", 4},  {"Kvzcb", 16}, {"Kvjs", 8}, {"Kvqgc", 32}, {"kvys", -1},
                 {"KVYS", -1}, {"Kvys ", -1}, {"", -1},    {"Kvgs", -1},  {"Kvzcb\n", -1}};
    for (const auto& row : table) {
        int type = -1;
        EXPECT_TRUE(newpro::programTypeOf(QString::fromUtf8(row.appType), type)) << row.appType;
        EXPECT_EQ(type, row.type) << row.appType;
    }
}

TEST(ProjectKind, AnUnknownApplicationTypeLeavesTheCallersNumber) {
    int type = 77;
    EXPECT_TRUE(newpro::programTypeOf(QStringLiteral("unknown"), type));
    EXPECT_EQ(type, 77);
}

TEST(ProjectKind, EstimateAndAuditYieldTheBudgetTypeOfTheirApplicationType) {
    for (const char* label : {"概算工程", "审核工程"}) {
        CurrentKind kind;
        choose(kind, label);
        int type = -1;
        EXPECT_TRUE(newpro::programTypeOf(kind.appType, type));
        EXPECT_EQ(type, 4) << label;
    }
}

}  // namespace
