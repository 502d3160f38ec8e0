// Everything that may be null is.
#include <osgi.h>
#include <zControl.h>

#include "../nullHost.h"

void* osgi::ObjectHelper::GetService(const std::string&) {
    return nullptr;
}
QAction* RibbonNavigationBar::addTab(const RIBBON::CentralTab&) {
    return nullptr;
}
