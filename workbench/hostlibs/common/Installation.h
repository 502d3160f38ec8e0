/// A workbench installation: a folder of readable JSON and real files.
#pragma once

#include <QJsonObject>
#include <QMap>
#include <QString>
#include <QStringList>

#include "SharedInterface.h"
#include "workbench/base/WorkbenchApi.h"

namespace workbench {

/// What the installation's files say, read once. Folder layout:
///   models.json       pricing models by application type and tax mode, with their fee modes
///   settings.json     basic settings, system settings, area configuration, transactions, suffixes
///   history.json      the history list, each entry as the host stores it
///   FileList.Ini      the same list as the cloud service keeps it, one entry per line
///   MBSC/kvys, MBSC/kvzcb            template projects
///   GCSZ/GcszYs                      preliminary-estimate templates
///   ProjectFiles                     the project folder
///   CloudDisks/个人云盘, CloudDisks/企业云盘   the two cloud disks
struct WORKBENCH_API Installation {
    QString folder;  ///< Absolute, without trailing separator; empty while none is loaded.
    QMap<QString, QList<ProjectSettingSpace::ProTaxTemplateInfo>> models;  ///< By application type.
    /// By application type, then by model name; models that share a name have a record each.
    QMap<QString, ProjectSettingSpace::PricingModelInfoMap> pricing;
    QMap<QString, QList<ProjectSettingSpace::JLTaxTemplateInfo>> groupedTemplates;
    ProjectSettingSpace::BasicSettingsInfo basicSettings;
    ProjectSettingSpace::SysSettingInfo systemSettings;
    QMap<int, QStringList> suffixes;  ///< By kind of project file.
    QStringList history;              ///< Most recent first.
    QStringList unwritten;            ///< Its entries that could not be written to disk yet.
    QJsonObject hostSettings;         ///< The switches that it sets; see hostSwitches.h.
    int firstOpenClose = 0;

    /// Reads an installation folder. Nothing is guessed: a wrong type, a missing key, an unknown
    /// key or a broken encoding is an error.
    /// @param error set to "file:line: key: what is wrong" on failure.
    /// @return whether everything was read; `into` is only changed on success.
    static bool load(const QString& folder, Installation& into, QString& error);

    QString projectFolder() const;
    /// Puts an entry at the head of the history list, here and on disk. The list on disk is read
    /// anew: other programs may have added to it since. One that cannot be read stays as it is.
    /// @return empty, or the error; the entry is then written with the next one.
    QString addToHistory(const QString& entry);
    /// Writes the system settings back to settings.json. @return empty, or the error.
    QString saveSystemSettings();
};

/// The settings as they stand in settings.json and in the journal.
QJsonObject toJson(const ProjectSettingSpace::SysSettingInfo& info);
QJsonObject toJson(const QMap<QString, QString>& texts);

}  // namespace workbench
