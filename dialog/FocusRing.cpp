#include "dialog/FocusRing.h"

#include <QEvent>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

#include "core/guard.h"

namespace newpro {

FocusRing::FocusRing(QWidget* row) : QWidget(row) {
    setObjectName(QStringLiteral("focusRing"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    setGeometry(row->rect());
    row->installEventFilter(this);
}

bool FocusRing::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize && watched == parent()) resize(parentWidget()->size());
    return false;
}

void FocusRing::paintEvent(QPaintEvent*) {
    guarded("FocusRing", [this] {
        QStylePainter painter(this);
        QStyleOptionFocusRect option;
        option.initFrom(this);
        option.state |= QStyle::State_KeyboardFocusChange | QStyle::State_HasFocus;
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, option);
    });
}

}  // namespace newpro
