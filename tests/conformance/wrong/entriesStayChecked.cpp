// a click checks one entry, then triggers
#include "../ribbonHost.h"

QAction* RibbonNavigationBar::addTab(const RIBBON::CentralTab& tab) {
    QWidgetAction* action = placedEntry(this, tab);
    action->defaultWidget()->show();
    const auto* button = action->defaultWidget()->findChild<zBaseButton*>();
    connect(button, &QPushButton::clicked, action, &QAction::trigger);
    return action;
}
