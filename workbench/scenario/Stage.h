/// Where a scenario plays: the dialog, its installation, and what was noted on the way.
#pragma once

#include <QPointer>
#include <QStringList>
#include <functional>

#include "dialog/NewProCfgDialog.h"
#include "workbench/scenario/Scenario.h"

namespace workbench {

class ProjectStore;

/// What a step comes to at this moment: an action, or the reason why there is none.
struct Plan {
    std::function<void()> action;
    QString reason;
    bool impossible = false;  ///< Waiting will not help.
    std::function<Plan()>
        then;  ///< The step's next part; it may run inside the action's event loop.

    static Plan act(std::function<void()> action, std::function<Plan()> then = {}) {
        return {std::move(action), {}, false, std::move(then)};
    }
    static Plan wait(const QString& reason) { return {{}, reason, false, {}}; }
    static Plan giveUp(const QString& reason) { return {{}, reason, true, {}}; }
};

/// Thrown by an action that could not be done.
struct StepFailure {
    QString reason;
};

struct Stage {
    QString folder;         ///< The temporary installation.
    QString pictureFolder;  ///< Empty: pictures are not kept.
    DialogSetup setup;
    QWidget* mainWindow = nullptr;
    ProjectStore* store = nullptr;
    QPointer<NewProCfgDialog> dialog;
    std::function<void(NewProCfgDialog*)> opened;  ///< Called before a new dialog is shown.
    QStringList differences;                       ///< Checks that failed.
    QStringList pictures;                          ///< Files written.

    /// @param entry of the ribbon to start with; empty for the dialog's own.
    void openDialog(const QString& entry = QString());
    /// Asks for the kind first; returns when the chooser was answered.
    void openChooser();
    /// @return the window that a person works in: pop-up, modal window or dialog; null if none.
    QWidget* window() const;
    /// @return empty if the dialog can be used; else what stands in the way.
    QString obstacle() const;
};

/// @return class name and title of a window, for people.
QString described(const QWidget* window);

}  // namespace workbench
