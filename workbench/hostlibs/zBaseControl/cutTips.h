/// Tips that tell a text whole where it is cut, and only there.
#pragma once

#include <QHelpEvent>
#include <QWidget>

namespace workbench {

/// Answers the wish for a tip on something with a text: one that is cut is told whole, before the
/// widget's own tip, and a tip that only repeats one that is not is kept back.
/// @return whether it is dealt with; else the widget's own tip is due.
bool tellText(const QWidget& widget, const QHelpEvent& event, const QString& text, bool cut);

/// The same for a control of Qt's whose text the style may cut: a button, a tick or a field with a
/// list.
bool tellControl(const QWidget& widget, const QHelpEvent& event);

/// Answers the wish for a tip on a view or a header. @return whether it is dealt with; false where
/// there is no item, or one that a widget shows.
bool tellCutItem(const QWidget& viewport, const QHelpEvent& event);

}  // namespace workbench
