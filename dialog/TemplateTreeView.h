/// The tree of template projects, without its content.
#pragma once

#include <QTreeWidget>

namespace newpro {

/// A tree whose rows are widgets; keys move in it as in any tree.
class TemplateTreeView : public QTreeWidget {
    Q_OBJECT
  public:
    explicit TemplateTreeView(QWidget* parent);

  protected Q_SLOTS:
    void rowsInserted(const QModelIndex& parent, int first, int last) override;
    void updateEditorGeometries() override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void selectionChanged(const QItemSelection& selected,
                          const QItemSelection& deselected) override;

  private:
    bool filling = false;  ///< A row comes, and all are laid out later.
};

}  // namespace newpro
