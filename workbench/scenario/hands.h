/// A person's hands: real mouse and keyboard events, sent to windows, not to widgets.
#pragma once

#include <QPoint>
#include <QString>
#include <QVector>

class QWidget;

namespace workbench {

/// Why a person could not press a widget at this moment.
/// @param at a point in the widget. @return empty if the press would reach it or a child of it;
///         else the reason: hidden, disabled, behind another window, or covered.
QString unreachable(const QWidget* widget, QPoint at);
QString unreachable(const QWidget* widget);

/// Scrolls whatever holds the widget until it can be seen, if it can.
void bringIntoSight(QWidget* widget);

/// Clicks with the left button. Window and widget may be gone when this returns.
void press(QWidget* widget, QPoint at);
void press(QWidget* widget);
void pressTwice(QWidget* widget, QPoint at);
/// Clicks widgets one after another, faster than their window answers: all clicks are under way
/// before the first arrives, and the later ones arrive whatever the earlier ones have done.
void pressRapidly(const QVector<QWidget*>& widgets);

/// Closes a window by its close button; one without that button as its title bar would.
void pressClose(QWidget* window);

/// Replaces the text of an editor, as typed through an input method.
void type(QWidget* editor, const QString& text);
/// @param keys such as "Return" or "Ctrl+A".
void pressKey(QWidget* widget, const QString& keys);
/// @return whether `keys` names a key.
bool isKey(const QString& keys);

}  // namespace workbench
