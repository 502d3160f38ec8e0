/// A ribbon whose entries are made as the skeleton makes them, for hosts that do the rest
/// otherwise.
#pragma once

#include <zControl.h>

#include <QHBoxLayout>
#include <QWidgetAction>

/// @return a new entry of the ribbon, named and in its place, whose button does nothing yet. Its
/// widget
///         is a RibbonTab.
inline QWidgetAction* placedEntry(RibbonNavigationBar* ribbon, const RIBBON::CentralTab& tab) {
    auto* entry = new RibbonTab(tab);
    auto* action = new QWidgetAction(ribbon);
    for (QObject* named : {static_cast<QObject*>(entry), static_cast<QObject*>(action)})
        named->setProperty("name", tab.text);
    action->setDefaultWidget(entry);
    ribbon->panelLayout()->addWidget(entry);
    return action;
}
