/// The journal, live: filtered by kind and text.
#pragma once

#include <QWidget>

class QComboBox;
class QLineEdit;
class QSortFilterProxyModel;
class QTreeView;

namespace workbench {

class EmptyState;

/// Its lines are copied as they stand in a journal file, by Ctrl+C or the context menu.
class JournalPanel : public QWidget {
    Q_OBJECT
  public:
    explicit JournalPanel(QWidget* parent = nullptr);

  protected:
    void changeEvent(QEvent* event) override;

  private:
    QWidget* makeFilterRow();
    void makeView();
    void adaptToScale();
    void makeMenu();
    void applyFilter();
    QString emptyText() const;
    void copy(int role) const;
    void showOnlyKindOfCurrent();

    QSortFilterProxyModel* filtered;
    QComboBox* kind;
    QLineEdit* text;
    QTreeView* view;
    EmptyState* empty = nullptr;
};

}  // namespace workbench
