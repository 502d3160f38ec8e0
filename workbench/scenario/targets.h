/// Finds what a scenario names in the dialog, the way a person does: by what is written on it.
#pragma once

#include <QString>

class QComboBox;
class QTreeWidget;
class QTreeWidgetItem;
class QWidget;

namespace workbench {

/// @return the window that takes input: the open pop-up, else the modal window, else null.
QWidget* topWindow();

/// Button of a ribbon entry; null if the ribbon has no entry of that name.
QWidget* ribbonButton(const QWidget* dialog, const QString& entry);
/// Button of the tax-mode row with this text; null if there is none.
QWidget* taxModeButton(const QWidget* dialog, const QString& entry);

/// Card with this title in the model lists; one that can be seen before one that cannot.
QWidget* modelCard(const QWidget* dialog, const QString& title);
/// Parts of a card's "新建": the whole or left button, and the right one that opens the menu.
QWidget* newButtonOf(const QWidget* card);
QWidget* menuButtonOf(const QWidget* card);

/// Template card with this title; null if there is none.
QWidget* templateCard(const QWidget* dialog, const QString& title);
/// Row of a template file in the tree, by file name, with or without suffix.
QTreeWidgetItem* templateRow(const QTreeWidget* tree, const QString& name);

/// Widget of this object name on the file page that can be seen, and the page's chooser.
QWidget* onFilePage(const QWidget* dialog, const char* objectName);
QComboBox* fileCombo(const QWidget* dialog);

/// Widget of a window by object name, else by the text of a button, label or tab. What can be seen
/// comes first.
QWidget* anything(QWidget* window, const QString& nameOrText);

}  // namespace workbench
