#include "core/guard.h"

#include <QString>
#include <cstring>
#include <stdexcept>
#include <string>

#include "SharedInterface.h"

namespace newpro {

namespace {

/// Some compilers name a function with its class.
const char* withoutClass(const char* function) {
    const char* colon = std::strrchr(function, ':');
    return colon ? colon + 1 : function;
}

void report(const std::exception& exception, const Origin& origin) {
    const std::string function = std::string(origin.source) + "::" + withoutClass(origin.function);
    ProcExceptionNew(exception, origin.source, origin.line, function.c_str());
}

void report(const char* text, const Origin& origin) {
    report(std::runtime_error(text), origin);
}

void dispatch(const Origin& origin) {
    try {
        throw;
    } catch (const Gone&) {
    } catch (const char* text) {
        report(text ? text : "", origin);
    } catch (const QString& text) {
        report(text.toUtf8().constData(), origin);
    } catch (const std::exception& exception) {
        report(exception, origin);
    } catch (...) {
        report("未知异常", origin);
    }
}

}  // namespace

void reportCurrentException(const Origin& origin) noexcept {
    try {
        dispatch(origin);
    } catch (...) {
        // The reporter itself failed. There is nobody left to tell, and the host must live on.
    }
}

}  // namespace newpro
