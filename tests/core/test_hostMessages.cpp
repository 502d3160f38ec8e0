#include "core/hostMessages.h"

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

/// One case of a page's message, stated so that no two cases overlap.
struct PageCase {
    int mask;
    int bits;  ///< The case holds where (kind & mask) == bits.
    int code;
    int client;  ///< 0: the kind value unchanged.
    const char* appType;
    std::vector<const char*> copied;
};

const int everyBit = ~0;
const std::vector<PageCase> pageCases = {
    {4 | 2, 4 | 2, 102, 0, nullptr, {"GsMb", "GcLj"}},
    {4 | 2 | 1, 4 | 1, 103, 4, "Kvys", {"GcLj"}},
    {4 | 2 | 1, 4, 100, 0, "Kvys", {}},
    {4 | 16 | 1, 16 | 1, 103, 16, "Kvzcb", {"GcLj"}},
    {4 | 16 | 1, 16, 105, 0, "Kvzcb", {}},
    {everyBit, 8, 104, 8, "Kvjs", {"JsMb", "GcLj"}},
};

QJsonObject bodyOf(const PageCase& each) {
    QJsonObject body{{QStringLiteral("GcLx"), QStringLiteral("型")}};
    if (each.appType) body.insert(QStringLiteral("apptype"), QString::fromUtf8(each.appType));
    for (const char* key : each.copied) {
        body.insert(QLatin1String(key), pageValues.value(QLatin1String(key)).toString());
    }
    return body;
}

TEST(PageMessage, FollowsTheTableForEveryKind) {
    for (int kind = -1; kind <= 255; ++kind) {
        const PageCase* found = nullptr;
        for (const PageCase& each : pageCases) {
            if ((kind & each.mask) != each.bits) continue;
            ASSERT_FALSE(found) << "two cases for " << kind;
            found = &each;
        }
        const PageCase none{0, 0, 0, 0, nullptr, {}};
        if (!found) found = &none;
        const PluginMessage message = newpro::pageMessage(pageValues, kind);
        EXPECT_EQ(message.code, found->code) << kind;
        EXPECT_EQ(message.client, found->client ? found->client : kind) << kind;
        EXPECT_EQ(message.body, bodyOf(*found)) << kind;
    }
}

TEST(PageMessage, NamedKindsGetTheirCodes) {
    const struct {
        int kind;
        int code;
        int client;
    } rows[] = {{4, 100, 4},   {5, 103, 4},   {6, 102, 6},   {7, 102, 7},   {8, 104, 8},
                {9, 0, 9},     {10, 0, 10},   {12, 100, 12}, {13, 103, 4},  {16, 105, 16},
                {17, 103, 16}, {18, 105, 18}, {20, 100, 20}, {24, 105, 24}, {32, 0, 32},
                {0, 0, 0},     {1, 0, 1},     {2, 0, 2}};
    for (const auto& row : rows) {
        const PluginMessage message = newpro::pageMessage(pageValues, row.kind);
        EXPECT_EQ(message.code, row.code) << row.kind;
        EXPECT_EQ(message.client, row.client) << row.kind;
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
