/// The exception guard of the module: no exception leaves a slot, an override or a lambda.
#pragma once

#include <utility>

namespace newpro {

/// Where a report comes from: it names the function "source::function".
struct Origin {
    /// A source name alone does as an origin: function and line are then those of the use.
    /// @param from source name of the report, such as "NewProCfgDialog".
    /// @param in   name of the function without its class. Say it where the report shall name
    ///        another than the one around, and in a lambda, whose own name is "operator()".
    /// @param at   line of the use; leave it to its default.
    Origin(const char* from, const char* in = __builtin_FUNCTION(), int at = __builtin_LINE())
        : source(from), function(in), line(at) {}

    const char* source;
    const char* function;
    int line;
};

/// Reports the exception that is being handled to the host's ProcExceptionNew: a character string
/// or a QString as std::runtime_error with that text, a std::exception as it is, anything else with
/// the text "未知异常". Call it in a catch block only. Never throws.
void reportCurrentException(const Origin& origin) noexcept;

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
/// @param body what to run; it must not assume that the caller's object outlives it.
template <typename Body>
void guarded(const Origin& origin, Body&& body) noexcept {
    try {
        std::forward<Body>(body)();
    } catch (...) {
        reportCurrentException(origin);
    }
}

/// The same for a body with a result. @return the body's result, or `fallback` after a report.
template <typename Result, typename Body>
Result guardedOr(const Origin& origin, Result fallback, Body&& body) noexcept {
    try {
        return std::forward<Body>(body)();
    } catch (...) {
        reportCurrentException(origin);
        return fallback;
    }
}

}  // namespace newpro
