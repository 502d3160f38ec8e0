#include "files/fileFlow.h"

#include "core/projectKind.h"
#include "files/projectFileType.h"

namespace newpro {

namespace {

bool auditTakes(const QString& suffix) {
    // "GCF" files are older than the type codes and have none.
    const int type = projectFileType(suffix);
    return suffix == QLatin1String("GCF") || (type & (4 | 8 | 16 | 32)) || type == 2;
}

bool isNoGroup(const QString& suffix) {
    return suffix != QLatin1String("GCFG") && suffix != QLatin1String("SGCFG");
}

}  // namespace

const FlowTraits& traitsOf(FileFlow flow) {
    static const QString budget = QStringLiteral("请选择预算工程文件");
    static const QString project = QStringLiteral("请选择工程文件");
    static const QString anyKind = QStringLiteral("请选择预算/概算/总承包工程文件");
    static const QString group = QStringLiteral("GCFG");
    static const QString prefixedGroup = QStringLiteral("SGCFG");
    static const QVector<PageText> estimateTexts = {
        {QStringLiteral("TemplateName"), &FilePage::templateCombo, true},
        {QStringLiteral("GsMb"), &FilePage::modelCombo, true}};
    static const QVector<PageText> settlementTexts = {
        {QStringLiteral("JsMb"), &FilePage::templateCombo, false}};
    constexpr int creation = 9001;
    // In the order of FileFlow. Browsing for general contracting takes a "GCFG" file, which the
    // flow itself refuses: deliberate.
    // clang-format off
    static const FlowTraits table[] = {
        // page, optional, hostMustKnow, flowUsage, creationUsage, mode, remembersModel, texts,
        // takesSuffix, noFile, wrongSuffix, suffixKind, browseMode, notBrowsed
        {&FilePages::estimate, true, true, 0, creation, EstimateProgram, true, estimateTexts,
         isNoGroup, budget, budget, 2, 2, {group, prefixedGroup}},
        {&FilePages::settlement, true, false, 0, creation, SettlementProgram, false,
         settlementTexts, isNoGroup, budget, budget, 8, 2, {group, prefixedGroup}},
        {&FilePages::audit, false, false, 0, 0, AuditProgram, false, {},
         auditTakes, budget, anyKind, 1, 2, {}},
        {&FilePages::contracting, false, false, 20011, 0, 0, false, {},
         isNoGroup, project, project, 16, 1, {prefixedGroup}},
    };
    // clang-format on
    return table[int(flow)];
}

}  // namespace newpro
