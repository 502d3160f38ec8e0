#include "core/hostMessages.h"

#include <QJsonDocument>

#include "tests/support/TestSupport.h"

namespace {

using newpro::PluginMessage;
using testing_support::journalLines;
using testing_support::Lines;

const QVariantMap pageValues{
    {QStringLiteral("TemplateName"), QStringLiteral("型")},
    {QStringLiteral("GcLj"), QStringLiteral("/p.gcf")},
    {QStringLiteral("GsMb"), QStringLiteral("概")},
    {QStringLiteral("JsMb"), QStringLiteral("结")},
};

TEST(PageMessage, EveryKindHasItsCodeItsClientAndItsBody) {
    const char* const plain = R"({"GcLx":"型"})";
    const char* const estimate = R"({"GcLj":"/p.gcf","GcLx":"型","GsMb":"概"})";
    const char* const budgetFile = R"({"GcLj":"/p.gcf","GcLx":"型","apptype":"Kvys"})";
    const char* const budget = R"({"GcLx":"型","apptype":"Kvys"})";
    const char* const contractingFile = R"({"GcLj":"/p.gcf","GcLx":"型","apptype":"Kvzcb"})";
    const char* const contracting = R"({"GcLx":"型","apptype":"Kvzcb"})";
    const char* const settlement = R"({"GcLj":"/p.gcf","GcLx":"型","JsMb":"结","apptype":"Kvjs"})";
    const struct {
        int kind;
        int code;
        int client;
        const char* body;
    } rows[] = {
        // The kinds by name.
        {4, 100, 4, budget},
        {5, 103, 4, budgetFile},
        {6, 102, 6, estimate},
        {8, 104, 8, settlement},
        {16, 105, 16, contracting},
        {17, 103, 16, contractingFile},
        {32, 0, 32, plain},
        // Of several bits the budget's come first, and of those the estimate's.
        {7, 102, 7, estimate},
        {14, 102, 14, estimate},
        {22, 102, 22, estimate},
        {255, 102, 255, estimate},
        {-1, 102, -1, estimate},
        {13, 103, 4, budgetFile},
        {21, 103, 4, budgetFile},
        {37, 103, 4, budgetFile},
        {12, 100, 12, budget},
        {20, 100, 20, budget},
        {36, 100, 36, budget},
        {19, 103, 16, contractingFile},
        {25, 103, 16, contractingFile},
        {49, 103, 16, contractingFile},
        {18, 105, 18, contracting},
        {24, 105, 24, contracting},
        {48, 105, 48, contracting},
        // The settlement's number is no bit.
        {9, 0, 9, plain},
        {10, 0, 10, plain},
        {40, 0, 40, plain},
        {0, 0, 0, plain},
        {1, 0, 1, plain},
        {2, 0, 2, plain},
        {3, 0, 3, plain},
        {64, 0, 64, plain},
    };
    for (const auto& row : rows) {
        const PluginMessage message = newpro::pageMessage(pageValues, row.kind);
        EXPECT_EQ(message.code, row.code) << row.kind;
        EXPECT_EQ(message.client, row.client) << row.kind;
        EXPECT_EQ(message.body, QJsonDocument::fromJson(row.body).object()) << row.kind;
    }
}

TEST(PageMessage, MissingValuesBecomeEmptyTexts) {
    const QJsonObject body = newpro::pageMessage({}, 8).body;
    const QString empty = QStringLiteral("");
    EXPECT_EQ(body, (QJsonObject{{QStringLiteral("GcLx"), empty},
                                 {QStringLiteral("JsMb"), empty},
                                 {QStringLiteral("GcLj"), empty},
                                 {QStringLiteral("apptype"), QStringLiteral("Kvjs")}}));
    EXPECT_TRUE(body.value(QStringLiteral("GcLj")).isString());
}

TEST(PageMessage, ValuesOfOtherTypesAreSentAsTexts) {
    const QJsonObject body = newpro::pageMessage({{QStringLiteral("TemplateName"), 12}}, 32).body;
    EXPECT_EQ(body.value(QStringLiteral("GcLx")), QJsonValue(QStringLiteral("12")));
}

TEST(FeeModes, BearTheNamesOfTheHostsConfiguration) {
    EXPECT_EQ(newpro::wholeProjectFee, QStringLiteral("整体计费"));
    EXPECT_EQ(newpro::perUnitFee, QStringLiteral("单独计费"));
}

TEST(ProjectMap, HoldsThirteenKeysWithTheirTypes) {
    const QVariantMap map = newpro::newProjectMap(testing_support::model(QStringLiteral("某模式")));
    const struct {
        const char* key;
        QMetaType::Type type;
        QVariant value;
    } rows[] = {
        {"m_AppType", QMetaType::QString, QString()},
        {"m_strProjectType", QMetaType::QString, QStringLiteral("某模式")},
        {"m_nSsgcId", QMetaType::Int, -1},
        {"m_nSjgcId", QMetaType::Int, 0},
        {"m_nAuditMaxId", QMetaType::Int, 0},
        {"m_nZxgcMaxId", QMetaType::Int, 0},
        {"m_strPassWord", QMetaType::QString, QString()},
        {"m_strEditPassWord", QMetaType::QString, QString()},
        {"m_dFileVersion", QMetaType::Double, 0.0},
        {"m_nZbqd", QMetaType::Int, 0},
        {"m_bFileLocked", QMetaType::Int, 0},
        {"m_bHaveEstimate", QMetaType::Int, 0},
        {"mJfms", QMetaType::Int, 0},
    };
    EXPECT_EQ(map.size(), 13);
    for (const auto& row : rows) {
        const QVariant value = map.value(QLatin1String(row.key));
        EXPECT_EQ(value.userType(), int(row.type)) << row.key;
        EXPECT_EQ(value, row.value) << row.key;
    }
}

TEST(ProjectMap, TheFeeModeIsOneForTheWholeProjectOnly) {
    const struct {
        const char* feeMode;
        int expected;
    } rows[] = {{"整体计费", 1}, {"单独计费", 0}, {"", 0}, {"其他", 0}, {"整体计费 ", 0}};
    for (const auto& row : rows) {
        auto model = testing_support::model(QStringLiteral("甲"), QString::fromUtf8(row.feeMode),
                                            QStringLiteral("整体计费"));
        const QVariant value = newpro::newProjectMap(model).value(QStringLiteral("mJfms"));
        EXPECT_EQ(value.userType(), int(QMetaType::Int)) << row.feeMode;
        EXPECT_EQ(value.toInt(), row.expected) << row.feeMode;
    }
}

TEST(OtherMessages, CarryTheirPayloads) {
    const PluginMessage contracting = newpro::contractingMessage(QStringLiteral("/a.zcb"));
    EXPECT_EQ(contracting.client, 16);
    EXPECT_EQ(contracting.code, 114);
    EXPECT_EQ(contracting.body, (QJsonObject{{QStringLiteral("pro_file"), QStringLiteral("/a.zcb")},
                                             {QStringLiteral("client_pid"), 16}}));

    const PluginMessage tender = newpro::tenderMessage(QStringLiteral("/a.yfj"));
    EXPECT_EQ(tender.client, 4);
    EXPECT_EQ(tender.code, 108);
    EXPECT_EQ(tender.body, (QJsonObject{{QStringLiteral("dzb_file"), QStringLiteral("/a.yfj")}}));
}

TEST(OtherMessages, TheExcelImportGoesToTheBudgetPluginInAnyLetterCase) {
    const struct {
        const char* appType;
        int client;
    } rows[] = {{"Kvys", 4},   {"kvys", 4},   {"KVYS", 4}, {"kVyS", 4},
                {"Kvzcb", 16}, {"Kvys ", 16}, {"", 16},    {"Kvjs", 16}};
    for (const auto& row : rows) {
        newpro::ExcelChoice choice;
        choice.appType = QString::fromUtf8(row.appType);
        choice.type = 1;
        choice.path = QStringLiteral("/表");
        choice.model = QStringLiteral("型");
        const PluginMessage message = newpro::excelMessage(choice);
        EXPECT_EQ(message.client, row.client) << row.appType;
        EXPECT_EQ(message.code, 107);
        EXPECT_EQ(message.body, (QJsonObject{{QStringLiteral("isnewapp"), true},
                                             {QStringLiteral("type"), 1},
                                             {QStringLiteral("path"), QStringLiteral("/表")},
                                             {QStringLiteral("jjms"), QStringLiteral("型")},
                                             {QStringLiteral("gcmb"), QStringLiteral("")},
                                             {QStringLiteral("client_pid"), row.client}}));
    }
}

TEST(OtherMessages, AreHandedToTheHostAsTheyAre) {
    const testing_support::TemporaryInstallation host;
    PluginMessage message{9, 103, {{QStringLiteral("GcLx"), QStringLiteral("x")}}};
    message.send();
    message.addClient();
    message.send();
    newpro::sendTemplateMessage(QStringLiteral("/t.MODX"));
    EXPECT_EQ(journalLines({"Communication::SendMsgToPlugin", "Communication::SendMsg"}),
              (Lines{R"(call Communication::SendMsgToPlugin(9, 103, {"GcLx":"x"}))",
                     R"(call Communication::SendMsgToPlugin(9, 103, {"GcLx":"x","client_pid":9}))",
                     R"(call Communication::SendMsg(4, 44, "/t.MODX"))"}));
}

}  // namespace
