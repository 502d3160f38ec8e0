#include "dialog/TemplateTreeView.h"

#include <QScopedValueRollback>
#include <QScrollBar>

#include "core/guard.h"
#include "dialog/RowFocus.h"

namespace newpro {

TemplateTreeView::TemplateTreeView(QWidget* parent) : QTreeWidget(parent) {
    setObjectName(QStringLiteral("templateTree"));
    setVerticalScrollMode(ScrollPerPixel);
    verticalScrollBar()->setSingleStep(fontMetrics().lineSpacing());
    new RowFocus(this);
}

// A tree view that is shown would lay out all its rows for each that comes: thousands would
// take the square of their number.
void TemplateTreeView::rowsInserted(const QModelIndex& parent, int first, int last) {
    guarded("TemplateTreeView", [&] {
        scheduleDelayedItemsLayout();
        const QScopedValueRollback<bool> until(filling, true);
        QTreeWidget::rowsInserted(parent, first, last);
    });
}

void TemplateTreeView::updateEditorGeometries() {
    if (filling) return;
    guarded("TemplateTreeView", [this] { QTreeWidget::updateEditorGeometries(); });
}

// Passing the tree view by is the point: it tells screen readers of table cells by their numbers,
// which these rows are not; see rowAccessible.h.
// NOLINTBEGIN(bugprone-parent-virtual-call)
void TemplateTreeView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    guarded("TemplateTreeView", [&] { QAbstractItemView::currentChanged(current, previous); });
}

void TemplateTreeView::selectionChanged(const QItemSelection& selected,
                                        const QItemSelection& deselected) {
    guarded("TemplateTreeView", [&] { QAbstractItemView::selectionChanged(selected, deselected); });
}
// NOLINTEND(bugprone-parent-virtual-call)

}  // namespace newpro
