#include "core/projectKind.h"

#include <QVector>

namespace newpro {

namespace {

const QLatin1String wholeProcessType("Kvqgc");

const QVector<ProjectKind>& kinds() {
    static const QVector<ProjectKind> table = {
        {QStringLiteral("预算工程"), BudgetProgram, applicationType::budget,
         QStringLiteral("kvys")},
        {QStringLiteral("概算工程"), EstimateProgram, applicationType::budget, QString()},
        {QStringLiteral("结算工程"), SettlementProgram, applicationType::settlement, QString()},
        {QStringLiteral("总承包工程"), ContractingProgram, applicationType::contracting,
         QStringLiteral("kvzcb")},
        {QStringLiteral("全过程工程"), WholeProcessProgram, wholeProcessType, QString()},
        {QStringLiteral("审核工程"), AuditProgram, applicationType::budget, QString()},
    };
    return table;
}

}  // namespace

void CurrentKind::choose(const ProjectKind& kind) {
    programType = kind.programType;
    appType = kind.appType;
    if (!kind.appTypeKey.isNull()) appTypeKey = kind.appTypeKey;
}

const ProjectKind* kindOfLabel(const QString& label) {
    for (const ProjectKind& kind : kinds()) {
        if (kind.label == label) return &kind;
    }
    return nullptr;
}

QString kindName(int programType) {
    for (const ProjectKind& kind : kinds()) {
        if (kind.programType == programType) return kind.label;
    }
    return kinds().constFirst().label;
}

bool programTypeOf(const QString& appType, int& type) {
    static const struct {
        QLatin1String appType;
        int type;
    } table[] = {
        {applicationType::budget, BudgetProgram},
        {applicationType::contracting, ContractingProgram},
        {applicationType::settlement, SettlementProgram},
        {wholeProcessType, WholeProcessProgram},
    };
    for (const auto& row : table) {
        if (appType == row.appType) {
            type = row.type;
            break;
        }
    }
    return true;
}

}  // namespace newpro
