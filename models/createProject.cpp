#include "models/createProject.h"

#include "core/firstPage.h"
#include "core/hostMessages.h"
#include "models/usageCodes.h"

namespace newpro {

namespace {

// Usage statistics of the host.
constexpr int newFromModelFunction = 13015;
constexpr int modelColumn = 4;
constexpr int noRow = -1;

void logModelUse(const QString& modelName) {
    SharedInterface::UseFunc(newFromModelFunction, QString());
    const QString code = modelLogCode(modelName);
    if (!code.isNull()) SharedInterface::InsertFunLog(GNSJ_XJGC, modelColumn, code);
    SharedInterface::EndFunLog(GNSJ_XJGC, false, noRow);
}

}  // namespace

void createFromModel(CreationDialog& dialog, ProjectSettingSpace::TaxTemplateInfo model) {
    const QPointer<QWidget> alive = dialog.widget();
    dialog.acceptDialog();
    if (!hostIsReady()) return;
    const QVariantMap map = newProjectMap(model);
    logModelUse(model.name);
    if (!alive) return;
    int programType = UnknownProgram;
    if (dialog.programTypeOfAppType(programType)) dialog.emitCreatePro(programType, map);
}

void createFromPageData(AppPluginManager* manager, const QVariantMap& values, int kind) {
    const int function = modelUsageFunction(values.value(templateNameKey).toString());
    if (function) SharedInterface::UseFunc(function, QString());

    // Asked for and not used: the order of the manager's three operations is the host's.
    if (manager) manager->pluginText(kind);
    PluginMessage message = pageMessage(values, kind);
    if (manager && manager->isLoaded(message.client)) {
        message.addClient();
    } else if (manager) {
        manager->load();
    }
    message.send();

    if (function) SharedInterface::EndUseFun(function, QString());
}

}  // namespace newpro
