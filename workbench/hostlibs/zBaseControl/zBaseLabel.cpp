#include <QHelpEvent>
#include <QToolTip>
#include <QtMath>

#include "workbench/hostlibs/zBaseControl/Style.h"

using workbench::colour;
using workbench::scaled;
using workbench::Tint;

namespace {

bool isPlainLine(const QLabel& label) {
    return !label.text().isEmpty() && !label.wordWrap() && label.textFormat() != Qt::RichText;
}

/// @return whether a text of one line is longer than there is room.
bool isCut(const QLabel& label) {
    return isPlainLine(label) &&
           label.fontMetrics().horizontalAdvance(label.text()) > label.contentsRect().width() + 1;
}

/// @return whether a text of one line would lose its head and foot.
bool isTooLow(const QLabel& label) {
    return isPlainLine(label) &&
           workbench::heightOfSigns(label.font()) > label.contentsRect().height();
}

/// Draws a text of several lines in the largest font in which all of it can be seen.
void drawWrapped(QLabel& label) {
    const QRect room = label.contentsRect();
    const int flags = int(label.alignment()) | Qt::TextWordWrap;
    QFont font = label.font();
    int size = QFontInfo(font).pixelSize();
    const int smallest = qMin(size / 2, scaled(12));
    do font.setPixelSize(size);
    while (QFontMetrics(font).boundingRect(room, flags, label.text()).height() > room.height() &&
           --size >= smallest);
    QPainter painter(&label);
    painter.setFont(font);
    painter.drawText(room, flags, label.text());
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
        connect(SkinManager::instance(), &SkinManager::signalSkinChanged, this,
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
    if (wordWrap() && heightForWidth(width()) > height()) return drawWrapped(*this);
    if (!isCut(*this) && !isTooLow(*this)) return QLabel::paintEvent(event);
    QPainter painter(this);
    const QSize room = contentsRect().size();
    const QFont low = workbench::fitting(font(), workbench::heightOfSigns(font()), room.height());
    painter.setFont(
        workbench::fitting(low, QFontMetrics(low).horizontalAdvance(text()), room.width()));
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
