#include <QHelpEvent>
#include <QTextLayout>
#include <QToolTip>
#include <QtMath>

#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/zBaseControl/Style.h"

using workbench::colour;
using workbench::scaled;
using workbench::Tint;

namespace {

bool isPlainLine(const QLabel& label) {
    return !label.text().isEmpty() && !label.wordWrap() && label.textFormat() != Qt::RichText;
}

/// @return whether a text of one line would lose its head and foot.
bool isTooLow(const QLabel& label) {
    return isPlainLine(label) &&
           workbench::heightOfSigns(label.font()) > label.contentsRect().height();
}

int flagsOfLines(const QLabel& label) {
    return int(label.alignment()) | Qt::TextWordWrap;
}

bool isHigher(const QLabel& label, const QFont& font) {
    const QRect room = label.contentsRect();
    const QRect needed = QFontMetrics(font).boundingRect(room, flagsOfLines(label), label.text());
    return needed.height() > room.height();
}

/// @return the largest font in which all of a text of several lines can be seen; else the smallest.
QFont fontOfLines(const QLabel& label) {
    QFont font = label.font();
    int size = QFontInfo(font).pixelSize();
    const int smallest = qMin(size / 2, scaled(12));
    do font.setPixelSize(size);
    while (isHigher(label, font) && --size >= smallest);
    return font;
}

/// Draws the lines of a text that have room, the last of them with dots.
void drawFirstLines(QPainter& painter, const QRect& room, Qt::Alignment alignment, QString text) {
    text.replace(QLatin1Char('\n'), QChar::LineSeparator);
    const int height = painter.fontMetrics().height();
    QTextLayout lines(text, painter.font());
    lines.beginLayout();
    for (QRect place(room.topLeft(), QSize(room.width(), height));; place.translate(0, height)) {
        QTextLine line = lines.createLine();
        if (!line.isValid()) break;
        line.setLineWidth(room.width());
        const bool last = place.bottom() + height > room.bottom();
        QString part = text.mid(line.textStart(), last ? -1 : line.textLength());
        part.replace(QChar::LineSeparator, QLatin1Char(' '));
        workbench::drawLine(painter, place, (alignment & Qt::AlignHorizontal_Mask) | Qt::AlignTop,
                            part);
        if (last) break;
    }
    lines.endLayout();
}

void drawWrapped(QLabel& label) {
    QPainter painter(&label);
    const QFont font = fontOfLines(label);
    painter.setFont(font);
    if (isHigher(label, font))
        drawFirstLines(painter, label.contentsRect(), label.alignment(), label.text());
    else
        painter.drawText(label.contentsRect(), flagsOfLines(label), label.text());
}

bool isTooHigh(const QLabel& label) {
    return label.wordWrap() && label.heightForWidth(label.width()) > label.height();
}

/// @return whether there is not room for all of a text, as long as it is not drawn smaller.
bool isCut(const QLabel& label) {
    if (label.wordWrap()) return isTooHigh(label) && isHigher(label, fontOfLines(label));
    return isPlainLine(label) &&
           label.fontMetrics().horizontalAdvance(label.text()) > label.contentsRect().width() + 1;
}

}  // namespace

zBaseLabel::zBaseLabel(QWidget* parent) : QLabel(parent) {}

zBaseLabel::zBaseLabel(const QString& text, QWidget* parent) : QLabel(text, parent) {}

zBaseLabel::~zBaseLabel() = default;

void zBaseLabel::setControlType(int type) {
    look->type = type;
    if (type == workbench::DividerType) setFixedHeight(qMax(1, scaled(1)));
    followFont();
}

void zBaseLabel::setPixmap(const QString& imagePath, const QSize& size) {
    if (look->picture.isEmpty())
        connect(&workbench::Host::instance(), &workbench::Host::skinChanged, this,
                &zBaseLabel::showPicture);
    look->picture = imagePath;
    look->pictureSize = size;
    showPicture();
}

// The font's line has room above and below every glyph of the language, which a tight row can do
// without.
QSize zBaseLabel::minimumSizeHint() const {
    const QSize size = QLabel::minimumSizeHint();
    if (wordWrap() || text().isEmpty() || text().contains(QLatin1Char('\n'))) return size;
    return {size.width(), qMin(size.height(), qCeil(fontInfo().pixelSize() * 1.25))};
}

void zBaseLabel::showPicture() {
    QLabel::setPixmap(workbench::pixmapOf(look->picture, look->pictureSize, devicePixelRatioF()));
}

// On a card the bold line is its title; the others step back.
void zBaseLabel::followFont() {
    const bool steppedBack = look->type == workbench::CardTextType && !font().bold();
    setForegroundRole(steppedBack ? QPalette::PlaceholderText : QPalette::WindowText);
}

void zBaseLabel::paintEvent(QPaintEvent* event) {
    // A text-less label one line high separates what is above it from what is below.
    const bool flat = maximumHeight() <= qMax(1, scaled(1)) && text().isEmpty();
    if (look->type == workbench::DividerType || flat) {
        QPainter(this).fillRect(rect(), colour(Tint::Divider));
        return;
    }
    if (look->background.isValid()) QPainter(this).fillRect(rect(), look->background);
    if (isTooHigh(*this)) return drawWrapped(*this);
    if (!isCut(*this) && !isTooLow(*this)) return QLabel::paintEvent(event);
    QPainter painter(this);
    const QSize room = contentsRect().size();
    const QFont low = workbench::fitting(font(), workbench::heightOfSigns(font()), room.height());
    const bool dotsFirst = look->type == workbench::MessageTextType;
    const int wanted = dotsFirst ? 0 : QFontMetrics(low).horizontalAdvance(text());
    painter.setFont(workbench::fitting(low, wanted, room.width()));
    workbench::drawLine(painter, contentsRect(), alignment(), text());
}

bool zBaseLabel::event(QEvent* event) {
    if (event->type() == QEvent::FontChange) followFont();
    // Without its widget the tip does not take over style sheets that are meant for the page.
    if (event->type() == QEvent::ToolTip) {
        // A text that was cut before it came here ends in dots, and the tip goes on.
        const QChar dots(0x2026);
        const bool shortened = text().endsWith(dots) && !toolTip().endsWith(dots);
        if (!shortened && !isCut(*this)) return true;
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                           toolTip().isEmpty() ? text().toHtmlEscaped() : toolTip());
        return true;
    }
    return QLabel::event(event);
}
