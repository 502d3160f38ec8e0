#include "workbench/hostlibs/zBaseControl/cutTips.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QPushButton>
#include <QStyleOption>
#include <QToolButton>
#include <QToolTip>

#include "zBaseControl.h"

namespace workbench {

namespace {

/// A text as it stands in a control, and the room that it has there.
struct Written {
    QString text;
    int room = 0;
};

/// The option that a control draws itself by, which it hands out to its own kind only.
template <typename Control, typename Option>
struct Opened : Control {
    static Option optionOf(const Control& control) {
        Option option;
        (control.*&Opened::initStyleOption)(&option);
        return option;
    }
};

Written writtenOn(const QWidget& widget) {
    const QStyle* style = widget.style();
    if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
        if (combo->isEditable()) return {};
        const auto option = Opened<QComboBox, QStyleOptionComboBox>::optionOf(*combo);
        const QRect room = style->subControlRect(QStyle::CC_ComboBox, &option,
                                                 QStyle::SC_ComboBoxEditField, combo);
        return {combo->currentText(), room.width()};
    }
    if (const auto* tick = qobject_cast<const QCheckBox*>(&widget)) {
        const auto option = Opened<QCheckBox, QStyleOptionButton>::optionOf(*tick);
        return {tick->text(),
                style->subElementRect(QStyle::SE_CheckBoxContents, &option, tick).width()};
    }
    const auto* tool = qobject_cast<const QToolButton*>(&widget);
    if (tool && tool->toolButtonStyle() != Qt::ToolButtonIconOnly)
        return {tool->text(), tool->width()};
    // A styled button draws and tells its text itself.
    const auto* button = qobject_cast<const QPushButton*>(&widget);
    if (!button || qobject_cast<const zBaseButton*>(button)) return {};
    const auto option = Opened<QPushButton, QStyleOptionButton>::optionOf(*button);
    return {button->text(),
            style->subElementRect(QStyle::SE_PushButtonContents, &option, button).width()};
}

/// @return whether the text of a header's section is cut, and told.
bool tellCutSection(const QHeaderView& header, const QHelpEvent& event) {
    const int section = header.logicalIndexAt(event.pos());
    if (section < 0) return false;
    const QString text = header.model()->headerData(section, header.orientation()).toString();
    QStyleOptionHeader option;
    option.initFrom(&header);
    option.orientation = header.orientation();
    option.rect = QRect(0, 0, header.sectionSize(section), header.height());
    if (header.isSortIndicatorShown() && header.sortIndicatorSection() == section)
        option.sortIndicator = QStyleOptionHeader::SortDown;
    const QRect room = header.style()->subElementRect(QStyle::SE_HeaderLabel, &option, &header);
    if (header.fontMetrics().horizontalAdvance(text) <= room.width()) return false;
    QToolTip::showText(event.globalPos(), text.toHtmlEscaped());
    return true;
}

}  // namespace

bool tellText(const QWidget& widget, const QHelpEvent& event, const QString& text, bool cut) {
    const QString own = widget.toolTip();
    const bool repeated = !own.isEmpty() && own == text;
    if (!cut && !repeated) return false;
    QString tip = cut ? text.toHtmlEscaped() : QString();  // an empty one hides what is shown
    if (cut && !repeated && !own.isEmpty()) tip += QStringLiteral("<br>") + own;
    QToolTip::showText(event.globalPos(), tip);
    return true;
}

bool tellControl(const QWidget& widget, const QHelpEvent& event) {
    const Written written = writtenOn(widget);
    return tellText(widget, event, written.text,
                    widget.fontMetrics().horizontalAdvance(written.text) > written.room);
}

bool tellCutItem(const QWidget& viewport, const QHelpEvent& event) {
    if (const auto* header = qobject_cast<const QHeaderView*>(viewport.parent()))
        return tellCutSection(*header, event);
    const auto* view = qobject_cast<const QAbstractItemView*>(viewport.parent());
    const QModelIndex index = view ? view->indexAt(event.pos()) : QModelIndex();
    if (!index.isValid() || view->indexWidget(index)) return false;
    const bool cut = view->sizeHintForIndex(index).width() > view->visualRect(index).width();
    if (!cut) {
        QToolTip::hideText();
        return true;
    }
    const QString tip = index.data(Qt::ToolTipRole).toString();
    QToolTip::showText(event.globalPos(),
                       tip.isEmpty() ? index.data().toString().toHtmlEscaped() : tip);
    return true;
}

}  // namespace workbench
