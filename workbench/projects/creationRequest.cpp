#include "workbench/projects/creationRequest.h"

#include <QFileInfo>
#include <QVector>

#include "core/hostContract.h"
#include "workbench/journal/toJson.h"
#include "workbench/projects/fileKind.h"

namespace workbench {

using namespace newpro;

namespace {

constexpr int ofClient = 0;  // the request's own program type

/// One creation code: the file it makes and the keys of its payload.
struct Creation {
    int code;
    int programType;
    QString titleKey;   ///< Null: named after the source.
    QString sourceKey;  ///< Null: none. Empty: the payload itself is the path.
    bool needsSource;
    QString words;  ///< For the user; %1 title, %2 name of the source.
};

const QVector<Creation>& creations() {
    using namespace messageKey;
    const QString none;
    const QString itself = QStringLiteral("");
    const auto words = [](const char* utf8) { return QString::fromUtf8(utf8); };
    static const QVector<Creation> table = {
        {CreateFromModel, ofClient, projectKey::projectType, none, false,
         words("按计价模式“%1”新建")},
        {CreateFromTemplate, ofClient, none, itself, true, words("由模板工程“%2”新建")},
        {CreateBudget, BudgetProgram, projectType, none, false, words("按“%1”新建预算")},
        {CreateEstimate, EstimateFile, projectType, projectFile, false, words("新建概算")},
        {CreateFromFile, AuditProgram, none, projectFile, true, words("由工程文件“%2”新建审核")},
        {CreateSettlement, SettlementProgram, projectType, projectFile, false, words("新建结算")},
        {CreateContracting, ContractingProgram, projectType, none, false,
         words("按“%1”新建总承包")},
        {ImportExcel, ofClient, none, importPath, true, words("由Excel“%2”导入")},
        {ImportTender, BudgetProgram, none, tenderFile, true, words("由电子招投标数据“%2”导入")},
        {ContractingFromFile, ContractingProgram, none, contractingFile, true,
         words("由工程文件“%2”新建总承包")},
    };
    return table;
}

const Creation* creationOf(int code) {
    for (const Creation& creation : creations()) {
        if (creation.code == code) return &creation;
    }
    return nullptr;
}

QString textOf(const QVariant& payload, const QString& key) {
    if (key.isNull()) return {};
    return key.isEmpty() ? payload.toString() : payload.toMap().value(key).toString();
}

// A QJsonObject converts to a map only as a whole.
QVariant asMap(const QVariant& payload) {
    return payload.userType() == QMetaType::QJsonObject
               ? QVariant(payload.toJsonObject().toVariantMap())
               : payload;
}

int programTypeOf(const Creation& creation, int client) {
    if (creation.programType == ofClient) return client;
    if (creation.programType == AuditProgram && client == ContractingProgram)
        return ContractingAudit;
    return creation.programType;
}

/// An audit keeps the family of what it audits: the suffix of the source's kind behind an
/// "S".
QString suffixOf(int programType, const QString& source) {
    if (programType != AuditProgram) return suffixOfProgramType(programType);
    const QString audited = suffixOfProgramType(programTypeOfFile(source));
    if (audited.isEmpty()) return suffixOfProgramType(AuditProgram);
    return audited.startsWith(QLatin1Char('S')) ? audited : QLatin1Char('S') + audited;
}

}  // namespace

std::optional<CreationPlan> planOf(const CreationRequest& request) {
    const Creation* creation = creationOf(request.code);
    if (!creation) return std::nullopt;
    const QVariant payload = asMap(request.payload);
    CreationPlan plan;
    plan.source = textOf(payload, creation->sourceKey);
    if (creation->needsSource && plan.source.isEmpty()) return std::nullopt;
    plan.programType = programTypeOf(*creation, request.client);
    plan.suffix = suffixOf(plan.programType, plan.source);
    if (plan.suffix.isEmpty()) return std::nullopt;
    plan.title = textOf(payload, creation->titleKey);
    if (plan.title.isEmpty()) plan.title = QFileInfo(plan.source).completeBaseName();
    return plan;
}

QJsonObject toJson(const CreationRequest& request) {
    return {{QStringLiteral("channel"), request.channel},
            {QStringLiteral("client"), request.client},
            {QStringLiteral("code"), request.code},
            {QStringLiteral("payload"), toJson(request.payload)}};
}

QString summaryOf(const QJsonObject& request, const QJsonObject& source) {
    const Creation* creation = creationOf(request.value(QLatin1String("code")).toInt());
    if (!creation) return QStringLiteral("来源未知");
    const QVariant payload = request.value(QLatin1String("payload")).toVariant();
    const QString title = textOf(payload, creation->titleKey);
    const QString sourceName = QFileInfo(source.value(QLatin1String("path")).toString()).fileName();
    QString words = creation->words;
    words.replace(QLatin1String("%1"), title);
    words.replace(QLatin1String("%2"), sourceName);
    const QVariantMap map = payload.toMap();
    const auto add = [&](const QString& label, const QString& text) {
        if (!text.isEmpty()) words += QStringLiteral("，") + label + text;
    };
    if (creation->titleKey.isNull() || !creation->words.contains(QLatin1String("%1"))) {
        add(QStringLiteral("模板："), title);
    }
    if (creation->sourceKey.size() > 0 && !creation->needsSource) {
        add(QStringLiteral("源文件："), sourceName);
    }
    add(QStringLiteral("概算模板："), map.value(messageKey::estimateTemplate).toString());
    add(QStringLiteral("结算模板："), map.value(messageKey::settlementTemplate).toString());
    add(QStringLiteral("计价模式："), map.value(messageKey::pricingModel).toString());
    if (map.contains(projectKey::feeMode)) {
        const bool whole = map.value(projectKey::feeMode).toInt() == FeeOfWholeProject;
        add({}, whole ? wholeProjectFee : perUnitFee);
    }
    return words;
}

}  // namespace workbench
