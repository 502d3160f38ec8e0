#include "core/guard.h"

#include <QString>
#include <stdexcept>

#include "SharedInterface.h"

namespace newpro {

namespace {

void report(const char* text, const char* source, int line, const char* function) {
    ProcExceptionNew(std::runtime_error(text), source, line, function);
}

void dispatch(const char* source, int line, const char* function) {
    try {
        throw;
    } catch (const Gone&) {
    } catch (const char* text) {
        report(text ? text : "", source, line, function);
    } catch (const QString& text) {
        report(text.toUtf8().constData(), source, line, function);
    } catch (const std::exception& exception) {
        ProcExceptionNew(exception, source, line, function);
    } catch (...) {
        report("未知异常", source, line, function);
    }
}

}  // namespace

void reportCurrentException(const char* source, int line, const char* function) noexcept {
    try {
        dispatch(source, line, function);
    } catch (...) {
        // The reporter itself failed. There is nobody left to tell, and the host must live on.
    }
}

}  // namespace newpro
