#include "workbench/scenario/hostDialog.h"

#include <QAction>
#include <QPointer>

#include "dialog/NewProCfgDialog.h"
#include "dialog/xzGcLxDialog.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/ProjectStore.h"
#include "workbench/journal/Journal.h"
#include "workbench/journal/toJson.h"
#include "workbench/projects/ProgramType.h"
#include "workbench/projects/fileKind.h"

namespace workbench {

namespace {

void journalSignals(NewProCfgDialog* dialog) {
    Journal* journal = &Journal::instance();
    const auto record = [dialog, journal](auto signal, const char* name) {
        QObject::connect(dialog, signal, journal, [journal, name](auto... args) {
            journal->signal(QLatin1String(name), {toJson(QVariant(args))...});
        });
    };
    record(&NewProCfgDialog::SignalCreateCJZInt, "SignalCreateCJZInt");
    record(&NewProCfgDialog::SignalCreateCJZString, "SignalCreateCJZString");
    record(&NewProCfgDialog::SignalCreateMB, "SignalCreateMB");
    record(&NewProCfgDialog::SignalCreatePro, "SignalCreatePro");
}

}  // namespace

NewProCfgDialog* makeHostDialog(const DialogSetup& setup, ProjectStore& store, QWidget* parent) {
    Host& host = Host::instance();
    auto* dialog = new NewProCfgDialog(setup.hostMode, setup.showImportTender, parent);
    // The journal comes first: a project stands behind the signal that asked for it.
    journalSignals(dialog);
    QObject::connect(dialog, &NewProCfgDialog::SignalCreatePro, &store,
                     &ProjectStore::createFromModel);
    QObject::connect(dialog, &NewProCfgDialog::SignalCreateMB, &store,
                     &ProjectStore::createFromTemplate);
    dialog->SetIsFirstPageOpen(host.switches().firstPage != FirstPage::Absent);
    dialog->SetLsjl(setup.history.value_or(host.installation().history));
    return dialog;
}

QAction* addKindEntry(NewProCfgDialog* dialog, const QString& kind) {
    auto* mainPage = dialog->findChild<QWidget*>(QStringLiteral("pMiddlePanelV"));
    return mainPage ? dialog->addXjPage({QString(), kind, 0}, mainPage) : nullptr;
}

std::optional<QString> askForKind(QWidget* parent) {
    // It goes with its parent if that is destroyed while it is open.
    const QPointer<xzGcLxDialog> chooser(new xzGcLxDialog(parent));
    const int programType = chooser->exec();
    delete chooser;
    if (programType == BudgetProgram) return QString();
    if (programType == ContractingProgram) return kindOfProgramType(programType);
    return std::nullopt;
}

const char startEntryProperty[] = "startEntry";

void startWithEntry(NewProCfgDialog* dialog, const QString& entry) {
    if (entry.isEmpty()) return;
    for (QAction* action : dialog->findChildren<QAction*>())
        if (action->property("name").toString() == entry) return action->trigger();
    if (QAction* added = addKindEntry(dialog, entry)) added->trigger();
}

void showHostDialog(NewProCfgDialog* dialog) {
    dialog->setWindowModality(Qt::ApplicationModal);
    dialog->show();
}

}  // namespace workbench
