/// What a list says where it has nothing to show.
#pragma once

#include <QAbstractItemView>
#include <QLabel>
#include <functional>

#include "workbench/base/WorkbenchApi.h"

namespace workbench {

/// A text in the middle of a view, there as long as the view has no row to show. Its object name
/// is "emptyState". The view must have its model.
class WORKBENCH_API EmptyState : public QLabel {
    Q_OBJECT
  public:
    /// @param text asked for whenever the view is empty; plain text, the first line stands out.
    EmptyState(QAbstractItemView* view, std::function<QString()> text);

    /// Looks again; for a change of the text or of hidden rows that the model does not tell of.
    void refresh();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

  private:
    void fit();

    QAbstractItemView* view;
    std::function<QString()> reason;
};

}  // namespace workbench
