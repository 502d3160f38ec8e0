/// The two flows that start a project from outside data.
#pragma once

namespace newpro {

class CreationDialog;

/// Closes the dialog, lets the user choose Excel data and hands the choice to the importing
/// plug-in.
void importExcel(CreationDialog& dialog);

/// Closes the dialog, lets the user choose a tendering-data file and hands it to the budget
/// plug-in.
void importTender(CreationDialog& dialog);

}  // namespace newpro
