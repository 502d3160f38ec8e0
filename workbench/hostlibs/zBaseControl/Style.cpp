#include "workbench/hostlibs/zBaseControl/Style.h"

#include <QGuiApplication>
#include <QPainterPath>
#include <QPixmapCache>
#include <QtMath>

namespace workbench {

namespace {

struct Box {
    QColor fill, border;
    int line;  ///< Width of the outline, pixels.
    int radius;
};

void drawRounded(QPainter& painter, const QRect& rect, const Box& box) {
    const qreal inset = box.border.alpha() ? box.line / 2.0 : 0;
    const qreal round = box.radius - inset;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(box.border.alpha() ? QPen(box.border, box.line) : QPen(Qt::NoPen));
    painter.setBrush(box.fill);
    painter.drawRoundedRect(QRectF(rect).adjusted(inset, inset, -inset, -inset), round, round);
    painter.restore();
}

/// @return the four corners of a box, side by side in a square of twice `size`.
QPixmap cornersOf(const Box& box, int size) {
    const QString key = QStringLiteral("corners %1 %2 %3 %4")
                            .arg(box.fill.rgba())
                            .arg(box.border.rgba())
                            .arg(box.line)
                            .arg(box.radius);
    QPixmap corners;
    if (QPixmapCache::find(key, &corners)) return corners;
    corners = QPixmap(2 * size, 2 * size);
    corners.fill(Qt::transparent);
    QPainter painter(&corners);
    drawRounded(painter, corners.rect(), box);
    QPixmapCache::insert(key, corners);
    return corners;
}

/// Draws what lies between the corners: straight, and so without the cost of a path.
void drawBetweenCorners(QPainter& painter, const QRect& rect, const Box& box, int size) {
    const QRect wide = rect.adjusted(size, 0, -size, 0);
    const QRect high = rect.adjusted(0, size, 0, -size);
    const int line = box.border.alpha() ? box.line : 0;
    if (box.fill.alpha()) {
        painter.fillRect(wide.adjusted(0, line, 0, -line), box.fill);
        painter.fillRect(rect.x() + line, high.y(), size - line, high.height(), box.fill);
        painter.fillRect(wide.right() + 1, high.y(), size - line, high.height(), box.fill);
    }
    if (!line) return;
    painter.fillRect(wide.x(), rect.y(), wide.width(), line, box.border);
    painter.fillRect(wide.x(), rect.bottom() + 1 - line, wide.width(), line, box.border);
    painter.fillRect(rect.x(), high.y(), line, high.height(), box.border);
    painter.fillRect(rect.right() + 1 - line, high.y(), line, high.height(), box.border);
}

}  // namespace

void drawBox(QPainter& painter, const QRect& rect, const QColor& fill, const QColor& border,
             double radius) {
    const Box box{fill, border, qMax(1, scaled(1)), scaled(radius)};
    const int size = qMax(box.radius, box.line);
    const bool straight = rect.width() > 2 * size && rect.height() > 2 * size &&
                          painter.device()->devicePixelRatioF() == 1;
    if (!straight) {
        drawRounded(painter, rect, box);
        return;
    }
    drawBetweenCorners(painter, rect, box, size);
    // The corners are pictures for their speed, see docs/measures.md. Last, because Qt's fill with
    // wide vector registers leaves the processor in a state in which text is drawn at half the
    // speed; its drawing of pictures ends that state.
    const QPixmap corners = cornersOf(box, size);
    const int right = rect.right() + 1 - size;
    const int bottom = rect.bottom() + 1 - size;
    painter.drawPixmap(rect.x(), rect.y(), corners, 0, 0, size, size);
    painter.drawPixmap(right, rect.y(), corners, size, 0, size, size);
    painter.drawPixmap(rect.x(), bottom, corners, 0, size, size, size);
    painter.drawPixmap(right, bottom, corners, size, size, size, size);
}

void drawField(QPainter& painter, const QRect& rect, const QColor& fill, QStyle::State state) {
    const bool enabled = state & QStyle::State_Enabled;
    const bool focused = enabled && (state & QStyle::State_HasFocus);
    const bool active = focused || (enabled && (state & QStyle::State_MouseOver));
    drawBox(painter, rect, enabled ? fill : colour(Tint::Disabled),
            colour(active ? Tint::AccentLine : Tint::Border), kFieldRadius);
    if (!focused) return;
    const int line = qMax(1, scaled(1));
    drawBox(painter, rect.adjusted(line, line, -line, -line), Qt::transparent,
            colour(Tint::AccentLine), kFieldRadius - 1);
}

void drawWithDots(QPainter& painter, QPointF place, const QString& text) {
    // By themselves, because in one with a text they take the shape of its script.
    const QString dots(QChar(0x2026));
    const QFontMetricsF metrics(painter.font());
    QString rest = text;
    while (!rest.isEmpty()) {
        const int cut = rest.startsWith(dots) ? 1 : rest.indexOf(dots);
        const QString part = cut < 0 ? rest : rest.left(cut);
        painter.drawText(place, part);
        place.rx() += metrics.horizontalAdvance(part);
        rest.remove(0, part.size());
    }
}

int heightWithText(const QFontMetrics& font, double design) {
    return qMax(scaled(design), font.height() + scaled(3));
}

QFont fitting(QFont font, int needed, int room) {
    constexpr double smallest = 0.5;
    if (needed <= room + 1 || room <= 0) return font;
    const int size = QFontInfo(font).pixelSize();
    font.setPixelSize(qMax(int(size * double(room) / needed), qCeil(size * smallest)));
    return font;
}

int heightOfSigns(const QFont& font) {
    return qCeil(QFontInfo(font).pixelSize() * 1.15);
}

bool drawLine(QPainter& painter, const QRect& place, Qt::Alignment alignment, const QString& text,
              Qt::TextElideMode dots) {
    const QFontMetrics metrics = painter.fontMetrics();
    const QString shown = metrics.elidedText(text, dots, place.width());
    if (shown == text) {
        painter.drawText(place, int(alignment) | Qt::TextSingleLine, text);
        return false;
    }
    const int height = metrics.height();
    const QRect line =
        QStyle::alignedRect(Qt::LeftToRight, alignment, {place.width(), height}, place);
    drawWithDots(painter, {qreal(line.left()), qreal(line.top() + metrics.ascent())}, shown);
    return true;
}

QPixmap greyed(const QPixmap& picture) {
    QImage image = picture.toImage().convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int grey = qGray(line[x]);
            line[x] = qRgba(grey, grey, grey, qAlpha(line[x]) * 85 / 100);
        }
    }
    return QPixmap::fromImage(image);
}

