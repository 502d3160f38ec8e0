/// The table of the host's switches: what a scenario's "host", the main window's panel and an
/// installation's settings set, and what the page on scenarios says of it.
#pragma once

#include <QJsonObject>
#include <functional>

#include "workbench/base/Schema.h"

namespace workbench {

/// One switch: a row of the table.
struct HostSwitch {
    /// A value that the panel offers, and its caption.
    struct Choice {
        QString value;
        QString caption;
    };

    QString key;   ///< In a scenario's "host", where a dot leads into an object.
    Field field;   ///< Kind of value, with the words of an enumeration.
    QString text;  ///< For the page on scenarios; null for a switch of the panel alone.

    std::function<QJsonValue()> get;             ///< Null for a switch that is not in the panel.
    std::function<void(const QJsonValue&)> set;  ///< Takes what the field lets through.

    QString caption;          ///< In the panel; empty where each choice is a tick of its own.
    QVector<Choice> choices;  ///< In the panel, from the top down.
    QString heading;          ///< Of the panel's part that begins here.
    QString setting;          ///< Its place in an installation's settings.json; empty for none.
};

/// @return all switches, in the order of the panel.
WORKBENCH_API const QVector<HostSwitch>& hostSwitches();
/// @param key of a row of the table. @return its field.
WORKBENCH_API const Field& hostField(const char* key);

/// @return the members of a scenario's "host" and of its "host" steps.
WORKBENCH_API const Fields& hostFields();
/// Sets what `settings` names; the rest stays. Relative paths start at the installation.
/// @param settings as `hostFields` let through.
WORKBENCH_API void applyHostSettings(const QJsonObject& settings);
/// @return the rows of the table on the page on scenarios.
WORKBENCH_API QStringList hostPageRows();

}  // namespace workbench
