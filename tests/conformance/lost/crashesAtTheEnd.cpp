// it starts, and ends without a crash
// the process crashes
// hold, 1 differ, 4 not reached
#include <SharedInterface.h>

#include <cstdlib>

namespace {

struct Last {
    ~Last() { std::abort(); }
};

}  // namespace

AppPluginManager* AppPluginManager::instance() {
    static AppPluginManager all;
    static Last last;
    return &all;
}
