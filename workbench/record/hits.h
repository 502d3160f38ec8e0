/// What a mouse hits, as a step of a scenario.
#pragma once

#include <QWidget>

#include "workbench/scenario/Scenario.h"

namespace workbench {

/// @return the nearest of the widget and those around it that is of this class; null if none is.
template <typename T>
T* around(QWidget* widget) {
    while (widget && !qobject_cast<T*>(widget)) widget = widget->parentWidget();
    return qobject_cast<T*>(widget);
}

/// @return a name or text by which the player finds a widget in its window; empty if none does.
QString nameOf(QWidget* widget);

/// @return the step that clicks a widget of one of the module's windows, or double-clicks it; one
///         without verb if no step says it. The menu of a model card is a step without its mode.
Step stepOfClick(QWidget* hit, bool twice);

}  // namespace workbench
