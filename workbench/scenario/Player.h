/// Plays a scenario on the real dialog.
#pragma once

#include <QElapsedTimer>
#include <QEventLoop>
#include <QObject>
#include <QPointer>
#include <QTimer>
#include <QVector>
#include <memory>

#include "workbench/scenario/Stage.h"
#include "workbench/scenario/Watchdog.h"

namespace workbench {

struct PlayOptions {
    QString installation;   ///< For scenarios that name none.
    QString pictureFolder;  ///< Empty: pictures are not kept.
    QJsonObject host;       ///< Settings under those of the scenario.
    bool watch = false;     ///< At a person's pace, with a main window.
    int stepLimit = 10000;  ///< Milliseconds that a step may take.
    int skipAfter = -1;     ///< Milliseconds after which a step that cannot be done is skipped, and
                            ///< a window may be left open; negative: either ends the scenario.
    int hangLimit = 20000;  ///< Milliseconds beyond it after which the process is ended.
    bool leaveDialog = false;  ///< A dialog that is open at the end stays open.
};

struct PlayResult {
    QString unplayable;       ///< Why the scenario could not be set up; empty if it could.
    int skipped = 0;          ///< Steps that could not be done, where they are skipped.
    QString ended;            ///< Why it ended before its last step; empty if it did not.
    QStringList differences;  ///< From expectations and checks.
    QStringList pictures;     ///< Files written.
    QString folder;           ///< The temporary installation, which is gone by now.
    QVector<QJsonObject> journal;

    bool asExpected() const {
        return unplayable.isEmpty() && ended.isEmpty() && differences.isEmpty();
    }
};

/// Plays one scenario on a temporary copy of its installation. The host is reset before and after,
/// and the journal starts anew. It always returns: a step that finds no target in time, or a modal
/// window that no step expects, ends the scenario. Only an action that neither returns nor has a
/// window to close cannot be left: then the process ends with 1, its reason and the differences so
/// far.
PlayResult play(const Scenario& scenario, const PlayOptions& options);

/// Runs the steps from the event loop, one by one. A step's action may open a modal window with an
/// event loop of its own; the next step then runs inside that loop.
class Player : public QObject {
    Q_OBJECT
  public:
    Player(const Scenario& scenario, const PlayOptions& options, Stage& stage);

    /// @return empty when every step was done; else the reason why not.
    QString run();
    int skippedSteps() const { return skipped; }
    /// @return the index of the step that is under way; -1 before the first.
    int stepNumber() const { return step; }

  Q_SIGNALS:
    /// The last step is done, or the reason to end is known; windows are not closed yet.
    void ending();

  private:
    void tick();
    bool mustWait() const;
    bool nextClicksIn(QWidget* window) const;
    bool takeNextStep();
    void attempt(const Plan& plan);
    void giveUp(const QString& why, bool late);
    bool skips() const { return options.skipAfter >= 0; }
    void perform(const Plan& plan);
    void end(const QString& reason);
    void clearUp();
    QString place() const;
    void feedWatchdog(const QString& reasonToEnd);
    void watchDialog(NewProCfgDialog* dialog);
    bool dialogNeededLater() const;

    const Scenario& scenario;
    const PlayOptions& options;
    Stage& stage;
    QEventLoop loop;
    /// Brings the next tick. No posted call: Qt would search all events that a dialog of thousands
    /// of cards posts while it is made, once for each, as long as it delivers one of them.
    QTimer next;
    QElapsedTimer stepClock;
    std::unique_ptr<Watchdog> watchdog;
    int step = -1;                    ///< Index of the current step.
    std::function<Plan()> planning;   ///< What is left of the current step; empty: it is done.
    QVector<QPointer<QWidget>> busy;  ///< Per running action: the window on top when it began.
    QString reason;
    int skipped = 0;
    bool isOver = false;
};

}  // namespace workbench
