#include "files/newFromFile.h"

#include <optional>

#include "SharedInterface.h"
#include "core/boxes.h"
#include "core/firstPage.h"
#include "core/guard.h"
#include "core/hostMessages.h"
#include "core/part.h"
#include "files/fileChoice.h"
#include "files/fileFlow.h"
#include "osgi.h"

namespace newpro {

namespace {

/// Runs `body` between start and end of a usage function. The end is logged on every way out.
template <typename Body>
void logged(std::optional<int> function, const Body& body) {
    if (!function) return body();
    SharedInterface::UseFunc(*function, QString());
    withEnd(body, [function] { SharedInterface::EndUseFun(*function, QString()); });
}

QString textOf(const zBaseCombox* combo) {
    return combo ? combo->currentText() : QString();
}

/// @return whether the cloud account is logged in; asks the user for it once.
bool logIn(FirstPagePlugin& firstPage) {
    const auto isLoggedIn = [] { return Users::Instance()->Kvy()->IsLogin(); };
    if (isLoggedIn()) return true;
    firstPage.showLogin(QJsonObject());
    return isLoggedIn();  // asked for anew: a log-in may bring an account of its own
}

/// @return whether the account is logged in and the dialog is still there for the flow. While the
///         user was asked, another creation may have closed it: it takes no input since.
bool logInWithin(const Part<QWidget>& dialog, FirstPagePlugin& firstPage) {
    const bool listened = dialog->isEnabled();
    return logIn(firstPage) && dialog && !(listened && !dialog->isEnabled());
}

/// @return whether the flow takes the file; the user is told why not.
bool accepted(FileFlow flow, const QString& file) {
    const Verdict verdict = judge(flow, factsOf(file));
    if (verdict != Verdict::Accepted) {
        refuse(refusalText(flow, verdict));
        return false;
    }
    if (choiceOf(flow).hostMustKnow && GetProgramTypeByFile(file) != BudgetProgram) {
        refuse(QStringLiteral("工程文件打开失败。您试图打开一个非工程文件"));
        return false;
    }
    return true;
}

/// @param file the file to start from; empty when starting from the page's template.
QVariantMap valuesOf(const CreationTraits& traits, const FilePage& page, const QString& file,
                     bool fromTemplate) {
    QVariantMap values{{templateNameKey, QString()}, {messageKey::projectFile, file}};
    for (const PageText& text : traits.texts) {
        if (fromTemplate || !text.fromTemplateOnly) {
            values.insert(text.key, textOf(page.*text.combo));
        }
    }
    return values;
}

/// Keeps the pricing model as the one to propose next time.
void rememberModel(const QString& model) {
    ProjectSettingHelper* settings = ProjectSettingHelper::GetProjectSettingHelper();
    if (!settings) return;
    ProjectSettingSpace::SysSettingInfo info = settings->GetSysSettingInfo();
    info.modelName = model;
    settings->SetSysSettingInfo(info, ProjectSettingSpace::SettingLocal);
}

/// @param shown the sign of life of the page.
void run(CreationDialog& dialog, const FilePage& page, const Part<QWidget>& shown, FileFlow flow) {
    const Part<QWidget> alive(dialog.widget());
    FirstPagePlugin* firstPage = firstPageService();
    if (!firstPage || !alive || !shown) return;
    const CreationTraits& traits = creationOf(flow);
    const bool fromTemplate =
        traits.fileIsOptional && !(page.fromFile && page.fromFile->isChecked());
    QString file;
    if (!fromTemplate) {
        file = page.path();
        page.select(file);
        if (isCloudPath(file) && !logInWithin(alive, *firstPage)) return;
        if (!accepted(flow, file)) return;
    }
    const QVariantMap values = valuesOf(traits, page, file, fromTemplate);
    if (fromTemplate && traits.remembersModel) rememberModel(textOf(page.modelCombo));
    dialog.closeDialog();
    if (!traits.kind) {
        contractingMessage(file).send();
    } else if (alive) {
        logged(traits.creationUsage, [&] { dialog.createFromPage(values, *traits.kind); });
    }
}

}  // namespace

void newFromFile(CreationDialog& dialog, const FilePages& pages, FileFlow flow) {
    // A copy: the pages belong to the dialog, which may go before the flow ends.
    const FilePage page = pages.of(flow);
    // A page that the host deletes on the way must not pass for one that was never built: its
    // fields would count as empty, and the user be told of a choice that was never made.
    const Part<QWidget> shown(page.fileCombo ? page.fileCombo.data() : dialog.widget());
    logged(creationOf(flow).flowUsage, [&] { run(dialog, page, shown, flow); });
}

}  // namespace newpro
