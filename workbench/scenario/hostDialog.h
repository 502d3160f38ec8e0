/// Makes the dialog as a host does.
#pragma once

#include <optional>

#include "workbench/scenario/Scenario.h"

class NewProCfgDialog;
class QAction;
class QWidget;

namespace workbench {

class ProjectStore;

/// Makes the dialog over the current installation, hands it the history list and the first-page
/// flag, journals its signals and hands its creation requests to the store.
/// @return the dialog, not yet shown, owned by the caller (and by `parent`).
NewProCfgDialog* makeHostDialog(const DialogSetup& setup, ProjectStore& store, QWidget* parent);

/// Adds a ribbon entry for a kind that the dialog's own ribbon does not offer. Such kinds share the
/// main page. @return the entry's action; null if it could not be added.
QAction* addKindEntry(NewProCfgDialog* dialog, const QString& kind);

/// Shows the chooser of project kinds and waits for its answer.
/// @return the ribbon entry to start the dialog with, empty for the dialog's own; nothing when the
///         chooser was cancelled or closed.
std::optional<QString> askForKind(QWidget* parent);

/// Name of the property in which a dialog keeps the entry that it was started with.
extern const char startEntryProperty[];

/// Brings a dialog to a kind or starts an import, as if its ribbon entry had been picked. Call it
/// where the dialog's event loop runs: cards that a change of kind replaces are only deleted there.
/// @param entry of the ribbon, added where it is not there; empty leaves the dialog as it is.
void startWithEntry(NewProCfgDialog* dialog, const QString& entry);

/// Shows the dialog as a modal window and returns at once.
void showHostDialog(NewProCfgDialog* dialog);

}  // namespace workbench
