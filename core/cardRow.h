/// Rows of a list that show a card.
#pragma once

#include <memory>

class QListWidget;
class QListWidgetItem;
class QWidget;

namespace newpro {

constexpr double cardRowHeight = 80.0;  // design pixels

/// Appends `item` at the end of `list`, as high as a card's row, and makes `card` its widget. One
/// that its maker has hidden gets its style when it is shown.
void appendCard(QListWidget* list, std::unique_ptr<QListWidgetItem> item,
                std::unique_ptr<QWidget> card);

}  // namespace newpro
