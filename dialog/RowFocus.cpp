#include "dialog/RowFocus.h"

#include <QAccessible>
#include <QApplication>
#include <QKeyEvent>
#include <QMenu>
#include <QPushButton>
#include <QScrollArea>
#include <QTreeView>

#include "core/guard.h"
#include "core/rowButtons.h"
#include "dialog/FocusRing.h"
#include "dialog/rowAccessible.h"

namespace newpro {

namespace {

const char rowFocusSource[] = "RowFocus";

bool isEnter(const QKeyEvent& event) {
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

bool opensMenu(const QKeyEvent& event) {
    return event.key() == Qt::Key_Menu ||
           (event.key() == Qt::Key_Down && event.modifiers() == Qt::AltModifier);
}

bool leavesButton(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
        case Qt::Key_Home:
        case Qt::Key_End:
            return true;
        default:
            return false;
    }
}

QMenu* menuOf(const QAbstractButton* button) {
    const auto* push = qobject_cast<const QPushButton*>(button);
    return push ? push->menu() : nullptr;
}

}  // namespace

RowFocus::RowFocus(QAbstractItemView* owner) : QObject(owner), view(owner) {
    makeRowsAccessible();
    view->setFocusPolicy(Qt::StrongFocus);
    view->installEventFilter(this);
    view->viewport()->installEventFilter(this);
    describeAnew(view);
    connect(view->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] {
        guarded({rowFocusSource, "currentChanged"}, [this] {
            byKey = byKey || QApplication::mouseButtons() == Qt::NoButton;
            takeRow();
        });
    });
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
        guarded({rowFocusSource, "focusChanged"}, [&] {
            if (!isOver()) follow(now);
        });
    });
}

bool RowFocus::eventFilter(QObject* watched, QEvent* event) {
    return guardedOr(rowFocusSource, false, [&] {
        if (isOver()) return false;
        // Of the viewport only the arrival of rows is of interest.
        if (watched == view->viewport()) {
            QObject* added = event->type() == QEvent::ChildAdded
                                 ? static_cast<QChildEvent*>(event)->child()
                                 : nullptr;
            if (added && added->isWidgetType()) describeAnew(static_cast<QWidget*>(added));
            return false;
        }
        switch (event->type()) {
            case QEvent::KeyPress:
                return keyPressed(watched == view, static_cast<QKeyEvent*>(event));
            case QEvent::FocusIn:
                if (watched == view) focusIn(static_cast<QFocusEvent*>(event)->reason());
                return false;
            case QEvent::FocusOut:
                if (watched != view) return false;
                focused = false;
                showRing();
                return false;
            default:
                return false;
        }
    });
}

/// Of a view that is being deleted only a plain widget is left when its children go.
bool RowFocus::isOver() const {
    return !qobject_cast<QAbstractItemView*>(parent());
}

RowFocus* RowFocus::of(const QAbstractItemView* view) {
    return view->findChild<RowFocus*>(QString(), Qt::FindDirectChildrenOnly);
}

QWidget* RowFocus::currentRow() const {
    const QModelIndex current = view->currentIndex();
    return current.isValid() ? view->indexWidget(current.sibling(current.row(), 0)) : nullptr;
}

void RowFocus::focusIn(Qt::FocusReason reason) {
    switch (reason) {
        case Qt::ActiveWindowFocusReason:
        case Qt::PopupFocusReason:
        case Qt::MenuBarFocusReason:
            break;
        default:
            byKey = reason != Qt::MouseFocusReason;
    }
    focused = true;
    inside = true;
    if (!view->currentIndex().isValid())
        view->setCurrentIndex(view->model()->index(0, 0, view->rootIndex()));
    takeRow();
}

/// The focus has gone on: also to a button of the view, or out of one.
void RowFocus::follow(const QWidget* focus) {
    // Not while another window or a menu has it: it comes back.
    if (!focus) return;
    inside = focus == view || view->isAncestorOf(focus);
    takeRow();
}

void RowFocus::takeRow() {
    offer(inside ? currentRow() : nullptr);
    showRing();
    if (!focused) return;
    // Nothing moves under a button of the mouse that is down: it would be let go over something
    // else.
    if (QApplication::mouseButtons() == Qt::NoButton) bringIntoSight();
    announce();
}

void RowFocus::announce() const {
    QWidget* row = QAccessible::isActive() ? currentRow() : nullptr;
    if (!row) return;
    QAccessibleEvent event(row, QAccessible::Focus);
    QAccessible::updateAccessibility(&event);
}

void RowFocus::offer(QWidget* row) {
    if (row == offered) return;
    const auto set = [this](const QWidget* of, bool on) {
        offerToTab(of, on);
        for (QAbstractButton* button : rowButtons(of))
            on ? button->installEventFilter(this) : button->removeEventFilter(this);
    };
    if (offered) set(offered, false);
    offered = row;
    if (offered) set(offered, true);
}

void RowFocus::showRing() {
    QWidget* row = focused && byKey ? currentRow() : nullptr;
    if (ring && ring->parentWidget() == row) return;
    delete ring;
    if (!row) return;
    ring = new FocusRing(row);
    ring->show();
}

/// A list that is as high as all its rows is scrolled by what it stands in.
void RowFocus::bringIntoSight() const {
    const QModelIndex current = view->currentIndex();
    if (!current.isValid()) return;
    view->scrollTo(current);
    const QRect row = view->visualRect(current);
    for (QWidget* around = view->parentWidget(); around; around = around->parentWidget()) {
        auto* area = qobject_cast<QScrollArea*>(around);
        if (!area || !area->widget() || !area->widget()->isAncestorOf(view)) continue;
        const QPoint middle = view->viewport()->mapTo(area->widget(), row.center());
        area->ensureVisible(middle.x(), middle.y(), 0, row.height() / 2 + 1);
    }
}

// Whatever is pressed may delete the view: nothing of it is touched afterwards.
bool RowFocus::keyPressed(bool onView, QKeyEvent* event) {
    if (isEnter(*event) || event->key() == Qt::Key_Space) {
        // One press creates one project, however long the key is held.
        if (event->isAutoRepeat()) return true;
        if (!onView || !isEnter(*event)) return false;
        press();
        return true;
    }
    if (opensMenu(*event)) {
        openMenu();
        return true;
    }
    if (onView || !leavesButton(*event)) return false;
    view->setFocus(Qt::TabFocusReason);
    QCoreApplication::sendEvent(view, event);
    return true;
}

void RowFocus::press() {
    for (QAbstractButton* button : rowButtons(currentRow())) {
        if (menuOf(button) || button->isHidden()) continue;
        button->click();
        return;
    }
    auto* tree = qobject_cast<QTreeView*>(view);
    if (tree) tree->setExpanded(tree->currentIndex(), !tree->isExpanded(tree->currentIndex()));
}

void RowFocus::openMenu() {
    for (QAbstractButton* button : rowButtons(currentRow())) {
        QMenu* menu = menuOf(button);
        if (!menu || !button->isEnabled()) continue;
        // Marked from the start: Enter picks it.
        menu->setActiveAction(menu->actions().value(0));
        static_cast<QPushButton*>(button)->showMenu();
        return;
    }
}

}  // namespace newpro
