#include "workbench/hostlibs/zControl/Outline.h"

#include <QEvent>

#include "workbench/hostlibs/zBaseControl/Style.h"

namespace workbench {

Outline::Outline(QWidget* window) : QWidget(window) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    window->installEventFilter(this);
}

bool Outline::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::Show) {
        fit();
        raise();
    }
    return QWidget::eventFilter(watched, event);
}

void Outline::fit() {
    const int width = qMax(1, scaled(1));
    if (geometry() == parentWidget()->rect() && line == width) return;
    line = width;
    setGeometry(parentWidget()->rect());
    setMask(roundedRegion(rect(), kDialogRadius) -
            roundedRegion(rect().adjusted(line, line, -line, -line), kDialogRadius - 1));
}

void Outline::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawBox(painter, rect(), Qt::transparent, colour(Tint::Line), kDialogRadius);
}

}  // namespace workbench
