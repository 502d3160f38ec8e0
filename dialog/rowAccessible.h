/// What a screen reader finds in a view whose rows are widgets.
#pragma once

namespace newpro {

/// From here on the views of the dialog tell their rows, the rows their names and states, and what
/// stands in them: Qt's own description of such views knows items only, which are empty here. Once
/// for the process; further calls do nothing.
void makeRowsAccessible();

}  // namespace newpro
