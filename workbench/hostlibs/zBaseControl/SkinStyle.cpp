#include "workbench/hostlibs/zBaseControl/SkinStyle.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QFocusEvent>
#include <QItemDelegate>
#include <QPainter>
#include <QScrollBar>
#include <QStyleFactory>
#include <QStyleOption>
#include <QStyledItemDelegate>
#include <QTreeView>

#include "workbench/hostlibs/common/Skin.h"
#include "workbench/hostlibs/zBaseControl/Style.h"
#include "workbench/hostlibs/zBaseControl/comboAccessible.h"
#include "workbench/hostlibs/zBaseControl/cutTips.h"
#include "workbench/hostlibs/zBaseControl/formControls.h"

namespace workbench {

namespace {

QString scrollBarSheet() {
    return QStringLiteral(
               "QScrollBar{background:transparent;border:none;margin:0}"
               "QScrollBar::handle{background:%4;border-radius:%1px;margin:%2px}"
               "QScrollBar::handle:hover{background:%5}"
               "QScrollBar::handle:vertical{min-height:%3px}"
               "QScrollBar::handle:horizontal{min-width:%3px}"
               "QScrollBar::add-line,QScrollBar::sub-line{width:0;height:0}"
               "QScrollBar::add-page,QScrollBar::sub-page{background:transparent}")
        .arg(scaled(3))
        .arg(qMax(1, scaled(1)))
        .arg(scaled(28))
        .arg(colour(Tint::Handle).name(), colour(Tint::HandleHover).name());
}

// A view may ask for a selection colour of the other skin, on which no text could be read.
QColor legible(const QColor& selection) {
    const int distance = qAbs(selection.lightness() - colour(Tint::Text).lightness());
    return distance < 80 ? colour(Tint::Selected) : selection;
}

/// @param font the dock's: Qt hands out the one that the application had when the dock was made.
void drawDockTitle(QPainter& painter, const QStyleOptionDockWidget& option, const QFont& font) {
    const QRect rect = option.rect;
    const int line = qMax(1, scaled(1));
    painter.fillRect(rect, colour(Tint::Hover));
    painter.fillRect(rect.x(), rect.bottom() + 1 - line, rect.width(), line, colour(Tint::Divider));
    painter.setFont(font);
    painter.setPen(colour(Tint::Text));
    const int edge = scaled(16);
    // The buttons stand behind the text.
    drawLine(painter, rect.adjusted(edge, 0, -3 * edge, -line), Qt::AlignLeft | Qt::AlignVCenter,
             option.title);
}

void drawHeaderSection(QPainter& painter, const QRect& rect) {
    const int line = qMax(1, scaled(1));
    painter.fillRect(rect, colour(Tint::Hover));
    painter.fillRect(rect.x(), rect.bottom() + 1 - line, rect.width(), line, colour(Tint::Divider));
    painter.fillRect(rect.right() + 1 - line, rect.y(), line, rect.height(), colour(Tint::Divider));
}

const char byKeyProperty[] = "focusByKey";

/// Keeps whether somebody goes through a view by keys, so that the current row has to be seen.
void noteKeys(QObject* watched, QEvent* event) {
    const bool key = event->type() == QEvent::KeyPress;
    const bool mouse = event->type() == QEvent::MouseButtonPress;
    if (!key && !mouse && event->type() != QEvent::FocusIn) return;
    auto* view = qobject_cast<QAbstractItemView*>(mouse ? watched->parent() : watched);
    if (!view) return;
    if (!key && !mouse) {
        const auto reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::TabFocusReason && reason != Qt::BacktabFocusReason) return;
    }
    if (view->property(byKeyProperty).toBool() != mouse) return;
    view->setProperty(byKeyProperty, !mouse);
    view->viewport()->update();
}

bool keysAreUsed() {
    const QWidget* focus = QApplication::focusWidget();
    return focus && focus->property(byKeyProperty).toBool();
}

void drawHeaderText(QPainter& painter, const QStyleOptionHeader& header) {
    painter.setPen(header.palette.color(QPalette::ButtonText));
    drawLine(painter, header.rect, header.textAlignment, header.text);
}

bool hasTextBesideIcon(const QStyleOption* option) {
    const auto* button = qstyleoption_cast<const QStyleOptionToolButton*>(option);
    return button && button->toolButtonStyle == Qt::ToolButtonTextBesideIcon;
}

}  // namespace

