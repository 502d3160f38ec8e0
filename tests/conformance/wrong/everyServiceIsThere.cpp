// an unknown service is null
#include <osgi.h>

void* osgi::ObjectHelper::GetService(const std::string&) {
    static int anything;
    return &anything;
}
