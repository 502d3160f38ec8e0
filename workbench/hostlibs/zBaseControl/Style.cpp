#include "workbench/hostlibs/zBaseControl/Style.h"

#include <QGuiApplication>
#include <QPainterPath>

namespace workbench {

void drawBox(QPainter& painter, const QRect& rect, const QColor& fill, const QColor& border,
             double radius) {
    const int line = qMax(1, scaled(1));
    const qreal inset = border.alpha() ? line / 2.0 : 0;
    const QRectF box = QRectF(rect).adjusted(inset, inset, -inset, -inset);
    const qreal round = scaled(radius) - inset;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(border.alpha() ? QPen(border, line) : QPen(Qt::NoPen));
    painter.setBrush(fill);
    painter.drawRoundedRect(box, round, round);
    painter.restore();
}

void drawArrow(QPainter& painter, const QPoint& centre, bool enabled) {
    const QColor pen = colour(enabled ? Tint::Muted : Tint::Faint);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(pen, scaled(15) / 10.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const int wide = scaled(4);
    const int high = scaled(2);
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
