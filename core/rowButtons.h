/// The buttons on the widget of a list's or tree's row.
#pragma once

#include <QVector>

class QAbstractButton;
class QWidget;

namespace newpro {

/// @return the buttons that a person can press on `row`, in the order of their making: of a split
///         button its parts.
QVector<QAbstractButton*> rowButtons(const QWidget* row);

/// Lets Tab reach the row's buttons, or pass them by: a list of many rows is one stop, and only the
/// buttons of the row in use are stops of their own.
void offerToTab(const QWidget* row, bool offered);

}  // namespace newpro
