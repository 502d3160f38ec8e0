/// Shared services of the host: configuration records, messages, usage log, plug-ins, workbooks.
#pragma once

#include <QJsonObject>
#include <QList>
#include <QMap>
#include <QMetaType>
#include <QStringList>
#include <QVariant>
#include <exception>
#include <memory>

#include "kvcore.h"

class QWidget;

namespace ProjectSettingSpace {

/// One pricing model. The field order is the host's.
struct TaxTemplateInfo {
    QString name;                ///< Title of the card, project type text, key of the usage tables.
    QString key;                 ///< Compared with PricingModelInfo::key.
    QString description;         ///< Shown behind "说明：".
    QStringList basis;           ///< Norms and quota books, shown behind "依据：".
    QString basisDocument;       ///< A further document, shown ahead of `basis`.
    QString carriedText;         ///< Carried along, not read by the module.
    QString feeMode;             ///< "整体计费", "单独计费" or empty.
    QString alternativeFeeMode;  ///< The configured default mode; see the model card.
    int flag = 0;                ///< State of the model's entry in the import dialog's list.
    QString leadingBasisDocument;  ///< A further document, shown first of all.
};

/// The pricing models of one tax mode.
struct ProTaxTemplateInfo {
    int taxMode = 0;  ///< 0 general, 1 simplified, 2 business tax; other values are ignored.
    QList<TaxTemplateInfo> models;  ///< In the order in which they are shown.
};

/// Detailed configuration of a pricing model. Only the first three members are read here.
struct PricingModelInfo {
    QString key;             ///< Compared with TaxTemplateInfo::key.
    QStringList feeModes;    ///< The fee-charging modes that the model offers.
    QString defaultFeeMode;  ///< The mode of the card's plain "新建".
    QString normName;        ///< Carried along, as are the members below.
    QStringList quotaBooks;
    QMap<QString, QStringList> specialities;
    QMap<QString, QMap<QString, QString>> parameters;
};

/// Configurations by model name. Models of one name, in two tax modes for example, each have their
/// own: since Qt 6 only a QMultiMap holds both.
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
using PricingModelInfoMap = QMap<QString, PricingModelInfo>;
#else
using PricingModelInfoMap = QMultiMap<QString, PricingModelInfo>;
#endif

/// The user's system settings.
struct SysSettingInfo {
    QString modelName;           ///< The model name remembered by the last estimate project.
    QString estimateTemplate;    ///< Base name of the default preliminary-estimate template.
    QString settlementTemplate;  ///< Carried along, as are the members below.
    QMap<QString, QString> others;
};

/// Whether written settings are passed on to the user's other machines.
enum ProjectSettingIsTb { SettingLocal = 0, SettingSynchronised = 1 };

/// Basic settings of the current mode.
struct BasicSettingsInfo {
    QString projectFolder;  ///< Folder in which the user keeps projects; empty if never set.
    QMap<QString, QString> others;
};

/// One template project of the grouped template list.
struct JLTaxTemplateInfo {
    QString name;
    QString file;  ///< Path below the installation folder.
};

}  // namespace ProjectSettingSpace

Q_DECLARE_TYPEINFO(ProjectSettingSpace::TaxTemplateInfo, Q_MOVABLE_TYPE);
Q_DECLARE_METATYPE(ProjectSettingSpace::TaxTemplateInfo)

using TaxTemplateInfo = ProjectSettingSpace::TaxTemplateInfo;
using JLTaxTemplateInfo = ProjectSettingSpace::JLTaxTemplateInfo;

/// Pricing models, templates and settings of the installation.
class NEWPRO_HOST_API ProjectSettingHelper {
  public:
    /// @return the helper, owned by the host; null where no configuration is loaded.
    static ProjectSettingHelper* GetProjectSettingHelper();

    /// @param appType application type, "Kvys" or "Kvzcb".
    /// @param taxMode application type again, or empty; the host reads the first argument alone.
    /// @return the models by tax mode; empty for an unknown type. Valid until the next call.
    const QList<ProjectSettingSpace::ProTaxTemplateInfo>& GetProTaxTemplateInfoList(
        const QString& appType, const QString& taxMode);
    /// @param appType application type. @param taxMode empty for every tax mode.
    /// @return detailed configuration by model name.
    ProjectSettingSpace::PricingModelInfoMap GetPricingModelInfoMap(const QString& appType,
                                                                    const QString& taxMode);
    /// @return template projects by group name.
    QMap<QString, QList<ProjectSettingSpace::JLTaxTemplateInfo>> getJiLinMoBanList();
    ProjectSettingSpace::BasicSettingsInfo getCurModeBasicSettings();
    const ProjectSettingSpace::SysSettingInfo& GetSysSettingInfo();
    void SetSysSettingInfo(const ProjectSettingSpace::SysSettingInfo& info,
                           ProjectSettingSpace::ProjectSettingIsTb synchronise);
};

