/// What a screen reader finds in a field with a list.
#pragma once

class QWidget;

namespace workbench {

/// From here on such fields tell their names and values apart, and their lists only while they are
/// open. Once for the process; further calls do nothing.
void makeCombosAccessible();

/// Gives a list that belongs to such a field its name. Other widgets stay as they are.
void nameComboList(QWidget& widget);

}  // namespace workbench