// The style knows the screen's dots per inch only; the host's scale comes on top.
SkinStyle::SkinStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

// A sheet of the bar's own: sheets of a page that make every widget below it transparent would
// otherwise turn its bars into those of another decade.
void SkinStyle::dress(QScrollBar& bar) {
    const QString sheet = scrollBarSheet();
    if (bar.styleSheet() != sheet) bar.setStyleSheet(sheet);
}

void SkinStyle::polish(QWidget* widget) {
    QProxyStyle::polish(widget);
    if (auto* view = qobject_cast<QAbstractItemView*>(widget)) {
        view->installEventFilter(this);
        view->viewport()->installEventFilter(this);
        // Lists are of cards, which answer the mouse themselves, or drop down and follow it.
        if (qobject_cast<QTreeView*>(view)) view->viewport()->setAttribute(Qt::WA_Hover);
    }
    if (qobject_cast<QAbstractButton*>(widget) || qobject_cast<QComboBox*>(widget))
        widget->installEventFilter(this);
    // Qt's own does not ask the style how its rows look.
    auto* combo = qobject_cast<QComboBox*>(widget);
    if (combo && qobject_cast<QItemDelegate*>(combo->itemDelegate()))
        combo->setItemDelegate(new QStyledItemDelegate(combo));
    auto* bar = qobject_cast<QScrollBar*>(widget);
    if (!bar) return;
    // A sheet costs, and most bars are never seen: each view has two.
    bar->installEventFilter(this);
    if (bar->isVisible()) dress(*bar);
}

bool SkinStyle::eventFilter(QObject* watched, QEvent* event) {
    noteKeys(watched, event);
    if (event->type() == QEvent::Show && watched->isWidgetType()) {
        nameComboList(*static_cast<QWidget*>(watched));
        if (auto* bar = qobject_cast<QScrollBar*>(watched)) dress(*bar);
    }
    if (event->type() == QEvent::ToolTip && watched->isWidgetType()) {
        const auto& widget = *static_cast<QWidget*>(watched);
        const auto& asks = *static_cast<QHelpEvent*>(event);
        return tellCutItem(widget, asks) || tellControl(widget, asks);
    }
    return QProxyStyle::eventFilter(watched, event);
}

int SkinStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                           const QWidget* widget) const {
    if (metric == PM_ScrollBarExtent) return scaled(9);
    if (metric == PM_HeaderMargin || metric == PM_FocusFrameHMargin) return scaled(5);
    if (metric == PM_DockWidgetSeparatorExtent) return qMax(1, scaled(1));
    if (metric == PM_DockWidgetTitleMargin) return scaled(8);
    if (metric == PM_CheckBoxLabelSpacing) return scaled(6);  // with the ring between
    const int size = QProxyStyle::pixelMetric(metric, option, widget);
    if (size <= 0) return size;
    switch (metric) {
        case PM_ButtonIconSize:  // what stands beside a text
        case PM_ExclusiveIndicatorHeight:
        case PM_ExclusiveIndicatorWidth:
        case PM_HeaderMarkSize:
        case PM_IndicatorHeight:
        case PM_IndicatorWidth:
        case PM_LargeIconSize:
        case PM_ListViewIconSize:
        case PM_SmallIconSize:
        case PM_ToolBarIconSize:
        case PM_TreeViewIndentation:
            return roomFor(size);
        case PM_ButtonMargin:
        case PM_LayoutBottomMargin:
        case PM_LayoutHorizontalSpacing:
        case PM_LayoutLeftMargin:
        case PM_LayoutRightMargin:
        case PM_LayoutTopMargin:
        case PM_LayoutVerticalSpacing:
        case PM_ToolTipLabelFrameWidth:
            return scaled(size);
        default:
            return size;
    }
}

int SkinStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* more) const {
    // A list below the field, not a menu over it.
    if (hint == SH_ComboBox_Popup) return 0;
    if (hint == SH_ItemView_ScrollMode) return QAbstractItemView::ScrollPerPixel;
    return QProxyStyle::styleHint(hint, option, widget, more);
}

