#include "core/ElidedLabel.h"

#include <QPainter>

#include "core/guard.h"

namespace newpro {

namespace {

/// @return what the glyphs of a line cover above and below its base line. A Chinese font's line is
///         half as high again.
QRect glyphs(const QFontMetrics& metrics) {
    return metrics.tightBoundingRect(QStringLiteral("国ÄQgj（）"));
}

}  // namespace

ElidedLabel::ElidedLabel(const QString& text, Qt::TextElideMode mode, QWidget* parent)
    : zBaseLabel(text, parent), mode(mode) {
    setTextFormat(Qt::PlainText);
}

QSize ElidedLabel::minimumSizeHint() const {
    return {0, glyphs(fontMetrics()).height()};
}

void ElidedLabel::paintEvent(QPaintEvent* event) {
    guarded("ElidedLabel", "ElidedLabel::paintEvent", [&] {
        const QRect area = contentsRect();
        const QString shown = fontMetrics().elidedText(text(), mode, area.width());
        if (shown == text() && area.height() >= fontMetrics().height()) {
            zBaseLabel::paintEvent(event);
            return;
        }
        const QRect ink = glyphs(fontMetrics());
        const int baseLine = area.top() + (area.height() - ink.height()) / 2 - ink.top();
        QPainter painter(this);
        painter.setPen(palette().color(foregroundRole()));
        painter.drawText(area.left(), baseLine, shown);
    });
}

}  // namespace newpro
