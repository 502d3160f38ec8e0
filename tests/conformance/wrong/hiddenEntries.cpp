// ribbon entries can be seen
#include "../ribbonHost.h"

QAction* RibbonNavigationBar::addTab(const RIBBON::CentralTab& tab) {
    QWidgetAction* action = placedEntry(this, tab);
    triggerByClicks(this, action);
    return action;
}
