// What the dialog asks of a host, without windows: the smallest answers that let it create a
// project.
#include <SharedInterface.h>
#include <fileDialog.h>
#include <osgi.h>
#include <zCpf.h>

#include <QCoreApplication>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QJsonDocument>

using namespace ProjectSettingSpace;

// kvcore: the account, and the constants of the configuration folders.
const QString GCSZDir = QStringLiteral("/Settings/");
const QString GSMBSuffix = QStringLiteral(".GSMB");
const QString TemplateProProfix = QStringLiteral(".MODX");

Users* Users::Instance() {
    static Users users;
    return &users;
}
UserInfo* Users::Kvy() {
    static UserInfo account;
    return &account;
}
bool UserInfo::IsLogin() const { return false; }
QString UserInfo::UserID() const { return QString(); }

// zCpf: the product area.
CpfMain* CpfMain::GetInstance() {
    static CpfMain area;
    return &area;
}
bool CpfMain::IsProdAreaYN() const { return false; }
bool CpfMain::GetOpenVersion(double) const { return true; }
QString CpfMain::GetAreaConfigValue(const QString&) const { return QString(); }

// osgi: the first page says whether a new project may be opened now.
FirstPagePlugin::~FirstPagePlugin() = default;

namespace {

class FirstPage : public FirstPagePlugin {
  public:
    bool canStartNew(bool) override { return true; }
    void showLogin(const QJsonObject&) override {}
};

QString suffixOf(const QString& path) { return QFileInfo(path).suffix().toUpper(); }

int typeOf(const QString& path) {
    const QString suffix = suffixOf(path);
    return suffix == QLatin1String("GCFX") ? 4 : suffix == QLatin1String("SGCFX") ? 16 : -1;
}

void say(const char* what, int client, int code, const QByteArray& content) {
    qInfo("%s %d %d %s", what, client, code, content.constData());
}

}  // namespace

void* osgi::ObjectHelper::GetService(const std::string& name) {
    static FirstPage page;
    return name == "firstPagePlugin" ? static_cast<FirstPagePlugin*>(&page) : nullptr;
}

// SharedInterface: one pricing model, with a choice of two fee modes.
ProjectSettingHelper* ProjectSettingHelper::GetProjectSettingHelper() {
    static ProjectSettingHelper helper;
    return &helper;
}

const QList<ProTaxTemplateInfo>& ProjectSettingHelper::GetProTaxTemplateInfoList(
    const QString& appType, const QString&) {
    static QList<ProTaxTemplateInfo> answer;
    answer.clear();
    if (appType == QLatin1String("Kvys")) {
        TaxTemplateInfo model;
        model.name = QStringLiteral("清单计价");
        model.key = QStringLiteral("qdjj");
        model.description = QStringLiteral("只有这一种计价模式");
        model.basis = QStringList(QStringLiteral("GB50500-2013"));
        answer.append({0, {model}});
    }
    return answer;
}

PricingModelInfoMap ProjectSettingHelper::GetPricingModelInfoMap(const QString& appType,
                                                                 const QString&) {
    if (appType != QLatin1String("Kvys")) return {};
    PricingModelInfo model;
    model.key = QStringLiteral("qdjj");
    model.feeModes = QStringList{QStringLiteral("整体计费"), QStringLiteral("单独计费")};
    model.defaultFeeMode = model.feeModes.first();
    return {{QStringLiteral("清单计价"), model}};
}

QMap<QString, QList<::JLTaxTemplateInfo>> ProjectSettingHelper::getJiLinMoBanList() { return {}; }

BasicSettingsInfo ProjectSettingHelper::getCurModeBasicSettings() { return {QDir::homePath(), {}}; }

static SysSettingInfo settings;

const SysSettingInfo& ProjectSettingHelper::GetSysSettingInfo() { return settings; }

void ProjectSettingHelper::SetSysSettingInfo(const SysSettingInfo& info, ProjectSettingIsTb) {
    settings = info;
}

// Here the requests arrive that are no signals: a real host creates the project.
void Communication::SendMsg(int target, int code, const QVariant& payload) {
    say("message", target, code, payload.toString().toUtf8());
}

void Communication::SendMsgToPlugin(int client, int code, const QJsonObject& payload) {
    say("message to plug-in", client, code, QJsonDocument(payload).toJson(QJsonDocument::Compact));
}

Communication* Communication::GetInstance() {
    static Communication messages;
    return &messages;
}
QWidget* Communication::GetMainWindow() { return nullptr; }

