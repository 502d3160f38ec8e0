#include "workbench/hostlibs/zControl/Outline.h"

#include <QEvent>

#include "workbench/hostlibs/zBaseControl/Style.h"

namespace workbench {

Outline::Outline(QWidget* window) : QWidget(window) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    window->installEventFilter(this);
}

bool Outline::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show) raise();
    if (event->type() == QEvent::Resize) {
        setGeometry(parentWidget()->rect());
        const int line = qMax(1, scaled(1));
        const QRegion whole = roundedRegion(rect(), kDialogRadius);
        setMask(whole -
                roundedRegion(rect().adjusted(line, line, -line, -line), kDialogRadius - 1));
        raise();
    }
    return QWidget::eventFilter(watched, event);
}

void Outline::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawBox(painter, rect(), Qt::transparent, colour(Tint::Border), kDialogRadius);
}

}  // namespace workbench
