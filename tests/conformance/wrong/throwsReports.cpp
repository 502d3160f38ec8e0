// reports of exceptions are taken
#include <SharedInterface.h>

#include <stdexcept>

void ProcExceptionNew(const std::exception& exception, const char*, int, const char*) {
    throw std::runtime_error(exception.what());
}
