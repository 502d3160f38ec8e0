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

    /// Tells that the lists are cleared to be filled anew.
    void startFilling() { ++count; }
    /// @return how often that was. A list may be filled anew while the host is asked for what the
    ///         next card shows; who finds another number than before has been overtaken, and ends.
    int filling() const { return count; }

  private:
    int count = 0;
    std::vector<std::unique_ptr<QListWidgetItem>> items;
};

}  // namespace newpro
