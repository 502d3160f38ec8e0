/// The scrolling area around the tax-mode stack.
#pragma once

#include <QScrollArea>

class QStackedWidget;

namespace newpro {

/// Makes the stack as high as its current page needs, at least as high as the area. The model lists
/// are as high as all their cards and never scroll themselves, so that this area does.
class TaxPageArea : public QScrollArea {
    Q_OBJECT
  public:
    TaxPageArea(QStackedWidget* stack, QWidget* parent);
    /// Call when the minimum height of a page has changed.
    void fitStack();

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    QStackedWidget* stack;
};

}  // namespace newpro
