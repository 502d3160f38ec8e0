#include "core/ElidedLabel.h"

#include <QHash>
#include <QPainter>

#include "core/guard.h"

namespace newpro {

namespace {

/// @return what the glyphs of a line cover above and below its base line. A Chinese font's line is
///         half as high again. Measured once a font: thousands of labels ask.
QRect glyphs(const QFont& font) {
    static QHash<QFont, QRect> known;
    QRect& ink = known[font];
    if (ink.isNull()) ink = QFontMetrics(font).tightBoundingRect(QStringLiteral("国Qgj("));
    return ink;
}

}  // namespace

ElidedLabel::ElidedLabel(const QString& text, Qt::TextElideMode mode, QWidget* parent)
    : zBaseLabel(text, parent), mode(mode) {
    setTextFormat(Qt::PlainText);
}

QSize ElidedLabel::sizeHint() const {
    return guardedOr("ElidedLabel", "ElidedLabel::sizeHint", QSize(), [this] {
        const bool ownWidth = sizePolicy().horizontalPolicy() == QSizePolicy::Fixed;
        // Without measuring the text, which is what makes a list of labels slow.
        return ownWidth ? zBaseLabel::sizeHint() : QSize(0, fontMetrics().height());
    });
}

QSize ElidedLabel::minimumSizeHint() const {
    return {0, glyphs(font()).height()};
}

void ElidedLabel::paintEvent(QPaintEvent* event) {
    guarded("ElidedLabel", "ElidedLabel::paintEvent", [&] {
        const QRect area = contentsRect();
        const QString shown = fontMetrics().elidedText(text(), mode, area.width());
        if (shown == text() && area.height() >= fontMetrics().height()) {
            zBaseLabel::paintEvent(event);
            return;
        }
        const QRect ink = glyphs(font());
        const int baseLine = area.top() + (area.height() - ink.height()) / 2 - ink.top();
        QPainter painter(this);
        painter.setPen(palette().color(foregroundRole()));
        painter.drawText(area.left(), baseLine, shown);
    });
}

}  // namespace newpro
