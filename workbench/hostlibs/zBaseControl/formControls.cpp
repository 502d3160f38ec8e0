#include "workbench/hostlibs/zBaseControl/formControls.h"

#include <QPainter>

#include "workbench/hostlibs/zBaseControl/Style.h"

namespace workbench {

namespace {

void drawTick(QPainter& painter, const QRect& box, const QColor& pen) {
    const QRectF inside = QRectF(box).adjusted(0.5, 0.5, -0.5, -0.5);
    const auto at = [&inside](double x, double y) {
        return QPointF(inside.left() + x * inside.width(), inside.top() + y * inside.height());
    };
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(pen, box.width() / 8.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF({at(0.22, 0.52), at(0.42, 0.72), at(0.78, 0.3)}));
    painter.restore();
}

void drawText(QPainter& painter, const QStyleOption& option, const QRect& room,
              const QString& text) {
    painter.setPen(colour(option.state & QStyle::State_Enabled ? Tint::Text : Tint::Faint));
    drawLine(painter, room, Qt::AlignLeft | Qt::AlignVCenter, text);
}

/// As the styled buttons of this kind.
void drawDefaultButton(QPainter& painter, const QStyleOption& option) {
    Tint fill = Tint::Accent;
    if (option.state & QStyle::State_MouseOver) fill = Tint::AccentHover;
    if (option.state & QStyle::State_Sunken) fill = Tint::AccentPressed;
    drawBox(painter, option.rect, colour(fill), colour(Tint::AccentLine), kFieldRadius);
    if (!(option.state & QStyle::State_HasFocus)) return;
    const int inset = scaled(2);
    drawBox(painter, option.rect.adjusted(inset, inset, -inset, -inset), Qt::transparent,
            colour(Tint::OnAccent), kFieldRadius);
}

/// @return whether it is a button that Enter presses, and that can be pressed.
bool isDefault(const QStyleOption& option) {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    return button && (button->features & QStyleOptionButton::DefaultButton) &&
           (button->state & QStyle::State_Enabled);
}

}  // namespace

void drawComboBox(QPainter& painter, const QStyleOptionComboBox& option) {
    drawField(painter, option.rect, colour(Tint::Field), option.state);
    drawArrow(painter, {option.rect.right() - roomFor(12), option.rect.center().y()},
              option.state & QStyle::State_Enabled);
}

void drawComboBoxText(QPainter& painter, const QStyleOptionComboBox& option, const QRect& room) {
    if (!option.editable) drawText(painter, option, room, option.currentText);
}

void drawCheckBox(QPainter& painter, const QStyleOption& option) {
    const bool enabled = option.state & QStyle::State_Enabled;
    const bool ticked = option.state & QStyle::State_On;
    const bool pressed = option.state & QStyle::State_Sunken;
    const bool active = enabled && (pressed || (option.state & QStyle::State_MouseOver));
    Tint fill = pressed ? Tint::Pressed : Tint::Field;
    if (ticked) fill = pressed ? Tint::AccentPressed : Tint::Accent;
    if (!enabled) fill = ticked ? Tint::Selected : Tint::Disabled;
    const int side = qMin(option.rect.width(), option.rect.height());
    QRect box(0, 0, side, side);
    box.moveCenter(option.rect.center());
    const bool lit = active || (ticked && enabled);
    drawBox(painter, box, colour(fill), colour(lit ? Tint::AccentLine : Tint::Border), 3);
    if (ticked) drawTick(painter, box, colour(enabled ? Tint::OnAccent : Tint::Faint));
}

void drawCheckBoxText(QPainter& painter, const QStyleOptionButton& option) {
    drawText(painter, option, option.rect, option.text);
}

void drawToolButton(QPainter& painter, const QStyleOption& option) {
    Tint fill = Tint::None;
    if (option.state & QStyle::State_MouseOver) fill = Tint::Hover;
    if (option.state & QStyle::State_On) fill = Tint::Selected;
    if (option.state & QStyle::State_Sunken) fill = Tint::Pressed;
    const bool on = option.state & QStyle::State_On;
    if (on || (option.state & QStyle::State_Enabled))
        drawBox(painter, option.rect, colour(fill), Qt::transparent, kFieldRadius);
}

void drawToolButtonLabel(QPainter& painter, const QStyleOptionToolButton& option) {
    const bool enabled = option.state & QStyle::State_Enabled;
    const QRect icon(option.rect.left() + scaled(8), option.rect.top(), option.iconSize.width(),
                     option.rect.height());
    option.icon.paint(&painter, icon, Qt::AlignCenter, enabled ? QIcon::Normal : QIcon::Disabled);
    drawText(
        painter, option,
        {icon.right() + scaled(6), icon.top(), option.rect.right() - icon.right(), icon.height()},
        option.text);
}

void drawPushButton(QPainter& painter, const QStyleOption& option) {
    if (isDefault(option)) return drawDefaultButton(painter, option);
    Tint fill = Tint::Card;
    if (option.state & QStyle::State_MouseOver) fill = Tint::Hover;
    if (option.state & QStyle::State_On) fill = Tint::Selected;
    if (option.state & QStyle::State_Sunken) fill = Tint::Pressed;
    if (!(option.state & QStyle::State_Enabled)) fill = Tint::Disabled;
    QStyle::State state = option.state;
    state.setFlag(QStyle::State_MouseOver, fill != Tint::Card);
    drawField(painter, option.rect, colour(fill), state);
}

void drawPushButtonText(QPainter& painter, const QStyleOptionButton& option) {
    painter.setPen(isDefault(option) ? colour(Tint::OnAccent)
                                     : option.palette.color(QPalette::ButtonText));
    drawLine(painter, option.rect, Qt::AlignCenter, option.text);
}

// Two lines wide, so that it is told from the border of what it lies on.
void drawFocusRing(QPainter& painter, const QRect& rect) {
    const int line = qMax(1, scaled(1));
    for (int inset = 0; inset < 2; ++inset) {
        const int edge = inset * line;
        drawBox(painter, rect.adjusted(edge, edge, -edge, -edge), Qt::transparent,
                colour(Tint::AccentLine), 6 - inset);
    }
}

}  // namespace workbench
