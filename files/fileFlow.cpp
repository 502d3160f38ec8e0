#include "files/fileFlow.h"

#include <QMap>

#include "core/fileDialogCodes.h"
#include "core/hostMessages.h"
#include "files/projectFileType.h"

namespace newpro {

namespace {

// Usage statistics of the host.
constexpr int newFromPageFunction = 9001;
constexpr int newContractingFunction = 20011;

const QString group = QStringLiteral("GCFG");
const QString prefixedGroup = QStringLiteral("SGCFG");

bool auditTakes(const QString& suffix) {
    // "GCF" files are older than the type codes and have none.
    return suffix == QLatin1String("GCF") || projectFileType(suffix) != UnknownFile;
}

bool isNoGroup(const QString& suffix) {
    return suffix != group && suffix != prefixedGroup;
}

ChoiceTraits budgetChoice(SuffixKind suffixes) {
    ChoiceTraits traits;
    traits.suffixKind = suffixes;
    traits.browseMode = CloudDisks;
    traits.notBrowsed = QStringList{group, prefixedGroup};
    traits.takesSuffix = isNoGroup;
    traits.noFile = QStringLiteral("请选择预算工程文件");
    traits.wrongSuffix = traits.noFile;
    return traits;
}

ChoiceTraits estimateChoice() {
    ChoiceTraits traits = budgetChoice(EstimateSuffixes);
    traits.hostMustKnow = true;
    return traits;
}

ChoiceTraits auditChoice() {
    ChoiceTraits traits = budgetChoice(AuditSuffixes);
    traits.notBrowsed.clear();
    traits.takesSuffix = auditTakes;
    traits.wrongSuffix = QStringLiteral("请选择预算/概算/总承包工程文件");
    return traits;
}

ChoiceTraits contractingChoice() {
    ChoiceTraits traits;
    traits.suffixKind = ContractingSuffixes;
    traits.browseMode = ContractingCloudDisks;
    // Browsing takes a "GCFG" file, which the flow itself refuses: deliberate. It is then shown
    // with its path, and refused with this flow's own text when it is used.
    traits.notBrowsed = QStringList{prefixedGroup};
    traits.takesSuffix = isNoGroup;
    traits.noFile = QStringLiteral("请选择工程文件");
    traits.wrongSuffix = traits.noFile;
    return traits;
}

CreationTraits estimateCreation() {
    CreationTraits traits;
    traits.fileIsOptional = true;
    traits.creationUsage = newFromPageFunction;
    traits.kind = EstimateProgram;
    traits.remembersModel = true;
    traits.texts = {{templateNameKey, &FilePage::templateCombo, true},
                    {messageKey::estimateTemplate, &FilePage::modelCombo, true}};
    return traits;
}

CreationTraits settlementCreation() {
    CreationTraits traits;
    traits.fileIsOptional = true;
    traits.creationUsage = newFromPageFunction;
    traits.kind = SettlementProgram;
    traits.texts = {{messageKey::settlementTemplate, &FilePage::templateCombo, false}};
    return traits;
}

CreationTraits auditCreation() {
    CreationTraits traits;
    traits.kind = AuditProgram;
    return traits;
}

CreationTraits contractingCreation() {
    CreationTraits traits;
    traits.flowUsage = newContractingFunction;
    return traits;
}

}  // namespace

const ChoiceTraits& choiceOf(FileFlow flow) {
    static const QMap<FileFlow, ChoiceTraits> table = {
        {FileFlow::Estimate, estimateChoice()},
        {FileFlow::Settlement, budgetChoice(SettlementSuffixes)},
        {FileFlow::Audit, auditChoice()},
        {FileFlow::Contracting, contractingChoice()},
    };
    return *table.constFind(flow);
}

const CreationTraits& creationOf(FileFlow flow) {
    static const QMap<FileFlow, CreationTraits> table = {
        {FileFlow::Estimate, estimateCreation()},
        {FileFlow::Settlement, settlementCreation()},
        {FileFlow::Audit, auditCreation()},
        {FileFlow::Contracting, contractingCreation()},
    };
    return *table.constFind(flow);
}

}  // namespace newpro
