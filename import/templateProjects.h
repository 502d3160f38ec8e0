/// Template projects: where they lie, their cards, and what choosing one does.
#pragma once

#include <QString>
#include <functional>

#include "core/part.h"

class QListWidget;

namespace newpro {

class CreationDialog;
class ListItemPool;

/// @param appTypeKey "kvys" or "kvzcb". @return the folder of the template projects of that key.
QString templateFolder(const QString& appTypeKey);

/// Appends one path-only card per template file of the folder, the oldest file first. A missing
/// folder adds nothing.
/// @param items    where the rows' items come from.
/// @param onCreate called with a template's path when its card asks for a project. It may delete
///        card and list.
/// @return the number of cards added.
int fillTemplateList(const Part<QListWidget>& list, const QString& appTypeKey, ListItemPool& items,
                     const std::function<void(const QString& path)>& onCreate);

/// Creates a project as a template card asks for it: the dialog closes whatever the host answers.
void createFromTemplateCard(CreationDialog& dialog, const QString& path);

/// Creates a project as the template tree asks for it: the dialog closes only for a ready host.
void createFromTemplateTree(CreationDialog& dialog, const QString& path);

}  // namespace newpro
