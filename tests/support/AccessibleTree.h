/// What a screen reader finds in a window.
#pragma once

#include <QAccessible>
#include <QStringList>
#include <QWidget>

namespace testing_support {

/// One thing in the tree of a window, with how deep it lies in it.
struct Found {
    QAccessibleInterface* thing;
    int depth;
};

/// @return everything in a window, from the window down, but for what is hidden.
QVector<Found> foundIn(QWidget* window);

/// @return the tree of a window as text: one line for each thing, indented, with role, name,
///         states and description.
QString accessibleTree(QWidget* window);

/// @return what is wrong in the tree of a window against what is seen of the window: an interactive
///         thing without a name or a known role, a control without a description, one that is on
///         the screen and not in the tree, one in the tree that is not on the screen, one that is
///         not its parent's child.
QStringList accessibleFaults(QWidget* window);

}  // namespace testing_support
