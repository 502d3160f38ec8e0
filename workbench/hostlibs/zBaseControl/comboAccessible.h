/// What a screen reader finds in a field with a list, and in the line between two parts of a
/// window.
#pragma once

class QWidget;

namespace workbench {

/// From here on such fields tell their names and values apart, and their lists only while they are
/// open, and such lines are separators: what Qt calls them no reader knows. Once for the process;
/// further calls do nothing.
void makeControlsAccessible();

/// Gives a list that belongs to such a field its name. Other widgets stay as they are.
void nameComboList(QWidget& widget);

}  // namespace workbench
