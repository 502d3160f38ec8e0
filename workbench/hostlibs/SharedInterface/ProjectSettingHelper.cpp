#include "SharedInterface.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/journal/Journal.h"

using workbench::Host;
using workbench::Installation;
using workbench::Journal;
using workbench::toJson;

namespace {

Installation& installation() {
    return Host::instance().installation();
}

QJsonObject toJson(const ProjectSettingSpace::BasicSettingsInfo& info) {
    return {{QStringLiteral("projectFolder"), info.projectFolder},
            {QStringLiteral("others"), workbench::toJson(info.others)}};
}

const auto countOf = [](const auto& records) { return QJsonValue(records.size()); };

}  // namespace

ProjectSettingHelper* ProjectSettingHelper::GetProjectSettingHelper() {
    static ProjectSettingHelper helper;
    const bool present = Host::instance().switches().configurationPresent;
    return workbench::accessed("ProjectSettingHelper::GetProjectSettingHelper",
                               present ? &helper : nullptr);
}

const QList<ProjectSettingSpace::ProTaxTemplateInfo>&
ProjectSettingHelper::GetProTaxTemplateInfoList(const QString& appType, const QString& taxMode) {
    using List = QList<ProjectSettingSpace::ProTaxTemplateInfo>;
    static List answer;
    const auto models = [&]() -> const List& {
        return answer = installation().models.value(appType);
    };
    return Journal::instance().call("ProjectSettingHelper::GetProTaxTemplateInfoList",
                                    {appType, taxMode}, models, countOf);
}

ProjectSettingSpace::PricingModelInfoMap ProjectSettingHelper::GetPricingModelInfoMap(
    const QString& appType, const QString& taxMode) {
    return Journal::instance().call(
        "ProjectSettingHelper::GetPricingModelInfoMap", {appType, taxMode},
        [&] { return installation().pricing.value(appType); }, countOf);
}

QMap<QString, QList<ProjectSettingSpace::JLTaxTemplateInfo>>
ProjectSettingHelper::getJiLinMoBanList() {
    return Journal::instance().call(
        "ProjectSettingHelper::getJiLinMoBanList", {},
        [] { return installation().groupedTemplates; }, countOf);
}

ProjectSettingSpace::BasicSettingsInfo ProjectSettingHelper::getCurModeBasicSettings() {
    return Journal::instance().call(
        "ProjectSettingHelper::getCurModeBasicSettings", {},
        [] { return installation().basicSettings; },
        [](const auto& info) { return QJsonValue(toJson(info)); });
}

const ProjectSettingSpace::SysSettingInfo& ProjectSettingHelper::GetSysSettingInfo() {
    return Journal::instance().call(
        "ProjectSettingHelper::GetSysSettingInfo", {},
        []() -> const ProjectSettingSpace::SysSettingInfo& {
            return installation().systemSettings;
        },
        [](const auto& info) { return QJsonValue(toJson(info)); });
}

void ProjectSettingHelper::SetSysSettingInfo(const ProjectSettingSpace::SysSettingInfo& info,
                                             ProjectSettingSpace::ProjectSettingIsTb synchronise) {
    Journal::instance().call("ProjectSettingHelper::SetSysSettingInfo",
                             {toJson(info), int(synchronise)});
    installation().systemSettings = info;
    const QString error = installation().saveSystemSettings();
    if (!error.isEmpty()) qWarning("%s", qUtf8Printable(error));
}

TranMiUtilAction* TranMiUtilAction::Instance() {
    static TranMiUtilAction action;
    return workbench::accessed("TranMiUtilAction::Instance", &action);
}

QString TranMiUtilAction::JudageValue(const QString& key, const QString& fallback) {
    return workbench::journalled("TranMiUtilAction::JudageValue", {key, fallback}, [&] {
        return Host::instance().switches().transactions.value(key, fallback);
    });
}
