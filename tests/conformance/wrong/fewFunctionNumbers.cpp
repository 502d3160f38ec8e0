// an estimate's page starts a project
// a settlement's page starts a project
#include <SharedInterface.h>

#include <stdexcept>

void SharedInterface::UseFunc(int function, const QString&) {
    if (function < 10000) throw std::out_of_range("no such function");
}
