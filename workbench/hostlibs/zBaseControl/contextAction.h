/// Entries of context menus.
#pragma once

#include <QAction>
#include <QWidget>
#include <utility>

namespace workbench {

/// Adds an entry to the context menu of a widget, which has no other menu.
/// @param name object name of the entry. @param work what it does; ends with the widget.
template <typename Work>
QAction* addContextAction(QWidget* widget, const QString& text, const char* name, Work&& work) {
    auto* action = new QAction(text, widget);
    action->setObjectName(QLatin1String(name));
    QObject::connect(action, &QAction::triggered, widget, std::forward<Work>(work));
    widget->addAction(action);
    widget->setContextMenuPolicy(Qt::ActionsContextMenu);
    return action;
}

}  // namespace workbench
