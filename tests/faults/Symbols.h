/// The functions of the module, by address.
#pragma once

#include <QString>
#include <QVector>

namespace faults {

/// @return the demangled name of a mangled one, or that itself.
QString demangled(const char* symbol);

/// @return whether an address lies in the module.
bool inModule(const void* address);
/// @return the module's function at an offset, demangled with its arguments; empty for none.
QString functionAt(quintptr offset);
/// @return how far an address lies from the start of the module, which is the same in every
/// process.
quintptr offsetOf(const void* address);

/// @return the addresses that the running function returns to, the innermost first.
QVector<const void*> callers();

/// @return the qualified name of the function that a demangled one stands in: of a lambda the
///         function around it; without arguments.
QString enclosing(QString function);

/// @param operation, caller qualified names.
/// @return whether the operation makes the base of a window that a host makes itself, and is called
///         by that window's own constructor: no guard can stand around it, and an exception is the
///         host's own and goes back to it.
bool makesBaseOfWindow(const QString& operation, const QString& caller);

}  // namespace faults
