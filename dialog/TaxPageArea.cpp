#include "dialog/TaxPageArea.h"

#include <QScrollBar>

#include "core/guard.h"
#include "core/scale.h"
#include "dialog/CardList.h"

namespace newpro {

namespace {

constexpr double gapBesideBar = 4.0;  // design pixels between the cards and the scroll bar

/// A list's minimum height is no measure: it follows the last entry of the configuration and stays
/// when the list is emptied.
int heightNeeded(const QWidget* page) {
    if (const auto* list = qobject_cast<const CardList*>(page)) return list->rowsHeight();
    return page ? page->minimumHeight() : 0;
}

/// @return the height of a row of cards; 0 for a page without any.
int rowHeight(const QWidget* page) {
    const auto* list = qobject_cast<const CardList*>(page);
    return list ? list->rowHeight() : 0;
}

}  // namespace

TaxPageArea::TaxPageArea(QStackedWidget* pages, QWidget* parent)
    : QScrollArea(parent), stack(pages) {
    setObjectName(QStringLiteral("taxPageArea"));
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    verticalScrollBar()->setSingleStep(fontMetrics().lineSpacing());
    viewport()->setAutoFillBackground(false);
    setWidget(stack);
    stack->setAutoFillBackground(false);
    connect(pages, &QStackedWidget::currentChanged, this, [this] {
        guarded({"TaxPageArea", "TaxPageArea"}, [this] {
            fitStack();
            verticalScrollBar()->setValue(0);
        });
    });
}

void TaxPageArea::fitStack() {
    const int needed = heightNeeded(stack->currentWidget());
    // Where not all cards fit, whole ones are shown.
    const int row = rowHeight(stack->currentWidget());
    const bool cut = row > 0 && needed > height() && row < height();
    setViewportMargins(0, 0, 0, cut ? height() % row : 0);
    const bool scrolls = needed > viewport()->height();
    // Decided here and not left to the area: it would change the width while the height changes,
    // and the pages would keep the old one.
    setVerticalScrollBarPolicy(scrolls ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    const int gap = scrolls ? scaled(gapBesideBar) : 0;
    stack->resize(viewport()->width() - gap, qMax(needed, viewport()->height()));
    showCards();
}

void TaxPageArea::scrollContentsBy(int dx, int dy) {
    guarded("TaxPageArea", [&] {
        QScrollArea::scrollContentsBy(dx, dy);
        if (stack) showCards();
    });
}

void TaxPageArea::showCards() {
    auto* list = qobject_cast<CardList*>(stack->currentWidget());
    if (list) list->showCardsInSight();
}

void TaxPageArea::resizeEvent(QResizeEvent* event) {
    guarded("TaxPageArea", [&] {
        QScrollArea::resizeEvent(event);
        fitStack();
    });
}

}  // namespace newpro
