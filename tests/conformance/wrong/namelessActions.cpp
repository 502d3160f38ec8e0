// ribbon entries are named and have their button
#include "../ribbonHost.h"

QAction* RibbonNavigationBar::addTab(const RIBBON::CentralTab& tab) {
    QWidgetAction* action = placedEntry(this, tab);
    action->setText(QString());
    action->defaultWidget()->show();
    triggerByClicks(this, action);
    return action;
}
