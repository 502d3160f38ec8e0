// ribbon entries can be seen
#include "../ribbonHost.h"

QAction* RibbonNavigationBar::addTab(const RIBBON::CentralTab& tab) {
    QWidgetAction* action = placedEntry(this, tab);
    const auto* entry = action->defaultWidget();
    const auto* button = entry->findChild<zBaseButton*>();
    connect(button, &QPushButton::clicked, action, [this, entry, action] {
        for (RibbonTab* each : findChildren<RibbonTab*>()) each->setChecked(each == entry);
        action->trigger();
    });
    return action;
}
