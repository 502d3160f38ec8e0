#include "core/ElidedLabel.h"

#include <QHash>
#include <QPainter>
#include <QTextLayout>

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

/// @return the text with a blank for each line break: a label of one line would run words together.
QString onOneLine(QString text) {
    for (int i = 0; i < text.size(); ++i) {
        const QChar letter = text.at(i);
        const bool breaks = letter == QLatin1Char('\n') || letter == QLatin1Char('\r') ||
                            letter == QLatin1Char('\t') || letter == QChar::LineSeparator ||
                            letter == QChar::ParagraphSeparator;
        if (breaks) text[i] = QLatin1Char(' ');
    }
    return text;
}

/// Draws dots by themselves: in one with a text they take the shape of its script, high behind
/// Chinese and low behind Latin letters. @param place where the base line begins.
void drawWithDots(QPainter& painter, QPointF place, const QString& text) {
    const QString dots(QChar(0x2026));
    const int cut = text.indexOf(dots);
    if (cut < 0) return painter.drawText(place, text);
    // Measured while it is drawn, because shaping the text is what costs.
    QTextLayout before(text.left(cut), painter.font(), painter.device());
    before.beginLayout();
    QTextLine line = before.createLine();
    if (line.isValid()) {
        line.setLineWidth(QWIDGETSIZE_MAX);
        line.setPosition({0, -line.ascent()});
    }
    before.endLayout();
    before.draw(&painter, place);
    if (line.isValid()) place.rx() += line.naturalTextWidth();
    painter.drawText(place, dots);
    place.rx() += painter.fontMetrics().horizontalAdvance(dots);
    const QString rest = text.mid(cut + 1);
    if (!rest.isEmpty()) drawWithDots(painter, place, rest);
}

}  // namespace

QString elidedAtEnd(const QFontMetrics& metrics, const QString& text, int width) {
    // A Chinese character is about two thirds as wide as its line is high; of narrower letters more
    // have to be tried.
    constexpr int fewest = 8;
    int tried = qMax(fewest, fewest + width * 3 / (2 * metrics.height()));
    for (; tried < text.size(); tried *= 2) {
        const QString part = text.left(tried);
        const QString shown = metrics.elidedText(part, Qt::ElideRight, width);
        if (shown != part) return shown;
    }
    return metrics.elidedText(text, Qt::ElideRight, width);
}

ElidedLabel::ElidedLabel(const QString& text, Qt::TextElideMode dots, QWidget* parent)
    : zBaseLabel(text, parent), mode(dots) {
    setTextFormat(Qt::PlainText);
}

QSize ElidedLabel::sizeHint() const {
    return guardedOr("ElidedLabel", QSize(), [this] {
        const bool ownWidth = sizePolicy().horizontalPolicy() == QSizePolicy::Fixed;
        // Without measuring the text, which is what makes a list of labels slow (docs/measures.md).
        return ownWidth ? zBaseLabel::sizeHint() : QSize(0, fontMetrics().height());
    });
}

QSize ElidedLabel::minimumSizeHint() const {
    return {0, glyphs(font()).height()};
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    guarded("ElidedLabel", [&] {
        const QRect area = contentsRect();
        const QFontMetrics metrics = fontMetrics();
        // Where the line has no room, its glyphs are what is centred.
        const bool roomy = area.height() >= metrics.height();
        const QRect line =
            roomy ? QRect(0, -metrics.ascent(), 0, metrics.height()) : glyphs(font());
        const int baseLine = area.top() + (area.height() - line.height()) / 2 - line.top();
        QPainter painter(this);
        const QString shown = onOneLine(text());
        drawWithDots(painter, QPoint(area.left(), baseLine),
                     mode == Qt::ElideRight ? elidedAtEnd(metrics, shown, area.width())
                                            : metrics.elidedText(shown, mode, area.width()));
    });
}

}  // namespace newpro
