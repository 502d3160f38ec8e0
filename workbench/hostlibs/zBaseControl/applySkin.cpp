#include <QApplication>
#include <QPalette>
#include <QScrollBar>
#include <QToolTip>

#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/Skin.h"
#include "workbench/hostlibs/zBaseControl/SkinStyle.h"
#include "workbench/hostlibs/zBaseControl/comboAccessible.h"
#include "zBaseControl.h"

namespace workbench {

namespace {

struct RoleTint {
    QPalette::ColorRole role;
    Tint rest;
    Tint disabled;
};

constexpr RoleTint roles[] = {
    {QPalette::Window, Tint::Surface, Tint::Surface},
    {QPalette::WindowText, Tint::Text, Tint::Faint},
    {QPalette::Base, Tint::Field, Tint::Disabled},
    {QPalette::AlternateBase, Tint::Hover, Tint::Surface},
    {QPalette::ToolTipBase, Tint::Card, Tint::Card},
    {QPalette::ToolTipText, Tint::Text, Tint::Text},
    {QPalette::PlaceholderText, Tint::Muted, Tint::Faint},
    {QPalette::Text, Tint::Text, Tint::Faint},
    {QPalette::Button, Tint::Card, Tint::Disabled},
    {QPalette::ButtonText, Tint::Text, Tint::Faint},
    {QPalette::BrightText, Tint::OnAccent, Tint::OnAccent},
    {QPalette::Highlight, Tint::Selected, Tint::Selected},
    {QPalette::HighlightedText, Tint::Text, Tint::Faint},
    {QPalette::Link, Tint::AccentLine, Tint::Faint},
    {QPalette::Light, Tint::Card, Tint::Card},
    {QPalette::Midlight, Tint::Divider, Tint::Divider},
    {QPalette::Mid, Tint::Border, Tint::Border},
    {QPalette::Dark, Tint::Border, Tint::Border},
    {QPalette::Shadow, Tint::Border, Tint::Border},
};

QPalette skinPalette() {
    QPalette palette;
    for (const RoleTint& entry : roles) {
        palette.setColor(entry.role, colour(entry.rest));
        palette.setColor(QPalette::Disabled, entry.role, colour(entry.disabled));
    }
    return palette;
}

}  // namespace

void followHost() {
    static const bool follows = [] {
        QObject::connect(&Host::instance(), &Host::skinChanged, &applySkin);
        QObject::connect(&Host::instance(), &Host::scaleChanged, &applySkin);
        return true;
    }();
    Q_UNUSED(follows)
}

void applySkin() {
    if (!qApp) return;
    followHost();
    static bool styled = false;
    if (!styled) QApplication::setStyle(new SkinStyle);
    makeControlsAccessible();
    styled = true;

    const QFont font = TBaseTool::GetDefFont(fontSize(), QFont::Normal);
    const QPalette palette = skinPalette();
    QApplication::setFont(font);
    QApplication::setPalette(palette);
    QToolTip::setFont(font);
    QToolTip::setPalette(palette);
    for (QWidget* widget : QApplication::allWidgets()) {
        auto* bar = qobject_cast<QScrollBar*>(widget);
        if (bar && bar->isVisible())  // the others when they are shown
            SkinStyle::dress(*bar);
        else if (!bar && !widget->styleSheet().isEmpty())
            widget->setStyleSheet(widget->styleSheet());  // it keeps the old palette otherwise
        widget->update();
    }
}

}  // namespace workbench
