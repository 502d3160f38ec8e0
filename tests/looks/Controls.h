/// Every kind of control, and what it is brought into.
#pragma once

#include <QAbstractItemView>
#include <functional>
#include <vector>

namespace looks_tests {

struct State {
    const char* name;
    std::function<void(QWidget*)> enter;
};

struct Control {
    const char* name;
    /// @return the control itself, below the given parent: in what it always stands in.
    std::function<QWidget*(QWidget*)> make;
};

const std::vector<Control>& controls();

/// @return the states that such a control has.
std::vector<State> statesOf(QWidget* control);

/// Selects the first row of a view, in whatever way it selects.
void selectFirst(QAbstractItemView* view);

/// Gives it the keys, as the Tab key does.
void enterFocus(QWidget* control);

}  // namespace looks_tests
