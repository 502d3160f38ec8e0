#include <QResizeEvent>

#include "workbench/hostlibs/zBaseControl/Style.h"

using workbench::colour;
using workbench::scaled;
using workbench::Tint;

namespace {

QString menuSheet() {
    return QStringLiteral(
               "QMenu{background:%1;color:%2;border:1px solid %3;padding:%6px 0}"
               "QMenu::item{padding:%7px %8px;background:transparent}"
               "QMenu::item:selected{background:%4;color:%2}"
               "QMenu::item:disabled{color:%5}"
               "QMenu::separator{height:1px;background:%3;margin:%6px 0}")
        .arg(colour(Tint::Card).name(), colour(Tint::Text).name(), colour(Tint::Line).name(),
             colour(Tint::Selected).name(), colour(Tint::Faint).name())
        .arg(scaled(4))
        .arg(scaled(6))
        .arg(scaled(9));
}

}  // namespace

zBaseMenu::zBaseMenu(QWidget* parent) : QMenu(parent) {
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    // Only when it opens: most menus of a long list of cards never do.
    connect(this, &QMenu::aboutToShow, this, [this] { setStyleSheet(menuSheet()); });
}

// The background is the menu's own: a style sheet of an ancestor may have taken it away. The
// rounded frame goes over the square one of the style.
void zBaseMenu::paintEvent(QPaintEvent* event) {
    QPainter(this).fillRect(rect(), colour(Tint::Card));
    QMenu::paintEvent(event);
    QPainter painter(this);
    workbench::drawBox(painter, rect(), Qt::transparent, colour(Tint::Line),
                       workbench::kMenuRadius);
}

void zBaseMenu::resizeEvent(QResizeEvent* event) {
    QMenu::resizeEvent(event);
    workbench::roundCorners(this, workbench::kMenuRadius);
}