/// Messages to the host and its plug-ins.
class NEWPRO_HOST_API Communication {
  public:
    static Communication* GetInstance();
    /// @return the host's main window, parent of message boxes and of the Excel import dialog; may
    ///         be null. File dialogs, and boxes over the import dialog, get the dialog that asks.
    QWidget* GetMainWindow();
    /// Delivers a message to the host's main logic, synchronously.
    void SendMsg(int target, int code, const QVariant& payload);
    /// Delivers a message to a plug-in, synchronously.
    /// @param client the plug-in's program type. @param code message code.
    void SendMsgToPlugin(int client, int code, const QJsonObject& payload);
};

/// The plug-in manager. The module uses three operations, in the order declared here.
class NEWPRO_HOST_API AppPluginManager {
  public:
    /// @return the manager, owned by the host; may be null.
    static AppPluginManager* instance();

    /// @param client a plug-in's program type. @return whether that plug-in is loaded.
    bool isLoaded(int client);
    /// Loads the plug-in of a program type.
    void load(int client);
    /// Loads the plug-in that isLoaded was asked about last.
    void load();
    /// @param client a plug-in's program type. @return the plug-in's display text.
    QString pluginText(int client);
    /// Notifies a plug-in. @param text may be empty. @param client the plug-in's program type.
    void notify(const QString& text, int client);
};

/// Configured transactions of the host.
class NEWPRO_HOST_API TranMiUtilAction {
  public:
    static TranMiUtilAction* Instance();
    /// @return the value of `key`, or `fallback` where the host has none.
    QString JudageValue(const QString& key, const QString& fallback);
};

/// A workbook opened by the host's workbook library.
class NEWPRO_HOST_API LibXLExcel {
  public:
    ~LibXLExcel();
    /// @param path an .xls or .xlsx file. @return the open workbook; null if it cannot be opened.
    static std::unique_ptr<LibXLExcel> Open(const QString& path);

  private:
    LibXLExcel();
};

/// Paths, file information and usage log.
class NEWPRO_HOST_API SharedInterface {
  public:
    static SharedInterface* getInstance();

    /// Set to 1 by a host that shows the dialog on its very first start.
    static int firstOpenClose;

    /// @return the installation folder, without trailing separator.
    static QString GetAppPath();
    /// Appends the file suffixes (without dot) that belong to a kind of project file.
    /// @param kind 1 audit, 2 estimate, 8 settlement, 16 general contracting. @param reserved 0.
    static void GetSuffix(int kind, QStringList* suffixes, int reserved);
    /// Reads four descriptive strings of a project file; each is empty for a file that is no
    /// project file. Of a missing file only the suffix is known.
    /// @param suffix the file's suffix in upper case, as the module compares it.
    static void GetFileInfo(const QString& path, QString& name, QString& kind, QString& suffix,
                            QString& detail);

    /// Marks the start and the end of a user function in the usage statistics.
    static void UseFunc(int function, const QString& detail);
    static void EndUseFun(int function, const QString& detail);

    /// The function log. @param key the function's key, such as GNSJ_XJGC.
    static void InsertFunLog(QString key, int column, const QString& value);
    static void ReplaceFunLog(QString key, int column, const QString& value);
    static void EndFunLog(QString key, bool failed, int row);
};

/// Key of the new-project function in the function log.
extern NEWPRO_HOST_API const QString GNSJ_XJGC;

/// @param path a local or cloud path. @return the program type of the project file, made of the
///         bits of ProgramType in hostContract.h; -1 for a file that is none. An estimate starts
///         from a file of the type 4 alone. A cloud path is judged by its suffix.
NEWPRO_HOST_API int GetProgramTypeByFile(const QString& path);

/// Reports an exception that was caught in a module. All that is handed over lasts for the call
/// alone.
NEWPRO_HOST_API void ProcExceptionNew(const std::exception& exception, const char* source, int line,
                                      const char* function);
