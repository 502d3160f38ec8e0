#include "files/newFromFile.h"

#include "SharedInterface.h"
#include "core/boxes.h"
#include "core/firstPage.h"
#include "core/hostMessages.h"
#include "files/fileChoice.h"
#include "osgi.h"

namespace newpro {

namespace {

constexpr int creationUsage = 9001;
constexpr int contractingUsage = 20011;

/// What sets a flow that ends in createFromPage apart.
struct PageFlow {
    bool optional;      ///< The file counts only while the page's option is checked.
    bool hostMustKnow;  ///< The host must take the file for a budget project.
    bool logged;        ///< The creation stands in the usage log.
    int mode;           ///< Flags of the kind for createFromPage.
};

PageFlow pageFlow(FileFlow flow) {
    switch (flow) {
        case FileFlow::Estimate:
            return {true, true, true, EstimateProgram};
        case FileFlow::Settlement:
            return {true, false, true, SettlementProgram};
        case FileFlow::Audit:
            return {false, false, false, AuditProgram};
        case FileFlow::Contracting:
            break;
    }
    return {false, false, false, ContractingProgram};
}

/// Runs `body` between start and end of a usage function. The end is logged on every way out.
template <typename Body>
void logged(int function, const Body& body) {
    SharedInterface::UseFunc(function, QString());
    try {
        body();
    } catch (...) {
        // The first exception is the one to report, whatever becomes of the log.
        try {
            SharedInterface::EndUseFun(function, QString());
        } catch (...) {
        }
        throw;
    }
    SharedInterface::EndUseFun(function, QString());
}

QString textOf(const zBaseCombox* combo) {
    return combo ? combo->currentText() : QString();
}

/// @return whether the cloud account is logged in; asks the user for it once.
bool logIn(FirstPagePlugin& firstPage) {
    UserInfo* account = Users::Instance()->Kvy();
    if (account->IsLogin()) return true;
    firstPage.showLogin(QJsonObject());
    return account->IsLogin();
}

/// @return whether the flow takes the file; the user is told why not.
bool accepted(FileFlow flow, const QString& file) {
    const Verdict verdict = judge(flow, factsOf(file));
    if (verdict != Verdict::Accepted) {
        refuse(refusalText(flow, verdict));
        return false;
    }
    if (pageFlow(flow).hostMustKnow && GetProgramTypeByFile(file) != BudgetProgram) {
        refuse(QStringLiteral("工程文件打开失败。您试图打开一个非工程文件"));
        return false;
    }
    return true;
}

/// @param file the file to start from; empty to start from the page's template.
QVariantMap valuesOf(FileFlow flow, const FilePage& page, const QString& file) {
    QVariantMap values{{QStringLiteral("TemplateName"), QString()}, {QStringLiteral("GcLj"), file}};
    if (flow == FileFlow::Settlement) {
        values.insert(QStringLiteral("JsMb"), textOf(page.templateCombo));
    }
    if (flow == FileFlow::Estimate && file.isEmpty()) {
        // The host takes the pricing model under the key of the template.
        values.insert(QStringLiteral("TemplateName"), textOf(page.templateCombo));
        values.insert(QStringLiteral("GsMb"), textOf(page.modelCombo));
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

void create(CreationDialog& dialog, FileFlow flow, const QVariantMap& values) {
    const PageFlow traits = pageFlow(flow);
    const auto create = [&] { dialog.createFromPage(values, traits.mode); };
    if (traits.logged) {
        logged(creationUsage, create);
    } else {
        create();
    }
}

void run(CreationDialog& dialog, const FilePage& page, FileFlow flow) {
    FirstPagePlugin* firstPage = firstPageService();
    if (!firstPage) return;
    const QPointer<QWidget> alive(dialog.widget());
    QString file;
    if (!pageFlow(flow).optional || (page.fromFile && page.fromFile->isChecked())) {
        file = page.path();
        page.select(file);
        if (isCloudPath(file) && (!logIn(*firstPage) || !alive)) return;
        if (!accepted(flow, file)) return;
    }
    const QVariantMap values = valuesOf(flow, page, file);
    if (flow == FileFlow::Estimate && file.isEmpty()) rememberModel(textOf(page.modelCombo));
    dialog.closeDialog();
    if (flow == FileFlow::Contracting) {
        contractingMessage(file).send();
    } else if (alive) {
        create(dialog, flow, values);
    }
}

}  // namespace

void newFromFile(CreationDialog& dialog, const FilePages& pages, FileFlow flow) {
    // A copy: the pages belong to the dialog, which may go before the flow ends.
    const FilePage page = pages.of(flow);
    if (flow == FileFlow::Contracting) {
        logged(contractingUsage, [&] { run(dialog, page, flow); });
    } else {
        run(dialog, page, flow);
    }
}

}  // namespace newpro
