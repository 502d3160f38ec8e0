#include <SharedInterface.h>
#include <fileDialog.h>
#include <hostContract.h>
#include <osgi.h>
#include <zBaseControl.h>
#include <zCpf.h>

#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QTemporaryDir>
#include <stdexcept>

#include "Check.h"

namespace conformance {

namespace {

QString quoted(const QString& text) {
    return QLatin1Char('"') + text + QLatin1Char('"');
}

const QString nowhere = QStringLiteral("/nowhere/at/all.GCFX");

// Singletons and constants.

/// What the dialog asks for wherever it needs it.
const struct {
    const char* name;
    const void* (*instance)();
    bool mayBeNull = false;
} singletons[] = {
    {"Communication::GetInstance", []() -> const void* { return Communication::GetInstance(); }},
    {"TranMiUtilAction::Instance", []() -> const void* { return TranMiUtilAction::Instance(); }},
    {"CpfMain::GetInstance", []() -> const void* { return CpfMain::GetInstance(); }},
    {"Users::Instance", []() -> const void* { return Users::Instance(); }},
    {"Users::Kvy", []() -> const void* { return Users::Instance()->Kvy(); }},
    {"InterfaceAdaptation::getInstance",
     []() -> const void* { return InterfaceAdaptation::getInstance(); }},
    {"SharedInterface::getInstance", []() -> const void* { return SharedInterface::getInstance(); },
     true},
    {"ProjectSettingHelper::GetProjectSettingHelper",
     []() -> const void* { return ProjectSettingHelper::GetProjectSettingHelper(); }, true},
    {"AppPluginManager::instance", []() -> const void* { return AppPluginManager::instance(); },
     true},
    {"firstPagePlugin",
     []() -> const void* { return osgi::ObjectHelper::GetService("firstPagePlugin"); }, true},
};

void neverNull() {
    for (const auto& one : singletons)
        expect(one.mayBeNull || one.instance(),
               QLatin1String(one.name) + QLatin1String(" is null"));
}

void instancesStay() {
    for (const auto& one : singletons) {
        const void* first = one.instance();
        expect(one.instance() == first,
               QLatin1String(one.name) + QLatin1String(" answers another each time"));
    }
}

void constants() {
    expect(GCSZDir.startsWith(QLatin1Char('/')) && GCSZDir.endsWith(QLatin1Char('/')),
           QStringLiteral("GCSZDir is %1, and has to begin and end with /").arg(quoted(GCSZDir)));
    for (const QString& suffix : {GSMBSuffix, TemplateProProfix})
        expect(suffix.size() > 1 && suffix.startsWith(QLatin1Char('.')),
               QStringLiteral("a suffix is %1, and has to begin with a dot").arg(quoted(suffix)));
    expect(!zFileDialog::pathFgf.isEmpty(), QStringLiteral("zFileDialog::pathFgf is empty"));
    expect(!GNSJ_XJGC.isEmpty(), QStringLiteral("GNSJ_XJGC is empty"));
}

void applicationPath() {
    const QString path = SharedInterface::GetAppPath();
    expect(!path.endsWith(QLatin1Char('/')) && !path.endsWith(QLatin1Char('\\')),
           QStringLiteral("GetAppPath ends with a separator: ") + quoted(path));
    expect(QFileInfo(path).isDir(), QStringLiteral("GetAppPath is no folder: ") + quoted(path));
}

// The configuration.

ProjectSettingHelper& configuration() {
    ProjectSettingHelper* helper = ProjectSettingHelper::GetProjectSettingHelper();
    if (!helper) throw NotReached{QStringLiteral("no configuration is loaded")};
    return *helper;
}

void modelsOfUnknownType() {
    const auto& models = configuration().GetProTaxTemplateInfoList(QStringLiteral("Nothing"), {});
    expect(models.isEmpty(), QStringLiteral("an unknown application type has models"));
}

void models() {
    int count = 0;
    for (const char* type : {"Kvys", "Kvzcb"}) {
        const auto entries =
            configuration().GetProTaxTemplateInfoList(QLatin1String(type), QLatin1String(type));
        for (const auto& entry : entries) {
            if (entry.taxMode < 0 || entry.taxMode > 2) continue;  // so does the dialog
            for (const auto& model : entry.models) {
                expect(!model.name.isEmpty(), QStringLiteral("a model has no name"));
                ++count;
            }
        }
    }
    if (count == 0) throw NotReached{QStringLiteral("the configuration has no models")};
}

/// @return the tax modes with the names of their models, as the host answers them.
QStringList modelNames(const QString& appType, const QString& taxMode) {
    QStringList names;
    for (const auto& entry : configuration().GetProTaxTemplateInfoList(appType, taxMode)) {
        names += QString::number(entry.taxMode);
        for (const auto& model : entry.models) names += model.name;
    }
    return names;
}

void modelsOfAnyTaxMode() {
    for (const char* type : {"Kvys", "Kvzcb"}) {
        const QLatin1String appType(type);
        expect(modelNames(appType, appType) == modelNames(appType, QString()),
               QStringLiteral("with an empty second argument, as the Excel import asks, "
                              "GetProTaxTemplateInfoList of %1 has other models")
                   .arg(quoted(appType)));
    }
}

void feeModes() {
    for (const auto& info : configuration().GetPricingModelInfoMap(QStringLiteral("Kvys"), {}))
        expect(info.feeModes.size() < 2 || info.feeModes.contains(info.defaultFeeMode),
               QStringLiteral("the default fee mode %1 is none of those offered")
                   .arg(quoted(info.defaultFeeMode)));
}

void settings() {
    const auto before = configuration().GetSysSettingInfo();
    auto other = before;
    other.modelName = QStringLiteral("conformance");
    configuration().SetSysSettingInfo(other, ProjectSettingSpace::SettingLocal);
    const QString found = configuration().GetSysSettingInfo().modelName;
    configuration().SetSysSettingInfo(before, ProjectSettingSpace::SettingLocal);
    expect(found == other.modelName, QStringLiteral("what was set is not answered"));
}

void moreSettings() {
    configuration().getCurModeBasicSettings();
    configuration().getJiLinMoBanList();
}

void unknownMessage() {
    Communication::GetInstance()->SendMsg(0, 0, QVariant());
}

void fallbacks() {
    const QString key = QStringLiteral("no such key");
    const QString value = TranMiUtilAction::Instance()->JudageValue(key, QStringLiteral("else"));
    expect(
        value == QLatin1String("else"),
        QStringLiteral("JudageValue of an unknown key is %1, not the fallback").arg(quoted(value)));
    const QString area = CpfMain::GetInstance()->GetAreaConfigValue(key);
    expect(area.isEmpty(),
           QStringLiteral("GetAreaConfigValue of an unknown key is ") + quoted(area));
}

// Files.

void suffixes() {
    for (int kind : {1, 2, 8, 16}) {
        QStringList list{QStringLiteral("first")};
        SharedInterface::GetSuffix(kind, &list, 0);
        expect(list.value(0) == QLatin1String("first"),
               QStringLiteral("GetSuffix replaces what the list holds"));
        for (const QString& suffix : list.mid(1))
            expect(!suffix.isEmpty() && !suffix.contains(QLatin1Char('.')),
                   QStringLiteral("GetSuffix of %1 has %2").arg(kind).arg(quoted(suffix)));
    }
}

void missingFile() {
    QString name = QStringLiteral("old"), kind = name, suffix = name, detail = name;
    SharedInterface::GetFileInfo(nowhere, name, kind, suffix, detail);
    expect(name.isEmpty() && kind.isEmpty() && detail.isEmpty(),
           QStringLiteral("GetFileInfo of a missing file answers more than its suffix"));
    expect(suffix == QLatin1String("GCFX"),
           QStringLiteral("GetFileInfo of …/all.GCFX answers the suffix ") + quoted(suffix));
}

void suffixInUpperCase() {
    QString name, kind, suffix, detail;
    SharedInterface::GetFileInfo(QStringLiteral("/nowhere/b.gcfx"), name, kind, suffix, detail);
    expect(suffix == QLatin1String("GCFX"),
           QStringLiteral("GetFileInfo of b.gcfx answers the suffix ") + quoted(suffix));
}

void ownProjectInfo(const QString& project) {
    if (project.isEmpty()) throw NotReached{QStringLiteral("not given: --project")};
    QString name, kind, suffix, detail;
    SharedInterface::GetFileInfo(project, name, kind, suffix, detail);
    expect(suffix == QFileInfo(project).suffix().toUpper(),
           QStringLiteral("GetFileInfo of %1 answers the suffix %2").arg(project, quoted(suffix)));
}

void otherFileInfo() {
    const QTemporaryDir folder;
    QString name, kind, suffix, detail;
    SharedInterface::GetFileInfo(textFile(folder, QStringLiteral("notes.txt")), name, kind, suffix,
                                 detail);
    expect((name + kind + suffix + detail).isEmpty(),
           QStringLiteral("GetFileInfo of a text file answers ") +
               quoted(QStringList{name, kind, suffix, detail}.join(QLatin1Char('|'))));
}

void noProjectFile() {
    const int type = GetProgramTypeByFile(QStringLiteral("/nowhere/notes.txt"));
    expect(type == -1, QStringLiteral("GetProgramTypeByFile of notes.txt is %1").arg(type));
}

void noWorkbook() {
    expect(!LibXLExcel::Open(QStringLiteral("/nowhere/at/all.xlsx")),
           QStringLiteral("a workbook that does not exist can be opened"));
    const QTemporaryDir folder;
    expect(!LibXLExcel::Open(textFile(folder, QStringLiteral("text.xlsx"))),
           QStringLiteral("a text file with the suffix .xlsx can be opened"));
}

void ownFiles(const Files& files) {
    if (files.project.isEmpty() && files.workbook.isEmpty())
        throw NotReached{QStringLiteral("no file was given: --project, --workbook")};
    if (!files.project.isEmpty()) {
        const int type = GetProgramTypeByFile(files.project);
        expect(type > 0 && type <= newpro::WholeProcessProgram,
               QStringLiteral("GetProgramTypeByFile answers %1, which is no program type, to %2")
                   .arg(type)
                   .arg(files.project));
    }
    if (!files.workbook.isEmpty())
        expect(LibXLExcel::Open(files.workbook) != nullptr,
               QStringLiteral("cannot be opened: ") + files.workbook);
}

// Account, plug-ins, first page.

void account() {
    const UserInfo* user = Users::Instance()->Kvy();
    expect(user->IsLogin() || user->UserID().isEmpty(),
           QStringLiteral("nobody is logged in, and yet there is the user id ") +
               quoted(user->UserID()));
}

void plugins() {
    AppPluginManager* manager = AppPluginManager::instance();
    if (!manager) throw NotReached{QStringLiteral("there is no plug-in manager")};
    for (int client : {4, 8, 16}) {
        manager->pluginText(client);
        // Both ways to load follow the question. The answer afterwards is free: messages are sent
        // to a plug-in that is still loading, too.
        manager->isLoaded(client);
        manager->load(client);
        manager->isLoaded(client);
        manager->load();
        manager->notify(QString(), client);
    }
}

void unknownService() {
    expect(!osgi::ObjectHelper::GetService("conformance: no such service"),
           QStringLiteral("a service that nobody registered is there"));
}

void firstPage() {
    auto* page = static_cast<FirstPagePlugin*>(osgi::ObjectHelper::GetService("firstPagePlugin"));
    if (!page) throw NotReached{QStringLiteral("there is no first page")};
    if (!page->canStartNew(true))
        throw NotReached{QStringLiteral("canStartNew says no: no flow creates a project now")};
}

void usageLog() {
    SharedInterface::UseFunc(11118, QString());
    SharedInterface::EndUseFun(11118, QString());
    SharedInterface::InsertFunLog(GNSJ_XJGC, 4, QStringLiteral("c"));
    SharedInterface::ReplaceFunLog(GNSJ_XJGC, 2, QStringLiteral("d"));
    SharedInterface::EndFunLog(GNSJ_XJGC, false, -1);
}

void reportsAreTaken() {
    ProcExceptionNew(std::runtime_error("conformance"), "conformance", 1,
                     "conformance::reportsAreTaken");
    if (takeReports().isEmpty())
        throw NotReached{QStringLiteral(
            "nothing can stand before the host's: what it throws in a flow is not found out")};
}

// Cloud disks.

void cloudState() {
    zFileDialog::SetFilePath(QString());
    zFileDialog::SetFilePid(QString());
    zFileDialog::SetQyid(QString());
    // With a choice, as the tender import tells it, and without, as browsing does.
    zFileDialog::TbServerMsg(nowhere);
    zFileDialog::TbServerMsg(QString());
    expect(zFileDialog::GetFilePath().isEmpty(),
           QStringLiteral("GetFilePath remembers a choice that was reset"));
}

/// Any folder is right, and none, too; it is asked before each file dialog.
void lastFolder() {
    zFileDialog::getCurrentPath();
}

/// A refusal has a code; a success has data of its form. An empty object says that nothing is
/// there.
void answers(const char* operation, const QJsonObject& answer, QJsonValue::Type form) {
    if (answer.value(QLatin1String("code")).toInt() != 0 || answer.isEmpty()) return;
    expect(answer.value(QLatin1String("data")).type() == form,
           QLatin1String(operation) +
               QLatin1String(" answers neither a \"code\" nor \"data\" that the dialog can read"));
}

void cloudAnswers() {
    const QString nobody = QStringLiteral("conformance");
    answers("LoadGrypData", zFileDialog::LoadGrypData(), QJsonValue::Object);
    answers("LoadQyypData", zFileDialog::LoadQyypData(), QJsonValue::Array);
    answers("LoadQyypMlData", zFileDialog::LoadQyypMlData(nobody, nobody), QJsonValue::Array);
    answers("IsExistDownLoadfile", zFileDialog::IsExistDownLoadfile(nobody, nobody),
            QJsonValue::Object);
    const QString zero = QStringLiteral("0");
    const QJsonObject copy = zFileDialog::downLoadYunpanFile(nobody, QString(), QString(), zero);
    answers("downLoadYunpanFile", copy, QJsonValue::String);
    expect(copy.isEmpty() || copy.value(QLatin1String("code")).isDouble(),
           QStringLiteral("downLoadYunpanFile answers no \"code\": the dialog takes it for a "
                          "refusal"));
}

}  // namespace

QVector<Promise> services(const Files& files) {
    QVector<Promise> all{
        {QStringLiteral("what may not be null is there"), neverNull},
        {QStringLiteral("singletons stay the same"), instancesStay},
        {QStringLiteral("constants have their form"), constants},
        {QStringLiteral("GetAppPath is a folder, without separator at its end"), applicationPath},
        {QStringLiteral("an unknown application type has no models"), modelsOfUnknownType},
        {QStringLiteral("models have names"), models},
        {QStringLiteral("models are the same whatever the tax mode asked for"), modelsOfAnyTaxMode},
        {QStringLiteral("a choice of fee modes has a default among them"), feeModes},
        {QStringLiteral("settings are answered as they were set"), settings},
        {QStringLiteral("basic settings and templates are answered"), moreSettings},
        {QStringLiteral("a message that nobody knows is taken"), unknownMessage},
        {QStringLiteral("unknown keys answer the fallback"), fallbacks},
        {QStringLiteral("GetSuffix appends suffixes without dot"), suffixes},
        {QStringLiteral("of a missing file only the suffix is known"), missingFile},
        {QStringLiteral("suffixes are answered in upper case"), suffixInUpperCase},
        {QStringLiteral("of the host's own project the suffix is known"),
         [files] { ownProjectInfo(files.project); }},
        {QStringLiteral("of what is no project file nothing is known"), otherFileInfo},
        {QStringLiteral("what is no project file has the type -1"), noProjectFile},
        {QStringLiteral("what is no workbook cannot be opened"), noWorkbook},
        {QStringLiteral("the host's own files can be opened"), [files] { ownFiles(files); }},
        {QStringLiteral("nobody logged in has no user id"), account},
        {QStringLiteral("the plug-in manager answers"), plugins},
        {QStringLiteral("an unknown service is null"), unknownService},
        {QStringLiteral("the first page lets a project be started"), firstPage},
        {QStringLiteral("the usage log takes entries"), usageLog},
        {QStringLiteral("reports of exceptions are taken"), reportsAreTaken},
        {QStringLiteral("the file dialog answers its last folder"), lastFolder},
        {QStringLiteral("the file dialog forgets its last cloud choice"), cloudState},
    };
    for (Promise& promise : all) promise.look = [look = promise.look] { quietly(look); };
    // Alone in being fetched from elsewhere, in an event loop where the host likes one.
    all.append({QStringLiteral("the cloud service answers data or a refusal"), cloudAnswers});
    return all;
}

}  // namespace conformance
