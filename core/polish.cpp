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

bool isKeptHidden(const QWidget* widget) {
    return widget->isHidden() && widget->testAttribute(Qt::WA_WState_ExplicitShowHide);
}

}  // namespace newpro
