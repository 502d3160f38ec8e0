#include "dialog/CardList.h"

#include <QPaintEvent>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScrollBar>

#include "core/guard.h"
#include "dialog/RowFocus.h"
#include "models/ProModelItemForm.h"

namespace newpro {

CardList::CardList(const char* name, const QString& style, QWidget* parent) : QListWidget(parent) {
    setObjectName(QLatin1String(name));
    setStyleSheet(style);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(QAbstractItemView::NoSelection);
    setVerticalScrollMode(ScrollPerPixel);
    verticalScrollBar()->setSingleStep(fontMetrics().lineSpacing());
    new RowFocus(this);
}

int CardList::rowsHeight() const {
    return count() == 0 ? 0 : count() * item(0)->sizeHint().height();
}

int CardList::rowHeight() const {
    return count() == 0 ? 0 : rowsHeight() / count();
}

/// @return the part of the viewport that nothing around the list cuts off above or below.
QRect CardList::inSight() const {
    QRect part = isVisible() ? viewport()->rect() : QRect();
    for (const QWidget* around = this; around; around = around->parentWidget()) {
        const int top = viewport()->mapFrom(around, QPoint(0, 0)).y();
        part.setTop(qMax(part.top(), top));
        part.setBottom(qMin(part.bottom(), top + around->height() - 1));
        if (around->isWindow()) break;
    }
    return part;
}

/// @param part of the viewport. The cards that come with it are styled, laid out and painted now.
void CardList::showCards(const QRect& part) {
    const QPointer<CardList> alive = this;
    executeDelayedItemsLayout();  // rows that have just come have no place before
    const int x = viewport()->rect().center().x();
    const int end = qMin(part.bottom() + 1, contentsSize().height() - verticalOffset());
    for (int y = part.top(); alive && y < end;) {
        // Asked for, and not counted: a host may have hidden rows, or put space between them.
        const QModelIndex row = indexAt(QPoint(x, y));
        y = row.isValid() ? visualRect(row).bottom() + 1 : y + 1;
        if (auto* card = qobject_cast<ProModelItemForm*>(indexWidget(row))) card->comeIntoSight();
    }
}

void CardList::showCardsInSight() {
    guarded("CardList", [this] {
        if (isVisible()) showCards(inSight());
    });
}

// A list view that is shown would lay out all its rows for each that comes: thousands would take
// the square of their number. They are laid out together, soon or when somebody asks for a place.
void CardList::rowsInserted(const QModelIndex& parent, int first, int last) {
    guarded("CardList", [&] {
        const QScopedValueRollback<bool> until(filling, true);
        QListWidget::rowsInserted(parent, first, last);
    });
}

void CardList::updateEditorGeometries() {
    if (filling) return;
    guarded("CardList", [this] { QListWidget::updateEditorGeometries(); });
}

void CardList::showEvent(QShowEvent* event) {
    guarded("CardList", [&] {
        QListWidget::showEvent(event);
        showCardsInSight();
    });
}

bool CardList::viewportEvent(QEvent* event) {
    return guardedOr("CardList", false, [&] {
        // Also where a picture is taken of what is out of sight.
        if (event->type() == QEvent::Paint) showCards(static_cast<QPaintEvent*>(event)->rect());
        switch (event->type()) {
            // An item view paints everything anew for these, to show which rows are active: a
            // second paint of all cards each time the dialog opens (docs/measures.md).
            case QEvent::WindowActivate:
            case QEvent::WindowDeactivate:
                // Passing the item view by is the point.
                // NOLINTNEXTLINE(bugprone-parent-virtual-call)
                return QAbstractScrollArea::viewportEvent(event);
            default:
                return QListWidget::viewportEvent(event);
        }
    });
}

// An item view would paint all its rows anew for these, to show the current one; see above. Here a
// ring shows it.
void CardList::focusInEvent(QFocusEvent*) {}
void CardList::focusOutEvent(QFocusEvent*) {}

// The list view would tell a screen reader of the row that RowFocus tells of.
void CardList::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    // NOLINTNEXTLINE(bugprone-parent-virtual-call)
    guarded("CardList", [&] { QAbstractItemView::currentChanged(current, previous); });
}

QModelIndex CardList::moveCursor(CursorAction action, Qt::KeyboardModifiers) {
    return guardedOr("CardList", QModelIndex(), [&] {
        const int last = count() - 1;
        int row = currentRow();
        switch (action) {
            case MoveUp:
            case MovePrevious:
                --row;
                break;
            case MoveDown:
            case MoveNext:
                ++row;
                break;
            case MovePageUp:
                row -= rowsInSight();
                break;
            case MovePageDown:
                row += rowsInSight();
                break;
            case MoveHome:
                row = 0;
                break;
            case MoveEnd:
                row = last;
                break;
            default:
                break;
        }
        return last < 0 ? QModelIndex() : indexFromItem(item(qBound(0, row, last)));
    });
}

/// @return how many whole rows are in sight where the list stands; at least 1.
int CardList::rowsInSight() const {
    const int height = rowHeight();
    return height <= 0 ? 1 : qMax(1, inSight().height() / height);
}

}  // namespace newpro
