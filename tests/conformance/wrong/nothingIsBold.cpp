// the current ribbon entry is bold
#include <zBaseControl.h>

#include <QEvent>

bool zBaseButton::event(QEvent* event) {
    if (event->type() == QEvent::FontChange && font().bold()) {
        QFont own = font();
        own.setBold(false);
        setFont(own);
    }
    return QPushButton::event(event);
}
