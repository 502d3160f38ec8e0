/// The places where the module calls its host, as one module built for tests reports them.
#pragma once

#include <QtGlobal>

namespace faults {

/// Called at each host call of the module, before the operation runs. May throw.
/// @param operation index of the operation. @param site the address that the call returns to.
/// @param frame the calling function's frame pointer, where the module is compiled with them.
using PlaceListener = void (*)(int operation, const void* site, const void* const* frame);

/// Called when an operation has come to its end, of those of which `tellsItsEnd` holds.
using EndListener = void (*)(int operation);

/// @param listener null for none. @param end likewise.
Q_DECL_EXPORT void setPlaceListener(PlaceListener listener, EndListener end = nullptr);
/// @return how many operations of the host the module calls.
Q_DECL_EXPORT int operationCount();
/// @return the mangled name of an operation.
Q_DECL_EXPORT const char* operationName(int operation);
/// @return whether an operation is one of a widget's, which might go while it runs: its end is
///         told.
Q_DECL_EXPORT bool tellsItsEnd(int operation);

}  // namespace faults
