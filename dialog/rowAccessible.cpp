#include "dialog/rowAccessible.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QLabel>
#include <QListView>
#include <QPointer>
#include <QPushButton>
#include <QTreeView>

#include "core/guard.h"
#include "core/polish.h"
#include "core/rowButtons.h"
#include "dialog/RowFocus.h"

namespace newpro {

namespace {

/// @return the view whose row `widget` shows; null for any other widget.
QAbstractItemView* viewOf(const QWidget* widget) {
    QWidget* viewport = widget->parentWidget();
    auto* view = viewport ? qobject_cast<QAbstractItemView*>(viewport->parentWidget()) : nullptr;
    return view && view->viewport() == viewport && RowFocus::of(view) ? view : nullptr;
}

/// @return the row that the widget is or stands in; null for all others, which Qt describes.
const QWidget* rowAround(const QWidget* widget) {
    while (widget && !viewOf(widget)) widget = widget->parentWidget();
    return widget;
}

QModelIndex indexOf(const QAbstractItemView* view, const QWidget* row) {
    const QModelIndex found = view->indexAt(row->geometry().center());
    return found.isValid() ? found.sibling(found.row(), 0) : found;
}

/// @return the rows of a view in their order; of a tree those in unfolded folders.
QVector<QWidget*> rowsOf(const QAbstractItemView* view, const QModelIndex& parent = {}) {
    QVector<QWidget*> rows;
    const auto* tree = qobject_cast<const QTreeView*>(view);
    for (int row = 0; row < view->model()->rowCount(parent); ++row) {
        const QModelIndex index = view->model()->index(row, 0, parent);
        if (QWidget* widget = view->indexWidget(index)) rows.append(widget);
        if (tree && tree->isExpanded(index)) rows += rowsOf(view, index);
    }
    return rows;
}

/// @return whether the widget stands in a row that a list has not shown yet, being out of sight.
bool isInWaitingRow(const QWidget* widget) {
    const QWidget* row = rowAround(widget);
    const auto* list = row ? qobject_cast<const QListView*>(viewOf(row)) : nullptr;
    return list && list->isVisible() && row->isHidden();
}

/// A row that is out of sight is told as such, be it shown already or not.
QAccessible::State seenState(QAccessible::State state, const QWidget* widget) {
    if (state.invisible && isInWaitingRow(widget)) state.invisible = false;
    if (!state.invisible && widget->visibleRegion().isEmpty()) state.offscreen = true;
    return state;
}

class ViewAccessible : public QAccessibleWidget {
  public:
    explicit ViewAccessible(QAbstractItemView* of)
        : QAccessibleWidget(of,
                            qobject_cast<QTreeView*>(of) ? QAccessible::Tree : QAccessible::List),
          view(of) {}

    int childCount() const override { return tree() ? rowsOf(view).size() : rowCount(); }

    QAccessibleInterface* child(int number) const override {
        if (number < 0 || number >= childCount()) return nullptr;
        return QAccessible::queryAccessibleInterface(
            tree() ? rowsOf(view).at(number) : view->indexWidget(view->model()->index(number, 0)));
    }

    int indexOfChild(const QAccessibleInterface* child) const override {
        const auto* row = child ? qobject_cast<QWidget*>(child->object()) : nullptr;
        if (!row || viewOf(row) != view) return -1;
        if (tree()) return rowsOf(view).indexOf(const_cast<QWidget*>(row));
        const QModelIndex index = indexOf(view, row);
        return view->indexWidget(index) == row ? index.row()
                                               : rowsOf(view).indexOf(const_cast<QWidget*>(row));
    }

    QAccessibleInterface* childAt(int x, int y) const override {
        const QModelIndex index = view->indexAt(view->viewport()->mapFromGlobal(QPoint(x, y)));
        return index.isValid() ? rowAt(index) : nullptr;
    }

    QAccessibleInterface* focusChild() const override {
        if (!view->hasFocus()) return QAccessibleWidget::focusChild();
        return view->currentIndex().isValid() ? rowAt(view->currentIndex()) : nullptr;
    }

    QString text(QAccessible::Text what) const override {
        if (what != QAccessible::Description) return QAccessibleWidget::text(what);
        return QStringLiteral("共 %1 项").arg(childCount());
    }

  private:
    bool tree() const { return role() == QAccessible::Tree; }
    int rowCount() const { return view->model()->rowCount(); }
    QAccessibleInterface* rowAt(const QModelIndex& index) const {
        return QAccessible::queryAccessibleInterface(
            view->indexWidget(index.sibling(index.row(), 0)));
    }

    QAbstractItemView* view;
};

class RowAccessible : public QAccessibleWidget {
  public:
    RowAccessible(QWidget* shown, QAbstractItemView* around)
        : QAccessibleWidget(shown, qobject_cast<QTreeView*>(around) ? QAccessible::TreeItem
                                                                    : QAccessible::ListItem),
          view(around) {}

    QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(view);
    }

    int childCount() const override { return parts().size(); }
    QAccessibleInterface* child(int number) const override {
        return QAccessible::queryAccessibleInterface(parts().value(number));
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return child ? parts().indexOf(qobject_cast<QAbstractButton*>(child->object())) : -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        for (QAbstractButton* part : parts()) {
            if (part->rect().contains(part->mapFromGlobal(QPoint(x, y))))
                return QAccessible::queryAccessibleInterface(part);
        }
        return nullptr;
    }

