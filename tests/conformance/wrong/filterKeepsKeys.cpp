// events of others pass through
#include <zControl.h>

#include <QEvent>

bool RoundedDialog::eventFilter(QObject*, QEvent* event) {
    return event->type() == QEvent::KeyPress || event->type() == QEvent::Wheel;
}
