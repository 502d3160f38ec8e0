// a click checks one entry, then triggers
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
    entry->show();
    const auto* button = entry->findChild<zBaseButton*>();
    connect(button, &QPushButton::clicked, action, &QAction::trigger);
    return action;
}
