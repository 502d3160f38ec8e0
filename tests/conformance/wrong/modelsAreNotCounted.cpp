// a model asks for one project
#include <SharedInterface.h>

#include <stdexcept>

void SharedInterface::UseFunc(int function, const QString&) {
    if (function == 13015) throw std::out_of_range("no such function");
}
