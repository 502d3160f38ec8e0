/// Tips that tell a text whole where it is cut, and only there.
#pragma once

#include <QHelpEvent>
#include <QWidget>

namespace workbench {

/// Shows a text that is cut as a tip, before the widget's own tip.
void tellWhole(const QWidget& widget, const QHelpEvent& event, const QString& text);

/// Answers the wish for a tip on a control of Qt's whose text the style may cut: a button, a tick
/// or a field with a list. @return whether the text is cut, and told; else the widget's own tip is
/// due.
bool tellCutControl(const QWidget& widget, const QHelpEvent& event);

/// Answers the wish for a tip on a view or a header. @return whether it is dealt with; false where
/// there is no item, or one that a widget shows.
bool tellCutItem(const QWidget& viewport, const QHelpEvent& event);

}  // namespace workbench
