/// The flows of pages that a host lays out itself, estimates and settlements, and page data.
#include <SharedInterface.h>

#include "FilePage.h"

namespace conformance {

namespace {

/// A kind of project with the message that it comes as.
const struct {
    const char* promise;
    int kind;
    const char* model;  ///< One with a usage number, where the kind has some.
} pageData[] = {
    {"page data of a budget is taken: message 100", 4, "清单计价【国标2013规范，四川2020定额】"},
    {"page data of an estimate is taken: message 102", 6, "概算"},
    {"page data of a settlement is taken: message 104", 8, "结算"},
    {"page data of a general contract is taken: message 105", 16,
     "2022工程总承包清单计价【初设前】"},
    {"page data of a general contract's audit is taken: message 103", 17, ""},
    {"page data of no known kind is taken: message 0", 2, ""},
};

void pageDataIsTaken(int kind, const QString& model, const QString& project) {
    const QVariantMap values{{QStringLiteral("TemplateName"), model},
                             {QStringLiteral("GcLj"), project}};
    const Opened opened;
    expectTaken([&] {
        QMetaObject::invokeMethod(opened.dialog.data(), "slotCreatePro", Qt::DirectConnection,
                                  QArgument<QVariantMap>("QMap<QString,QVariant>", values),
                                  Q_ARG(int, kind));
    });
}

/// The user's settings, as they were before a flow remembers something.
class SettingsKept {
  public:
    ~SettingsKept() {
        if (helper) helper->SetSysSettingInfo(before, ProjectSettingSpace::SettingLocal);
    }

  private:
    ProjectSettingHelper* helper = ProjectSettingHelper::GetProjectSettingHelper();
    ProjectSettingSpace::SysSettingInfo before =
        helper ? helper->GetSysSettingInfo() : ProjectSettingSpace::SysSettingInfo();
};

/// The page has no fields here, as if nothing had been chosen on it.
void pageStartsAProject(const char* slot) {
    needFirstPage();
    const SettingsKept kept;
    const Opened opened;
    expectHandedOver(opened, [&] { QMetaObject::invokeMethod(opened.dialog.data(), slot); });
}

}  // namespace

QVector<Promise> pageFlows(const Files& files) {
    QVector<Promise> all{
        {QStringLiteral("an estimate's page starts a project"),
         [] { pageStartsAProject("xjgsButtonSlot"); }},
        {QStringLiteral("a settlement's page starts a project"),
         [] { pageStartsAProject("xjjsButtonSlot"); }},
    };
    for (const auto& row : pageData)
        all.append({QLatin1String(row.promise), [row, project = files.project] {
                        pageDataIsTaken(row.kind, QString::fromUtf8(row.model), project);
                    }});
    return all;
}

}  // namespace conformance