QSize SkinStyle::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                                  const QWidget* widget) const {
    const QSize found = QProxyStyle::sizeFromContents(type, option, size, widget);
    if (type == CT_ItemViewItem) return found.expandedTo({0, scaled(kRowHeight)});
    if (type == CT_PushButton)
        return found.expandedTo(
            {qMax(scaled(76), size.width() + scaled(28)), scaled(kControlHeight)});
    if (type == CT_CheckBox) return found + QSize(scaled(3), 0);
    if (type == CT_ComboBox)
        return found.expandedTo({size.width() + scaled(12) + roomFor(24), scaled(kControlHeight)});
    if (type == CT_ToolButton && hasTextBesideIcon(option))
        return size + QSize(scaled(20), scaled(14));
    if (type == CT_MenuBarItem) return size + QSize(scaled(16), scaled(8));
    return found;
}

QRect SkinStyle::subElementRect(SubElement element, const QStyleOption* option,
                                const QWidget* widget) const {
    const QRect found = QProxyStyle::subElementRect(element, option, widget);
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (element == SE_CheckBoxFocusRect && button && !button->text.isEmpty()) {
        // The style stays 3 and 2 pixels beside the text, whatever the scale.
        const QMargins more(scaled(3) - 3, scaled(2) - 2, scaled(3) - 3, scaled(2) - 2);
        return found.marginsAdded(more) & option->rect;
    }
    if (element != SE_HeaderArrow) return found;
    const QRect& rect = option->rect;
    return {rect.right() - roomFor(20), rect.top(), roomFor(12), rect.height()};
}

QRect SkinStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                SubControl part, const QWidget* widget) const {
    const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (control == CC_ComboBox && part == SC_ComboBoxEditField && combo) {
        // The line that is written in has two pixels of its own beside its text.
        const int before = scaled(combo->editable ? 6 : 8);
        return option->rect.adjusted(before, scaled(2), -roomFor(24), -scaled(2));
    }
    return QProxyStyle::subControlRect(control, option, part, widget);
}

void SkinStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
    const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (control == CC_ComboBox && combo) return drawComboBox(*painter, *combo);
    QProxyStyle::drawComplexControl(control, option, painter, widget);
}

void SkinStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                            const QWidget* widget) const {
    if (element == CE_HeaderSection) return drawHeaderSection(*painter, option->rect);
    const auto* header = qstyleoption_cast<const QStyleOptionHeader*>(option);
    if (element == CE_HeaderLabel && header) return drawHeaderText(*painter, *header);
    const auto* combo = qstyleoption_cast<const QStyleOptionComboBox*>(option);
    if (element == CE_ComboBoxLabel && combo && combo->currentIcon.isNull()) {
        const QRect room = subControlRect(CC_ComboBox, combo, SC_ComboBoxEditField, widget);
        return drawComboBoxText(*painter, *combo, room);
    }
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
    if (element == CE_CheckBoxLabel && button) return drawCheckBoxText(*painter, *button);
    if (element == CE_PushButtonLabel && button && button->icon.isNull())
        return drawPushButtonText(*painter, *button);
    if (element == CE_ToolButtonLabel && hasTextBesideIcon(option))
        return drawToolButtonLabel(*painter, *static_cast<const QStyleOptionToolButton*>(option));
    const auto* dock = qstyleoption_cast<const QStyleOptionDockWidget*>(option);
    if (element == CE_DockWidgetTitle && dock)
        return drawDockTitle(*painter, *dock, widget->font());
    const auto* item = qstyleoption_cast<const QStyleOptionViewItem*>(option);
    if (element == CE_ItemViewItem && item && drawCutItem(*item, *painter, widget)) return;
    QProxyStyle::drawControl(element, option, painter, widget);
}

