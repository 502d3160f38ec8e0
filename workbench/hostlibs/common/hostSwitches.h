/// The table of the host's switches: what a scenario's "host", the main window's panel and an
/// installation's settings set, and what the page on scenarios says of it.
#pragma once

#include <QJsonObject>
#include <functional>

#include "workbench/base/Schema.h"

namespace workbench {

/// One switch: a row of the table.
struct HostSwitch {
    /// Key in a scenario's "host", where a dot leads into an object, and kind of value. The words
    /// are those of an enumeration, else the values that the panel offers.
    Field field;
    struct Access {
        std::function<QJsonValue(const Field&)> get;  ///< None for what the panel does not show.
        std::function<void(const QJsonValue&, const Field&)> set;
    } access;
    /// For the page, where "%1" stands for the words of a member; null for a switch of the panel
    /// alone.
    const char* text;
    const char* setting = "";  ///< Its place in an installation's settings.json, if it has one.
    const char* caption = "";  ///< In the panel; empty where each word is a tick of its own.
    /// What it is for, told where its captions are not in sight; of each tick, with "|" between.
    const char* description = "";
    const char* captions = "";  ///< Of the words, with "|" between them.
    const char* heading = "";   ///< Of the panel's part that begins here.

    QJsonValue get() const { return access.get(field); }
    void set(const QJsonValue& value) const { access.set(value, field); }
};

/// @return all switches, in the order of the panel.
WORKBENCH_API const QVector<HostSwitch>& hostSwitches();

/// @return the members of a scenario's "host" and of its "host" steps.
WORKBENCH_API const Fields& hostFields();
/// Sets what `settings` names; the rest stays. Relative paths start at the installation.
/// @param settings as `hostFields` let through.
WORKBENCH_API void applyHostSettings(const QJsonObject& settings);

}  // namespace workbench