    QString text(QAccessible::Text what) const override {
        if (what == QAccessible::Name) return title() ? title()->text() : QString();
        if (what != QAccessible::Description) return QAccessibleWidget::text(what);
        if (role() == QAccessible::TreeItem)
            return parts().isEmpty() ? QStringLiteral("文件夹") : QStringLiteral("模板工程文件");
        QStringList lines;
        for (const QLabel* label : widget()->findChildren<QLabel*>()) {
            if (label == title() || isKeptHidden(label) || label->text().isEmpty()) continue;
            const QString whole = label->accessibleName();
            lines << (whole.isEmpty() ? label->text() : whole);
        }
        return lines.join(QLatin1Char('\n'));
    }

    QAccessible::State state() const override {
        QAccessible::State state = seenState(QAccessibleWidget::state(), widget());
        const QModelIndex index = indexOf(view, widget());
        state.focusable = true;
        state.focused = view->hasFocus() && index == view->currentIndex();
        const auto* tree = qobject_cast<const QTreeView*>(view.data());
        if (!tree) return state;
        state.selectable = true;
        state.selected = view->selectionModel()->isRowSelected(index.row(), index.parent());
        state.expandable = view->model()->hasChildren(index);
        state.expanded = state.expandable && tree->isExpanded(index);
        state.collapsed = state.expandable && !state.expanded;
        return state;
    }

    QStringList actionNames() const override {
        return parts().isEmpty() ? QStringList{setFocusAction()}
                                 : QStringList{pressAction(), setFocusAction()};
    }
    void doAction(const QString& name) override {
        guarded("RowAccessible", [&] {
            if (name == setFocusAction()) {
                view->setCurrentIndex(indexOf(view, widget()));
                view->setFocus(Qt::OtherFocusReason);
            }
            const QVector<QAbstractButton*> buttons = rowButtons(widget());
            // Last: whoever is told may delete the row.
            if (name == pressAction() && !buttons.isEmpty()) buttons.constFirst()->click();
        });
    }

  private:
    /// @return what a person can press; of a split button the whole.
    QVector<QAbstractButton*> parts() const {
        QVector<QAbstractButton*> found;
        for (QAbstractButton* button : widget()->findChildren<QAbstractButton*>()) {
            if (!qobject_cast<QAbstractButton*>(button->parentWidget())) found.append(button);
        }
        return found;
    }
    QLabel* title() const {
        auto* named = widget()->findChild<QLabel*>(QStringLiteral("lblTitle"));
        return named ? named : widget()->findChild<QLabel*>();
    }

    QPointer<QAbstractItemView> view;
};

/// A button of a row. Qt's own is told as being on the screen also where its row is scrolled out.
class RowButtonAccessible : public QAccessibleWidget {
  public:
    explicit RowButtonAccessible(QAbstractButton* of)
        : QAccessibleWidget(of, roleOf(of)), button(of) {}

    QString text(QAccessible::Text what) const override {
        const QString given = QAccessibleWidget::text(what);
        return what == QAccessible::Name && given.isEmpty() ? button->text() : given;
    }
    QAccessible::State state() const override {
        QAccessible::State state = seenState(QAccessibleWidget::state(), button);
        state.hasPopup = role() == QAccessible::ButtonMenu;
        state.pressed = button->isDown();
        return state;
    }

    QStringList actionNames() const override {
        if (role() == QAccessible::Grouping) return {};
        return {role() == QAccessible::ButtonMenu ? showMenuAction() : pressAction()};
    }
    void doAction(const QString& name) override {
        // Later: a reader waits for the end of this call, and a window may come up.
        if (actionNames().contains(name))
            guarded("RowButtonAccessible", [&] { button->animateClick(); });
    }

  private:
    /// The frame of a split button cannot be pressed; its parts can.
    static QAccessible::Role roleOf(const QAbstractButton* button) {
        if (button->layout()) return QAccessible::Grouping;
        const auto* push = qobject_cast<const QPushButton*>(button);
        return push && push->menu() ? QAccessible::ButtonMenu : QAccessible::Button;
    }

    QAbstractButton* button;
};

QAccessibleInterface* makeInterface(const QString&, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    if (!widget) return nullptr;
    auto* view = qobject_cast<QAbstractItemView*>(widget);
    if (view) return RowFocus::of(view) ? new ViewAccessible(view) : nullptr;
    if (QAbstractItemView* around = viewOf(widget)) return new RowAccessible(widget, around);
    auto* button = qobject_cast<QAbstractButton*>(widget);
    return button && rowAround(button) ? new RowButtonAccessible(button) : nullptr;
}

}  // namespace

void makeRowsAccessible() {
    static const struct Installed {
        Installed() { QAccessible::installFactory(makeInterface); }
        ~Installed() { QAccessible::removeFactory(makeInterface); }
    } installed;
    Q_UNUSED(installed)
}

void describeAnew(QWidget* widget) {
    QVector<QWidget*> told{widget};
    for (QAbstractButton* button : widget->findChildren<QAbstractButton*>()) told.append(button);
    for (QWidget* each : told) {
        QAccessibleInterface* cached = QAccessible::queryAccessibleInterface(each);
        if (cached) QAccessible::deleteAccessibleInterface(QAccessible::uniqueId(cached));
    }
}

}  // namespace newpro
