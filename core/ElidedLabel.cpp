#include "core/ElidedLabel.h"

#include <QPainter>

#include "core/guard.h"

namespace newpro {

ElidedLabel::ElidedLabel(const QString& text, Qt::TextElideMode mode, QWidget* parent)
    : zBaseLabel(text, parent), mode(mode) {
    setTextFormat(Qt::PlainText);
}

QSize ElidedLabel::minimumSizeHint() const {
    return {0, zBaseLabel::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent* event) {
    guarded("ElidedLabel", "ElidedLabel::paintEvent", [&] {
        const QString shown = fontMetrics().elidedText(text(), mode, contentsRect().width());
        if (shown == text()) {
            zBaseLabel::paintEvent(event);
            return;
        }
        QPainter painter(this);
        painter.setPen(palette().color(foregroundRole()));
        painter.drawText(contentsRect(), int(alignment()) | Qt::TextSingleLine, shown);
    });
}

}  // namespace newpro