AppPluginManager* AppPluginManager::instance() {
    static AppPluginManager all;
    return &all;
}
bool AppPluginManager::isLoaded(int) { return true; }
void AppPluginManager::load(int) {}
void AppPluginManager::load() {}
QString AppPluginManager::pluginText(int) { return QString(); }
void AppPluginManager::notify(const QString&, int) {}

TranMiUtilAction* TranMiUtilAction::Instance() {
    static TranMiUtilAction all;
    return &all;
}
QString TranMiUtilAction::JudageValue(const QString&, const QString& fallback) { return fallback; }

LibXLExcel::LibXLExcel() = default;
LibXLExcel::~LibXLExcel() = default;
std::unique_ptr<LibXLExcel> LibXLExcel::Open(const QString& path) {
    // Your reader of workbooks goes here: the first bytes alone promise little.
    QFile file(path);
    const QByteArray head = file.open(QIODevice::ReadOnly) ? file.read(4) : QByteArray();
    const bool workbook = head == "PK\x03\x04" || head == "\xD0\xCF\x11\xE0";
    return std::unique_ptr<LibXLExcel>(workbook ? new LibXLExcel : nullptr);
}

int SharedInterface::firstOpenClose = 0;
SharedInterface* SharedInterface::getInstance() {
    static SharedInterface all;
    return &all;
}
QString SharedInterface::GetAppPath() { return QCoreApplication::applicationDirPath(); }
void SharedInterface::UseFunc(int, const QString&) {}
void SharedInterface::EndUseFun(int, const QString&) {}
void SharedInterface::InsertFunLog(QString, int, const QString&) {}
void SharedInterface::ReplaceFunLog(QString, int, const QString&) {}
void SharedInterface::EndFunLog(QString, bool, int) {}
const QString GNSJ_XJGC = QStringLiteral("XJGC");

void SharedInterface::GetSuffix(int kind, QStringList* suffixes, int) {
    if (kind == 16) {
        suffixes->append(QStringLiteral("SGCFX"));
    } else {
        suffixes->append(QStringLiteral("GCFX"));
    }
}

void SharedInterface::GetFileInfo(const QString& path, QString& name, QString& kind,
                                  QString& suffix, QString& detail) {
    for (QString* each : {&name, &kind, &suffix, &detail}) each->clear();
    if (typeOf(path) == -1) return;
    suffix = suffixOf(path);
    if (QFileInfo::exists(path)) name = QFileInfo(path).completeBaseName();
}

int GetProgramTypeByFile(const QString& path) { return typeOf(path); }

void ProcExceptionNew(const std::exception& exception, const char* source, int line,
                      const char* function) {
    qWarning("%s:%d %s: %s", source, line, function, exception.what());
}

// fileDialog: local files alone. Without a cloud disk every answer is a refusal.
QString zFileDialog::pathFgf = QStringLiteral("/");
int zFileDialog::iClickedBtn = 0;
QString zFileDialog::userName, zFileDialog::yunpanFile, zFileDialog::userId;

QString zFileDialog::getOpenFileName(QWidget* parent, QString folder, QStringList* filter, int,
                                     QString caption, bool, QString, bool, OpenFileType type) {
    if (type == OpenFolder) return QFileDialog::getExistingDirectory(parent, caption, folder);
    QStringList patterns;
    for (const QString& suffix : *filter) patterns.append(QStringLiteral("*.") + suffix);
    return QFileDialog::getOpenFileName(parent, caption, folder, patterns.join(QLatin1Char(' ')));
}

static const QJsonObject noCloud{{QStringLiteral("code"), 1},
                                 {QStringLiteral("msg"), QStringLiteral("没有云盘")}};

QString zFileDialog::getCurrentPath() { return QString(); }
QString zFileDialog::GetFilePath() { return QString(); }
void zFileDialog::SetFilePath(const QString&) {}
void zFileDialog::SetFilePid(const QString&) {}
void zFileDialog::SetQyid(const QString&) {}
void zFileDialog::TbServerMsg(const QString&) {}
QJsonObject zFileDialog::LoadGrypData() { return noCloud; }
QJsonObject zFileDialog::LoadQyypData() { return noCloud; }
QJsonObject zFileDialog::LoadQyypMlData(const QString&, const QString&) { return noCloud; }
QJsonObject zFileDialog::IsExistDownLoadfile(const QString&, const QString&) { return noCloud; }
QJsonObject zFileDialog::downLoadYunpanFile(const QString&, const QString&, const QString&,
                                            const QString&) {
    return noCloud;
}
