/// Fusion's own boxes, ticks and buttons have borders that follow from the ground and cannot be
/// seen on every one. These are drawn in the skin's colours, like the styled widgets.
#pragma once

#include <QStyleOption>

class QPainter;

namespace workbench {

/// A combo box but for its text.
void drawComboBox(QPainter& painter, const QStyleOptionComboBox& option);
/// The text of a combo box, cut with dots.
void drawComboBoxText(QPainter& painter, const QStyleOptionComboBox& option, const QRect& room);
/// The box of a tick.
void drawCheckBox(QPainter& painter, const QStyleOption& option);
/// The text of a tick, cut with dots.
void drawCheckBoxText(QPainter& painter, const QStyleOptionButton& option);
/// The ground of a tool's button, which has none at rest.
void drawToolButton(QPainter& painter, const QStyleOption& option);
/// Icon and text of a tool's button, side by side.
void drawToolButtonLabel(QPainter& painter, const QStyleOptionToolButton& option);
/// A push button but for its text.
void drawPushButton(QPainter& painter, const QStyleOption& option);
/// Its text, cut with dots.
void drawPushButtonText(QPainter& painter, const QStyleOptionButton& option);
/// The ring around what the keys go to.
void drawFocusRing(QPainter& painter, const QRect& rect);

}  // namespace workbench