void drawArrow(QPainter& painter, const QPoint& centre, bool enabled, bool up) {
    const QColor pen = colour(enabled ? Tint::Muted : Tint::Faint);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(pen, roomFor(15) / 10.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const int wide = roomFor(4);
    const int high = up ? -roomFor(2) : roomFor(2);
    painter.drawPolyline(QPolygonF({QPointF(centre.x() - wide, centre.y() - high),
                                    QPointF(centre.x(), centre.y() + high),
                                    QPointF(centre.x() + wide, centre.y() - high)}));
    painter.restore();
}

QRegion roundedRegion(const QRect& rect, double radius) {
    QPainterPath path;
    path.addRoundedRect(rect, scaled(radius), scaled(radius));
    return QRegion(path.toFillPolygon().toPolygon());
}

void roundCorners(QWidget* window, double radius) {
    // There is nothing to see through without a screen, and its plug-in complains.
    if (QGuiApplication::platformName() == QLatin1String("offscreen")) return;
    window->setMask(roundedRegion(window->rect(), radius));
}

}  // namespace workbench

ComStyleOption::ComStyleOption() : look(new Style) {}

ComStyleOption::~ComStyleOption() = default;

QColor ComStyleOption::normalBackColor() const {
    return look->background.isValid() ? look->background : workbench::colour(look->rest);
}

void ComStyleOption::setNormalBackColor(const QColor& color) {
    look->background = color;
}

ButtonStyleOption::ButtonStyleOption() = default;

ButtonStyleOption::~ButtonStyleOption() = default;

void ButtonStyleOption::setTextAlignment(int alignment) {
    look->textAlignment = alignment;
}

void ButtonStyleOption::setIconAlignment(int alignment) {
    look->iconAlignment = alignment;
}

void ButtonStyleOption::setCheckedBackColorEnabled(bool enabled) {
    look->checkedBackground = enabled;
}
