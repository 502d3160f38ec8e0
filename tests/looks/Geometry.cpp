#include "tests/looks/Geometry.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QDir>
#include <QScrollArea>
#include <QScrollBar>

#include "workbench/hostlibs/common/Skin.h"
#include "zBaseControl.h"

namespace looks_tests {

using testing_support::Look;
using workbench::scaled;

void Geometry::keepPicture(QWidget* window, const char* page, const char* what) {
    const QString folder = qEnvironmentVariable("NEWPRO_PICTURES");
    if (folder.isEmpty()) return;
    QDir().mkpath(folder);
    window->grab().save(
        QStringLiteral("%1/%2%3-%4-%5.png")
            .arg(folder, QLatin1String(page), QLatin1String(what), QLatin1String(GetParam().skin))
            .arg(qRound(GetParam().scale * 100)));
}

bool isMeasured(const Look& look) {
    return look.scale == 1 || look.skin == std::string("light");
}

QStringList outsiders(const QWidget* window) {
    QStringList found;
    for (const auto* widget : window->findChildren<QWidget*>()) {
        const auto* parent = widget->parentWidget();
        if (!widget->isVisible() || widget->isWindow() || widget == window) continue;
        // What scrolls is larger than what shows it.
        if (parent->objectName() == QLatin1String("qt_scrollarea_viewport")) continue;
        // The handles beside docks are Qt's own, and wider than the line that is drawn.
        if (widget->objectName() == QLatin1String("qt_qmainwindow_extended_splitter")) continue;
        if (parent->rect().contains(widget->geometry())) continue;
        found << QStringLiteral("%1 %2 in %3")
                     .arg(QLatin1String(widget->metaObject()->className()), widget->objectName(),
                          parent->objectName());
    }
    return found;
}

QStringList sideways(const QWidget* window, bool reachable) {
    QStringList found;
    for (const auto* area : window->findChildren<QScrollArea*>()) {
        const bool bar = area->horizontalScrollBarPolicy() != Qt::ScrollBarAlwaysOff;
        if (!area->isVisible() || (bar && !reachable)) continue;
        if (area->widget()->width() > area->viewport()->width())
            found << QLatin1String(area->metaObject()->className());
    }
    return found;
}

QStringList untold(const QWidget* window) {
    QStringList found;
    for (auto* widget : window->findChildren<QWidget*>()) {
        const auto* button = qobject_cast<QAbstractButton*>(widget);
        const auto* combo = qobject_cast<QComboBox*>(widget);
        if (!widget->isVisible() || (!button && (!combo || combo->isEditable()))) continue;
        const QString text = button ? button->text() : combo->currentText();
        const int needed = widget->fontMetrics().horizontalAdvance(text);
        const bool told = looks_tests::tipOf(widget, {2, 2}).startsWith(text.toHtmlEscaped());
        // Styled buttons first take a smaller font, down to half the size.
        const bool cut = needed > widget->width() * (qobject_cast<zBaseButton*>(widget) ? 2 : 1);
        const bool whole = needed + scaled(40) < widget->width();
        if (!text.isEmpty() && ((cut && !told) || (whole && told)))
            found << widget->objectName() + QLatin1Char(' ') + text;
    }
    return found;
}

}  // namespace looks_tests
