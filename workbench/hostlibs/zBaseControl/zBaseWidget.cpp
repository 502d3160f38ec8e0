#include <QHBoxLayout>
#include <QVBoxLayout>

#include "workbench/hostlibs/zBaseControl/Style.h"

using workbench::colour;
using workbench::scaled;
using workbench::Tint;

zBaseWidget::zBaseWidget(QWidget* parent, int widgetType) : QWidget(parent) {
    look->type = widgetType;
    look->rest = widgetType == workbench::CardType ? Tint::Card : Tint::Surface;
    setAttribute(Qt::WA_Hover, widgetType != workbench::PlainType);
    // Rows with and without a button, which has 2 above and below, are of one height.
    if (widgetType == workbench::RowType)
        setMinimumHeight(workbench::heightWithText(fontMetrics(), workbench::kRowButtonHeight) +
                         2 * scaled(2));
    // What stands in a card keeps clear of its border, whatever margins its layout has.
    if (widgetType == workbench::CardType) setContentsMargins(scaled(4), 0, scaled(6), 0);
}

zBaseWidget::~zBaseWidget() = default;

void zBaseWidget::setBackgroundIcon(const QString& imagePath) {
    look->picture = imagePath;
    update();
}

QString zBaseWidget::backgroundIcon() const {
    return look->picture;
}

void zBaseWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const bool hovered = underMouse() && isEnabled();
    if (look->type == workbench::CardType) {
        // The gap between neighbouring cards belongs to the cards: lists lay them edge to edge.
        const QRect card = rect().adjusted(0, scaled(2), 0, -scaled(2));
        workbench::drawBox(painter, card, hovered ? colour(Tint::CardHover) : normalBackColor(),
                           colour(hovered ? Tint::AccentLine : Tint::Line), 6);
    } else if (look->background.isValid()) {
        painter.fillRect(rect(), look->background);
    }
    painter.drawPixmap(rect(), workbench::pixmapOf(look->picture, size(), devicePixelRatioF(),
                                                   Qt::IgnoreAspectRatio));
}

zBasePanelH::zBasePanelH(QWidget* parent) : zBaseWidget(parent) {
    new QHBoxLayout(this);
}

QHBoxLayout* zBasePanelH::panelLayout() const {
    return qobject_cast<QHBoxLayout*>(layout());
}

zBasePanelV::zBasePanelV(QWidget* parent) : zBaseWidget(parent) {
    new QVBoxLayout(this);
}

QVBoxLayout* zBasePanelV::panelLayout() const {
    return qobject_cast<QVBoxLayout*>(layout());
}
