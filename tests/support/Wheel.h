/// A wheel and a touchpad over a widget.
#pragma once

#include <QtTest/qtestspontaneevent.h>
#include <QApplication>
#include <QWheelEvent>

namespace testing_support {

inline void sendWheel(QWidget* over, int angle, int pixels, Qt::ScrollPhase phase) {
    const QPoint middle = over->rect().center();
    QWheelEvent event(middle, over->mapToGlobal(middle), {0, pixels}, {0, angle}, Qt::NoButton,
                      Qt::NoModifier, phase, false);
    QSpontaneKeyEvent::setSpontaneous(&event);  // only such a one goes on to what is around
    qApp->notify(over, &event);
}

/// @param angle in eighths of a degree; a notch has 120. Negative scrolls down.
inline void turn(QWidget* over, int angle) {
    sendWheel(over, angle, 0, Qt::NoScrollPhase);
}

/// One stroke on a touchpad, which counts pixels too.
inline void stroke(QWidget* over, int angle, int pixels) {
    sendWheel(over, 0, 0, Qt::ScrollBegin);
    sendWheel(over, angle, pixels, Qt::ScrollUpdate);
    sendWheel(over, 0, 0, Qt::ScrollEnd);
}

}  // namespace testing_support
