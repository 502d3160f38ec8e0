/// A widget that may not be there.
#pragma once

#include <QPointer>

#include "core/guard.h"

namespace newpro {

/// A pointer to a widget that another owns. Using it where there is none ends the operation; see
/// Gone. So an operation reads as if every widget were there, and yet survives a window that was
/// built only in part and a host that deletes the window while it is asked something.
template <typename T>
class Part {
  public:
    Part(T* part = nullptr) : widget(part) {}

    T* operator->() const { return need(); }
    T& operator*() const { return *need(); }
    /// @return the widget; null where there is none.
    operator T*() const { return widget.data(); }
    /// @return the widget. Throws Gone where there is none.
    T* need() const {
        if (!widget) throw Gone();
        return widget.data();
    }

  private:
    QPointer<T> widget;
};

}  // namespace newpro
