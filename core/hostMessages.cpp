#include "core/hostMessages.h"

#include "SharedInterface.h"

namespace newpro {

namespace {

bool hasBits(int kind, int bits) {
    return (kind & bits) == bits;
}

}  // namespace

void PluginMessage::addClient() {
    body.insert(messageKey::client, client);
}

void PluginMessage::send() const {
    Communication::GetInstance()->SendMsgToPlugin(client, code, body);
}

QVariantMap newProjectMap(const ProjectSettingSpace::TaxTemplateInfo& model) {
    // The two flags are integers, not booleans: the host reads them as such.
    QVariantMap map{
        {projectKey::appType, QStringLiteral("")},
        {projectKey::projectType, model.name},
        {projectKey::ssgcId, -1},
        {projectKey::sjgcId, 0},
        {projectKey::auditMaxId, 0},
        {projectKey::zxgcMaxId, 0},
        {projectKey::password, QStringLiteral("")},
        {projectKey::editPassword, QStringLiteral("")},
        {projectKey::fileVersion, 0.0},
        {projectKey::zbqd, 0},
        {projectKey::isLocked, 0},
        {projectKey::hasEstimate, 0},
        {projectKey::feeMode, model.feeMode == wholeProjectFee ? FeeOfWholeProject : FeePerUnit},
    };
    return map;
}

PluginMessage pageMessage(const QVariantMap& values, int kind) {
    PluginMessage message{kind, NoMessageCode, {}};
    const auto copy = [&](QLatin1String key) {
        message.body.insert(key, values.value(key).toString());
    };
    const auto appType = [&](QLatin1String type) {
        message.body.insert(messageKey::appType, type);
    };
    const QLatin1String file = messageKey::projectFile;

    message.body.insert(messageKey::projectType, values.value(templateNameKey).toString());
    if (hasBits(kind, BudgetProgram | estimateBit)) {
        // No "apptype" here: deliberate. The estimate's is the budget's, and would tell the plug-in
        // the wrong kind.
        message.code = CreateEstimate;
        copy(messageKey::estimateTemplate);
        copy(file);
    } else if (hasBits(kind, BudgetProgram | fromFileBit)) {
        message.code = CreateFromFile;
        message.client = BudgetProgram;
        copy(file);
        appType(applicationType::budget);
    } else if (hasBits(kind, BudgetProgram)) {
        message.code = CreateBudget;
        appType(applicationType::budget);
    } else if (hasBits(kind, ContractingProgram | fromFileBit)) {
        message.code = CreateFromFile;
        message.client = ContractingProgram;
        copy(file);
        appType(applicationType::contracting);
    } else if (hasBits(kind, ContractingProgram)) {
        message.code = CreateContracting;
        appType(applicationType::contracting);
    } else if (kind == SettlementProgram) {
        message.code = CreateSettlement;
        copy(messageKey::settlementTemplate);
        copy(file);
        appType(applicationType::settlement);
    }
    return message;
}

PluginMessage contractingMessage(const QString& file) {
    PluginMessage message{
        ContractingProgram, ContractingFromFile, {{messageKey::contractingFile, file}}};
    message.addClient();
    return message;
}

PluginMessage excelMessage(const ExcelChoice& choice) {
    const bool budget = choice.appType.toUpper() == QString(applicationType::budget).toUpper();
    PluginMessage message{budget ? BudgetProgram : ContractingProgram,
                          ImportExcel,
                          {{messageKey::isNewProject, true},
                           {messageKey::importType, choice.type},
                           {messageKey::importPath, choice.path},
                           {messageKey::pricingModel, choice.model},
                           {messageKey::projectTemplate, choice.projectTemplate}}};
    message.addClient();
    return message;
}

PluginMessage tenderMessage(const QString& file) {
    return {BudgetProgram, ImportTender, {{messageKey::tenderFile, file}}};
}

void sendTemplateMessage(const QString& path) {
    Communication::GetInstance()->SendMsg(BudgetProgram, CreateFromTemplate, path);
}

}  // namespace newpro
