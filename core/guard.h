/// The exception guard of the module: no exception leaves a slot, an override or a lambda.
#pragma once

#include <utility>

namespace newpro {

/// Reports the exception that is being handled to the host's ProcExceptionNew: a character string
/// or a QString as std::runtime_error with that text, a std::exception as it is, anything else with
/// the text "未知异常". Call it in a catch block only. Never throws.
void reportCurrentException(const char* source, int line, const char* function) noexcept;

/// Thrown where an operation needs what is not there any more, or never was: a widget that a fault
/// kept from being built, or that went with its dialog in the middle of the operation. It ends the
/// operation at the nearest guard, without a report: nobody is left who would miss the rest.
struct Gone {};

/// Runs `body`, and `end` on every way out.
/// Where both throw, the exception of `body` is the one that goes on.
template <typename Body, typename End>
void withEnd(Body&& body, End&& end) {
    try {
        std::forward<Body>(body)();
    } catch (...) {
        try {
            end();
        } catch (...) {
        }
        throw;
    }
    end();
}

/// Runs `body` and turns every exception into one report.
/// @param source   source name of the report, such as "NewProCfgDialog".
/// @param function qualified function name of the report, such as "NewProCfgDialog::CreateUI".
/// @param body     what to run; it must not assume that the caller's object outlives it.
/// @param line     line of the use; leave it to its default.
template <typename Body>
void guarded(const char* source, const char* function, Body&& body,
             int line = __builtin_LINE()) noexcept {
    try {
        std::forward<Body>(body)();
    } catch (...) {
        reportCurrentException(source, line, function);
    }
}

/// The same for a body with a result. @return the body's result, or `fallback` after a report.
template <typename Result, typename Body>
Result guardedOr(const char* source, const char* function, Result fallback, Body&& body,
                 int line = __builtin_LINE()) noexcept {
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        reportCurrentException(source, line, function);
        return fallback;
    }
}

}  // namespace newpro
