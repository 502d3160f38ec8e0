#include "core/polish.h"

#include <QCoreApplication>
#include <QWidget>

namespace newpro {

void polishNow(QWidget* widget) {
    widget->ensurePolished();
    polishWhenShown(widget);
}

void polishWhenShown(QWidget* widget) {
    QCoreApplication::removePostedEvents(widget, QEvent::PolishRequest);
    for (QWidget* part : widget->findChildren<QWidget*>()) {
        QCoreApplication::removePostedEvents(part, QEvent::PolishRequest);
    }
}

}  // namespace newpro
