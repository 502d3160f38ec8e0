#include "core/hostMessages.h"

#include "SharedInterface.h"

namespace newpro {

const QString wholeProjectFee = QStringLiteral("整体计费");
const QString perUnitFee = QStringLiteral("单独计费");

namespace {

const QLatin1String clientKey("client_pid");
const QLatin1String projectTypeKey("m_strProjectType");
const QLatin1String feeModeKey("mJfms");

bool hasBits(int kind, int bits) {
    return (kind & bits) == bits;
}

}  // namespace

void PluginMessage::addClient() {
    body.insert(clientKey, client);
}

void PluginMessage::send() const {
    Communication::GetInstance()->SendMsgToPlugin(client, code, body);
}

QVariantMap newProjectMap(const ProjectSettingSpace::TaxTemplateInfo& model) {
    // The two flags are integers, not booleans: the host reads them as such.
    QVariantMap map{
        {QStringLiteral("m_AppType"), QStringLiteral("")},
        {projectTypeKey, model.name},
        {QStringLiteral("m_nSsgcId"), -1},
        {QStringLiteral("m_nSjgcId"), 0},
        {QStringLiteral("m_nAuditMaxId"), 0},
        {QStringLiteral("m_nZxgcMaxId"), 0},
        {QStringLiteral("m_strPassWord"), QStringLiteral("")},
        {QStringLiteral("m_strEditPassWord"), QStringLiteral("")},
        {QStringLiteral("m_dFileVersion"), 0.0},
        {QStringLiteral("m_nZbqd"), 0},
        {QStringLiteral("m_bFileLocked"), 0},
        {QStringLiteral("m_bHaveEstimate"), 0},
        {feeModeKey, model.feeMode == wholeProjectFee ? 1 : 0},
    };
    return map;
}

PluginMessage pageMessage(const QVariantMap& values, int kind) {
    PluginMessage message{kind, NoMessageCode, {}};
    const auto copy = [&](QLatin1String key) {
        message.body.insert(key, values.value(key).toString());
    };
    const auto appType = [&](QLatin1String type) {
        message.body.insert(QLatin1String("apptype"), type);
    };
    const QLatin1String file("GcLj");
    const QLatin1String budget("Kvys");
    const QLatin1String contracting("Kvzcb");

    message.body.insert(QLatin1String("GcLx"),
                        values.value(QStringLiteral("TemplateName")).toString());
    if (hasBits(kind, BudgetProgram | estimateBit)) {
        // No "apptype" here: deliberate. The estimate's is the budget's, and would tell the plug-in
        // the wrong kind.
        message.code = CreateEstimate;
        copy(QLatin1String("GsMb"));
        copy(file);
    } else if (hasBits(kind, BudgetProgram | fromFileBit)) {
        message.code = CreateFromFile;
        message.client = BudgetProgram;
        copy(file);
        appType(budget);
    } else if (hasBits(kind, BudgetProgram)) {
        message.code = CreateBudget;
        appType(budget);
    } else if (hasBits(kind, ContractingProgram | fromFileBit)) {
        message.code = CreateFromFile;
        message.client = ContractingProgram;
        copy(file);
        appType(contracting);
    } else if (hasBits(kind, ContractingProgram)) {
        message.code = CreateContracting;
        appType(contracting);
    } else if (kind == SettlementProgram) {
        message.code = CreateSettlement;
        copy(QLatin1String("JsMb"));
        copy(file);
        appType(QLatin1String("Kvjs"));
    }
    return message;
}

PluginMessage contractingMessage(const QString& file) {
    PluginMessage message{
        ContractingProgram, ContractingFromFile, {{QStringLiteral("pro_file"), file}}};
    message.addClient();
    return message;
}

PluginMessage excelMessage(const ExcelChoice& choice) {
    const bool budget = choice.appType.toUpper() == QLatin1String("KVYS");
    PluginMessage message{budget ? BudgetProgram : ContractingProgram,
                          ImportExcel,
                          {{QStringLiteral("isnewapp"), true},
                           {QStringLiteral("type"), choice.type},
                           {QStringLiteral("path"), choice.path},
                           {QStringLiteral("jjms"), choice.model},
                           {QStringLiteral("gcmb"), choice.projectTemplate}}};
    message.addClient();
    return message;
}

PluginMessage tenderMessage(const QString& file) {
    return {BudgetProgram, ImportTender, {{QStringLiteral("dzb_file"), file}}};
}

void sendTemplateMessage(const QString& path) {
    Communication::GetInstance()->SendMsg(BudgetProgram, CreateFromTemplate, path);
}

}  // namespace newpro
