#include <QAbstractItemView>
#include <QStandardItemModel>
#include <QStyleOption>
#include <QStyledItemDelegate>

#include "workbench/hostlibs/zBaseControl/Style.h"

using workbench::colour;
using workbench::scaled;
using workbench::Tint;

namespace {

constexpr int kStateRole = Qt::UserRole + 100;  // false: marked as not usable, and still selectable

class Rows : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    bool iconsShown = false;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
        return {QStyledItemDelegate::sizeHint(option, index).width() + scaled(12),
                workbench::heightWithText(option.fontMetrics, workbench::kRowHeight)};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const bool chosen = option.state & QStyle::State_Selected;
        painter->fillRect(option.rect, colour(chosen ? Tint::Selected : Tint::Card));
        drawEntry(*painter, option.rect.adjusted(scaled(8), 0, -scaled(4), 0), index,
                  option.decorationSize, option.font, true, Qt::ElideMiddle);
    }

    /// Draws picture and text of an entry, as a row of the list and in the closed field. A row's
    /// dots are in its middle: the files of one deep folder would look alike without their ends.
    void drawEntry(QPainter& painter, QRect place, const QModelIndex& index, const QSize& iconSize,
                   const QFont& font, bool enabled, Qt::TextElideMode dots = Qt::ElideRight) const {
        const auto icon = index.data(Qt::DecorationRole).value<QIcon>();
        if (iconsShown && !icon.isNull()) {
            const QRect at = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignLeft | Qt::AlignVCenter,
                                                 iconSize, place);
            icon.paint(&painter, at);
            place.setLeft(at.right() + scaled(6));
        }
        const QVariant state = index.data(kStateRole);
        const bool usable = enabled && (!state.isValid() || state.toBool());
        painter.setPen(colour(usable ? Tint::Text : Tint::Faint));
        painter.setFont(font);
        const QString text = index.data(Qt::DisplayRole).toString();
        workbench::drawLine(painter, place, Qt::AlignLeft | Qt::AlignVCenter, text, dots);
    }
};

Rows* rowsOf(const zBaseCombox* combo) {
    return static_cast<Rows*>(combo->itemDelegate());
}

}  // namespace

zBaseCombox::zBaseCombox(QWidget* parent) : QComboBox(parent) {
    look->rest = Tint::Field;
    setItemDelegate(new Rows(this));
    setIconSize({scaled(16), scaled(16)});
    setAttribute(Qt::WA_Hover);
    setMaxVisibleItems(10);
}

zBaseCombox::~zBaseCombox() = default;

void zBaseCombox::addItem(const QString& text, const QVariant& data) {
    // Beyond Qt's: screen readers get the whole text, which field and list may show cut off. In one
    // with the entry: told of it afterwards, the box takes half as long again.
    auto* entry = new QStandardItem(text);
    entry->setAccessibleText(text);
    if (data.isValid()) entry->setData(data, Qt::UserRole);
    static_cast<QStandardItemModel*>(model())->appendRow(entry);
}

void zBaseCombox::addItemState(const QString& iconPath, bool state, const QString& text,
                               const QVariant& data) {
    QComboBox::addItem(QIcon(workbench::pixmapOf(iconPath, iconSize(), devicePixelRatioF())), text,
                       data);
    setItemData(count() - 1, state, kStateRole);
}

void zBaseCombox::SetComboxShowIcon(bool show) {
    rowsOf(this)->iconsShown = show;
    update();
}

QSize zBaseCombox::sizeHint() const {
    return {QComboBox::sizeHint().width() + scaled(20), scaled(workbench::kControlHeight)};
}

void zBaseCombox::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    QStyle::State state;
    state.setFlag(QStyle::State_Enabled, isEnabled());
    state.setFlag(QStyle::State_HasFocus, hasFocus());
    state.setFlag(QStyle::State_MouseOver, underMouse() || view()->isVisible());
    workbench::drawField(painter, rect(), normalBackColor(), state);
    const int arrowRoom = workbench::roomFor(24);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QRect field =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    if (!isEditable())
        rowsOf(this)->drawEntry(painter, {field.left(), 0, field.width(), height()},
                                model()->index(currentIndex(), modelColumn(), rootModelIndex()),
                                iconSize(), font(), isEnabled());
    workbench::drawArrow(painter, {width() - arrowRoom / 2, height() / 2}, isEnabled());
}
