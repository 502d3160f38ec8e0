/// The journal, live: filtered by kind and text.
#pragma once

#include <QWidget>

class QComboBox;
class QLineEdit;
class QSortFilterProxyModel;
class QTreeView;

namespace workbench {

class JournalPanel : public QWidget {
    Q_OBJECT
  public:
    explicit JournalPanel(QWidget* parent = nullptr);

  private:
    QWidget* makeFilterRow();
    void makeView();
    void adaptToScale();
    void applyFilter();

    QSortFilterProxyModel* filtered;
    QComboBox* kind;
    QLineEdit* text;
    QTreeView* view;
};

}  // namespace workbench
