#include "dialog/CardList.h"

#include <QEvent>

#include "core/guard.h"

namespace newpro {

CardList::CardList(const char* name, const QString& style, QWidget* parent) : QListWidget(parent) {
    setObjectName(QLatin1String(name));
    setStyleSheet(style);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(QAbstractItemView::NoSelection);
    setFocusPolicy(Qt::NoFocus);
}

int CardList::rowsHeight() const {
    return count() == 0 ? 0 : count() * item(0)->sizeHint().height();
}

bool CardList::viewportEvent(QEvent* event) {
    return guardedOr("CardList", false, [&] {
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

}  // namespace newpro
