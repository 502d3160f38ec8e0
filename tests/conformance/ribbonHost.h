/// A ribbon whose entries are made as the skeleton makes them, for hosts that do the rest
/// otherwise.
#pragma once

#include <zControl.h>

#include <QHBoxLayout>
#include <QWidgetAction>

/// @return a new entry of the ribbon, named and in its place, whose button does nothing yet.
///         Its widget is a RibbonTab.
inline QWidgetAction* placedEntry(RibbonNavigationBar* ribbon, const RIBBON::CentralTab& tab) {
    auto* entry = new RibbonTab(tab);
    auto* action = new QWidgetAction(ribbon);
    entry->setProperty("name", tab.text);
    action->setProperty("name", tab.text);
    action->setText(tab.text);
    action->setDefaultWidget(entry);
    ribbon->panelLayout()->addWidget(entry);
    return action;
}

/// Lets a click on an entry check it alone, and then trigger its action.
inline void triggerByClicks(RibbonNavigationBar* ribbon, QWidgetAction* action) {
    const auto* entry = action->defaultWidget();
    const auto* button = entry->findChild<zBaseButton*>();
    QObject::connect(button, &QPushButton::clicked, action, [ribbon, entry, action] {
        for (RibbonTab* each : ribbon->findChildren<RibbonTab*>()) each->setChecked(each == entry);
        action->trigger();
    });
}
