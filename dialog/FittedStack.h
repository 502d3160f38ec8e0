/// Stacks that get their size and do not ask for it.
#pragma once

#include <QSize>

namespace newpro {

/// @tparam Stack the stack of pages. Its owner knows its size; asking the pages for theirs would
///         style and lay out every hidden one before the window can be shown (docs/measures.md).
template <typename Stack>
class FittedStack : public Stack {
  public:
    using Stack::Stack;
    QSize sizeHint() const override { return {0, 0}; }
    QSize minimumSizeHint() const override { return {0, 0}; }
};

}  // namespace newpro
