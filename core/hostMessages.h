/// The signals and messages to the host: what goes out, made of the names in hostContract.h.
#pragma once

#include <QJsonObject>
#include <QString>
#include <QVariant>

#include "core/hostContract.h"

namespace ProjectSettingSpace {
struct TaxTemplateInfo;
}

namespace newpro {

/// Key of a page's values: the name of its pricing model or template. The other keys are those of
/// the message that the values go out in.
inline constexpr auto templateNameKey = latin1("TemplateName");

/// A message to a plug-in.
struct PluginMessage {
    int client = UnknownProgram;  ///< The plug-in's program type.
    int code = NoMessageCode;
    QJsonObject body;

    /// Adds "client_pid", the number of the plug-in addressed.
    void addClient();
    /// Hands the message to the host.
    void send() const;
};

/// @return the project map of SignalCreatePro for a pricing model: 13 keys, the project type its
///         name, "mJfms" 1 for "整体计费" and else 0.
QVariantMap newProjectMap(const ProjectSettingSpace::TaxTemplateInfo& model);

/// @param values the page's values: templateNameKey, and in messageKey projectFile,
///        estimateTemplate and settlementTemplate; a missing one counts as empty.
/// @param kind   program type of the kind to create, looked at bit by bit.
/// @return the message for the data of a page, without "client_pid".
PluginMessage pageMessage(const QVariantMap& values, int kind);

/// @param file the project file to start from, as chosen.
PluginMessage contractingMessage(const QString& file);

/// What the Excel import dialog answers.
struct ExcelChoice {
    QString appType;          ///< Chosen application type.
    int type = -1;            ///< An ImportType.
    QString path;             ///< The workbook or folder.
    QString model;            ///< Text of the chosen pricing model.
    QString projectTemplate;  ///< Path of the project template; empty as the dialog is laid out.
};

/// @return plug-in 4 for the application type "Kvys" in any letter case, else plug-in 16.
PluginMessage excelMessage(const ExcelChoice& choice);

/// @param file the tendering-data file. Always goes to plug-in 4.
PluginMessage tenderMessage(const QString& file);

/// Sends the message of a template card: code 44 to target 4, with the template's path.
void sendTemplateMessage(const QString& path);

}  // namespace newpro
