#include "dialog/TemplateTreeView.h"

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
