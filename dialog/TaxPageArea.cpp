#include "dialog/TaxPageArea.h"

#include <QScrollBar>
#include <QStackedWidget>

#include "core/guard.h"

namespace newpro {

TaxPageArea::TaxPageArea(QStackedWidget* stack, QWidget* parent)
    : QScrollArea(parent), stack(stack) {
    setObjectName(QStringLiteral("taxPageArea"));
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    setWidget(stack);
    stack->setAutoFillBackground(false);
    connect(stack, &QStackedWidget::currentChanged, this, [this] {
        guarded("TaxPageArea", "TaxPageArea::TaxPageArea", [this] {
            fitStack();
            verticalScrollBar()->setValue(0);
        });
    });
}

void TaxPageArea::fitStack() {
    const QWidget* page = stack->currentWidget();
    const int needed = page ? page->minimumHeight() : 0;
    // The bar takes its width from the viewport, so that the width is taken after the height.
    stack->resize(viewport()->width(), qMax(needed, viewport()->height()));
    stack->resize(viewport()->width(), stack->height());
}

void TaxPageArea::resizeEvent(QResizeEvent* event) {
    guarded("TaxPageArea", "TaxPageArea::resizeEvent", [&] {
        QScrollArea::resizeEvent(event);
        fitStack();
    });
}

}  // namespace newpro
