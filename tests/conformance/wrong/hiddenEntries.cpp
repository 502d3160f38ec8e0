// ribbon entries can be seen
#include <zControl.h>

#include <QHBoxLayout>
#include <QWidgetAction>

QAction* RibbonNavigationBar::addTab(const RIBBON::CentralTab& tab) {
    auto* entry = new RibbonTab(tab);
    auto* action = new QWidgetAction(this);
    for (QObject* named : {static_cast<QObject*>(entry), static_cast<QObject*>(action)})
        named->setProperty("name", tab.text);
    action->setDefaultWidget(entry);
    panelLayout()->addWidget(entry);
    const auto* button = entry->findChild<zBaseButton*>();
    connect(button, &QPushButton::clicked, action, [this, entry, action] {
        for (RibbonTab* each : findChildren<RibbonTab*>()) each->setChecked(each == entry);
        action->trigger();
    });
    return action;
}
