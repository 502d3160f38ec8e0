/// List items that were taken out of their lists; why stands in docs/measures.md.
#pragma once

#include <QListWidgetItem>
#include <memory>
#include <vector>

namespace newpro {

/// Keeps the items that the lists' rebuilds take out, and hands them out again, so that a rebuild
/// neither deletes an item nor makes the heap grow. What is kept is released with the pool.
class ListItemPool {
  public:
    /// @return an item without list and data, owned by the caller.
    std::unique_ptr<QListWidgetItem> take() {
        if (items.empty()) return std::make_unique<QListWidgetItem>();
        std::unique_ptr<QListWidgetItem> item = std::move(items.back());
        items.pop_back();
        return item;
    }

    /// Takes over an item that stands in no list.
    void keep(QListWidgetItem* item) {
        *item = QListWidgetItem();
        items.emplace_back(item);
    }

  private:
    std::vector<std::unique_ptr<QListWidgetItem>> items;
};

}  // namespace newpro
