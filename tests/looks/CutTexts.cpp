#include "tests/looks/CutTexts.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPointer>
#include <QStyleOption>
#include <optional>

#include "core/ElidedLabel.h"
#include "tests/looks/Contrast.h"
#include "tests/looks/EveryWindow.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/Skin.h"
#include "zBaseControl.h"

namespace looks_tests {

namespace {

/// Bounds of the ink in neighbouring columns of a place: of each sign, or of its parts.
QVector<QRect> signsIn(const QImage& picture, const QRect& place) {
    constexpr double visible = 1.5;
    const QColor ground = groundOf(picture, place);
    QVector<QRect> signs;
    bool open = false;
    for (int x = place.left(); x <= place.right(); ++x) {
        QRect column;
        for (int y = place.top(); y <= place.bottom(); ++y)
            if (picture.pixel(x, y) != ground.rgb() &&
                contrast(picture.pixel(x, y), ground) >= visible)
                column |= QRect(x, y, 1, 1);
        if (column.isNull()) {
            open = false;
            continue;
        }
        if (!open) signs.append(column);
        open = true;
        signs.last() |= column;
    }
    return signs;
}

bool alike(const QRect& one, const QRect& other) {
    return qAbs(one.top() - other.top()) <= 1 && qAbs(one.bottom() - other.bottom()) <= 1 &&
           qAbs(one.width() - other.width()) <= 1;
}

/// A text of one line, and where it is drawn.
struct Line {
    QString text;
    QRect room;
    double smallest;  ///< Part of the size down to which the font is made smaller first.
};

std::optional<Line> lineOf(const QWidget* widget) {
    const int beside = workbench::scaled(2);
    const int border = workbench::scaled(4);  // and the ring
    const QRect inside = widget->rect().adjusted(beside, border, -beside, -border);
    if (const auto* label = qobject_cast<const QLabel*>(widget)) {
        const bool lines = label->wordWrap() || label->text().contains(QLatin1Char('\n'));
        if (lines || label->textFormat() == Qt::RichText) return {};
        const bool fits = qobject_cast<const zBaseLabel*>(label) &&
                          !dynamic_cast<const newpro::ElidedLabel*>(label);
        return Line{label->text(), label->contentsRect(), fits ? 0.5 : 1};
    }
    if (const auto* tick = qobject_cast<const QCheckBox*>(widget)) {
        QStyleOptionButton option;
        option.initFrom(tick);
        return Line{tick->text(),
                    tick->style()->subElementRect(QStyle::SE_CheckBoxContents, &option, tick), 1};
    }
    if (const auto* button = qobject_cast<const zBaseButton*>(widget))
        return Line{button->text(), inside, 0.5};
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
        return Line{button->text(), inside, 1};
    const auto* combo = qobject_cast<const QComboBox*>(widget);
    if (!combo || combo->isEditable()) return {};
    return Line{combo->currentText(), inside.adjusted(0, 0, -workbench::roomFor(24), 0), 1};
}

}  // namespace

bool hasDots(QWidget* widget, const QRect& place) {
    // Small dots would run into each other.
    const int larger = qMax(1, qRound(4 / workbench::Host::instance().scale()));
    QPixmap canvas(widget->size() * larger);
    canvas.setDevicePixelRatio(larger);
    canvas.fill(widget->palette().color(QPalette::Window));
    widget->render(&canvas);
    const QRect pixels(place.topLeft() * larger, place.size() * larger);
    const QVector<QRect> signs = signsIn(canvas.toImage(), pixels);
    // The first of the three may touch the sign before.
    for (int i = 0; i + 1 < signs.size(); ++i) {
        const int gap = signs[i + 1].left() - signs[i].left();
        const bool low = 3 * qMax(signs[i].height(), signs[i].width()) <= 2 * gap;
        if (low && alike(signs[i], signs[i + 1])) return true;
    }
    return false;
}

QStringList cutWithoutDots(QWidget* window) {
    QStringList found;
    QVector<QPointer<QWidget>> widgets;  // a tip goes with the next one
    for (auto* widget : window->findChildren<QWidget*>()) widgets.append(widget);
    for (QWidget* widget : qAsConst(widgets)) {
        if (!widget || !widget->isVisible() || widget->visibleRegion().isEmpty()) continue;
        const auto* label = qobject_cast<QLabel*>(widget);
        if (label && label->wordWrap() && !qobject_cast<const zBaseLabel*>(label) &&
            label->heightForWidth(label->width()) > label->height())
            found << QStringLiteral("lines of %1 \"%2\"").arg(label->objectName(), label->text());
        const auto line = lineOf(widget);
        if (!line || line->text.isEmpty()) continue;
        const double needed = widget->fontMetrics().horizontalAdvance(line->text) * line->smallest;
        if (needed <= line->room.width() + 2) continue;
        if (!hasDots(widget, line->room))
            found << QStringLiteral("no dots: %1 \"%2\"").arg(widget->objectName(), line->text);
        if (looks_tests::tipOf(widget, {2, 2}).isEmpty())
            found << QStringLiteral("no tip: %1 \"%2\"").arg(widget->objectName(), line->text);
    }
    return found;
}

}  // namespace looks_tests
