/// What a screen reader finds in a view whose rows are widgets.
#pragma once

class QWidget;

namespace newpro {

/// From here on the views of the dialog tell their rows, the rows their names and states, and what
/// stands in them: Qt's own description of such views knows items only, which are empty here. Once
/// for the process; further calls do nothing.
void makeRowsAccessible();

/// Lets go of what a screen reader was told of a view, or of a row and its buttons, before it was
/// one: Qt keeps the description of a widget from the first question on.
void describeAnew(QWidget* widget);

}  // namespace newpro