/// Draws an item whose text is too long, with the dots of all other texts.
/// @return false, and nothing drawn, where it is not.
bool SkinStyle::drawCutItem(const QStyleOptionViewItem& item, QPainter& painter,
                            const QWidget* widget) const {
    const int margin = pixelMetric(PM_FocusFrameHMargin, &item, widget) + 1;
    const QRect room =
        subElementRect(SE_ItemViewItemText, &item, widget).adjusted(margin, 0, -margin, 0);
    const QString shown = item.fontMetrics.elidedText(item.text, item.textElideMode, room.width());
    if (shown == item.text || item.textElideMode == Qt::ElideNone) return false;
    // The style draws everything else, and of the text what is before the dots.
    const int cut = qMax(0, shown.indexOf(QChar(0x2026)));
    QStyleOptionViewItem begin = item;
    begin.text = shown.left(cut);
    begin.displayAlignment = Qt::AlignLeft | Qt::AlignVCenter;
    QProxyStyle::drawControl(CE_ItemViewItem, &begin, &painter, widget);
    const bool selected = item.state & State_Selected;
    const bool enabled = item.state & State_Enabled;
    painter.save();
    painter.setFont(item.font);
    painter.setPen(item.palette.color(enabled ? QPalette::Normal : QPalette::Disabled,
                                      selected ? QPalette::HighlightedText : QPalette::Text));
    const int baseLine =
        room.top() + (room.height() - item.fontMetrics.height()) / 2 + item.fontMetrics.ascent();
    drawWithDots(painter,
                 QPointF(room.left() + item.fontMetrics.horizontalAdvance(begin.text), baseLine),
                 shown.mid(cut));
    painter.restore();
    return true;
}

QIcon SkinStyle::standardIcon(StandardPixmap which, const QStyleOption* option,
                              const QWidget* widget) const {
    const char* drawing = which == SP_TitleBarCloseButton   ? "close"
                          : which == SP_LineEditClearButton ? "clear"
                                                            : nullptr;
    if (!drawing) return QProxyStyle::standardIcon(which, option, widget);
    const int side = roomFor(16);
    const QPixmap picture =
        pixmapOf(QStringLiteral(":/Image/Workbench/%1.svg").arg(QLatin1String(drawing)),
                 {side, side}, widget ? widget->devicePixelRatioF() : 1);
    QIcon icon(picture);
    QPixmap lit = picture;  // under the mouse, and pressed
    QPainter painter(&lit);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(lit.rect(), colour(Tint::AccentLine));
    painter.end();
    icon.addPixmap(lit, QIcon::Active);
    return icon;
}

/// The style's own pictures of what cannot be used are too pale, and those of what is selected
/// take on the colour of the selection.
QPixmap SkinStyle::generatedIconPixmap(QIcon::Mode mode, const QPixmap& picture,
                                       const QStyleOption*) const {
    return mode == QIcon::Disabled ? greyed(picture) : picture;
}

void SkinStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const {
    if (element == PE_IndicatorDockWidgetResizeHandle) {
        painter->fillRect(option->rect, colour(Tint::Divider));
        return;
    }
    const auto* header = qstyleoption_cast<const QStyleOptionHeader*>(option);
    if (element == PE_IndicatorHeaderArrow && header)
        return drawArrow(*painter, option->rect.center(), true,
                         header->sortIndicator == QStyleOptionHeader::SortUp);
    if (element == PE_IndicatorCheckBox) return drawCheckBox(*painter, *option);
    if (element == PE_PanelScrollAreaCorner) return;
    if (element == PE_PanelButtonTool) return drawToolButton(*painter, *option);
    if (element == PE_PanelButtonCommand) return drawPushButton(*painter, *option);
    if (element == PE_FrameMenu)
        return drawBox(*painter, option->rect, Qt::transparent, colour(Tint::Line), 0);
    const bool inView = qobject_cast<const QAbstractItemView*>(widget);
    if (element == PE_FrameFocusRect) {
        // A view asks for its whole row without a word of who it is.
        if (!inView && (widget || keysAreUsed())) drawFocusRing(*painter, option->rect);
        return;
    }
    if (element == PE_PanelItemViewItem && inView) {
        const auto* item = qstyleoption_cast<const QStyleOptionViewItem*>(option);
        if (item && item->backgroundBrush.style() != Qt::NoBrush)
            painter->fillRect(option->rect, item->backgroundBrush);
        if (option->state & State_Selected)
            painter->fillRect(option->rect, legible(option->palette.color(QPalette::Highlight)));
        else if ((option->state & State_MouseOver) && (option->state & State_Enabled))
            painter->fillRect(option->rect, colour(Tint::Hover));
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

}  // namespace workbench
