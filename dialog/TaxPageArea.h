/// The scrolling area around the tax-mode stack.
#pragma once

#include <QScrollArea>
#include <QStackedWidget>

#include "core/part.h"

namespace newpro {

/// Makes the stack as high as its current page needs, at least as high as the area: a model list as
/// high as all its cards, which never scrolls itself, so that this area does.
class TaxPageArea : public QScrollArea {
    Q_OBJECT
  public:
    TaxPageArea(QStackedWidget* pages, QWidget* parent);
    /// Call when the rows or the minimum height of a page have changed.
    void fitStack();

  protected:
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

  private:
    void showCards();

    const Part<QStackedWidget> stack;
};

}  // namespace newpro
