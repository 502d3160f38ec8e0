#include "core/firstPage.h"

#include "osgi.h"

namespace newpro {

FirstPagePlugin* firstPageService() {
    return static_cast<FirstPagePlugin*>(osgi::ObjectHelper::GetService("firstPagePlugin"));
}

bool hostIsReady() {
    FirstPagePlugin* service = firstPageService();
    return service && service->canStartNew(true);
}

}  // namespace newpro
