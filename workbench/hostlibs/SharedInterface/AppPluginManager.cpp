#include "SharedInterface.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/journal/Journal.h"
#include "workbench/projects/ProgramType.h"

using workbench::Host;
using workbench::Journal;

namespace {

QString textOf(int client) {
    static const QMap<int, QString> texts = {
        {workbench::BudgetProgram, QStringLiteral("预算")},
        {workbench::EstimateProgram, QStringLiteral("概算")},
        {workbench::SettlementProgram, QStringLiteral("结算")},
        {workbench::ContractingProgram, QStringLiteral("总承包")},
        {workbench::WholeProcessProgram, QStringLiteral("全过程")}};
    return texts.value(client);
}

}  // namespace

AppPluginManager* AppPluginManager::instance() {
    static AppPluginManager manager;
    const bool present = Host::instance().switches().pluginManagerPresent;
    return workbench::accessed("AppPluginManager::instance", present ? &manager : nullptr);
}

bool AppPluginManager::isLoaded(int client) {
    return workbench::journalled("AppPluginManager::isLoaded", {client}, [client] {
        workbench::Switches& switches = Host::instance().switches();
        switches.lastAskedPlugin = client;
        return switches.plugins.value(client, false);
    });
}

void AppPluginManager::load(int client) {
    Journal::instance().call("AppPluginManager::load", {client});
    Host::instance().switches().plugins.insert(client, true);
}

void AppPluginManager::load() {
    Journal::instance().call("AppPluginManager::load");
    workbench::Switches& switches = Host::instance().switches();
    if (switches.lastAskedPlugin) switches.plugins.insert(*switches.lastAskedPlugin, true);
}

QString AppPluginManager::pluginText(int client) {
    return workbench::journalled("AppPluginManager::pluginText", {client},
                                 [client] { return textOf(client); });
}

void AppPluginManager::notify(const QString& text, int client) {
    Journal::instance().call("AppPluginManager::notify", {text, client});
}
