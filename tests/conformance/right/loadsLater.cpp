// A plug-in that goes on loading after load() gets its messages all the same.
#include <SharedInterface.h>

bool AppPluginManager::isLoaded(int) {
    return false;
}
