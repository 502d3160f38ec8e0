/// The two flows that end in the host: a project from a pricing model, and one from a page's data.
#pragma once

#include <QVariantMap>

#include "SharedInterface.h"
#include "core/creationDialog.h"

namespace newpro {

/// Creates a project from a pricing model: accepts the dialog, asks the first page, logs the use
/// and emits SignalCreatePro. Ends silently where the first page is missing or not ready.
/// @param model by value: the list that it comes from may go with the dialog.
void createFromModel(CreationDialog& dialog, ProjectSettingSpace::TaxTemplateInfo model);

/// Creates a project from the data of a page: logs the use around one message to a plug-in. Neither
/// closes a dialog nor asks the first page.
/// @param manager the plug-in manager; a missing one counts as not loaded.
/// @param values  as in pageMessage. @param kind program type, bit by bit.
void createFromPageData(AppPluginManager* manager, const QVariantMap& values, int kind);

}  // namespace newpro
