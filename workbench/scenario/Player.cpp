#include "workbench/scenario/Player.h"

#include <QCoreApplication>
#include <QDialog>
#include <exception>

#include "workbench/hostlibs/common/Host.h"
#include "workbench/journal/Journal.h"
#include "workbench/scenario/judge.h"
#include "workbench/scenario/targets.h"
#include "workbench/scenario/verbs.h"

namespace workbench {

namespace {

const int pollMs = 5;          ///< Between two looks for a target.
const int personPaceMs = 900;  ///< Between two steps at a person's pace.

bool goesByItself(const QWidget* window) {
    return window && window->property(goesByItselfProperty).toBool();
}

}  // namespace

Player::Player(const Scenario& scenario, const PlayOptions& options, Stage& stage)
    : scenario(scenario), options(options), stage(stage) {
    stage.opened = [this](NewProCfgDialog* dialog) { watchDialog(dialog); };
    next.setSingleShot(true);
    connect(&next, &QTimer::timeout, this, &Player::tick);
}

QString Player::run() {
    watchdog = std::make_unique<Watchdog>(
        std::chrono::milliseconds(options.stepLimit + options.hangLimit), stage.folder);
    feedWatchdog(QStringLiteral("nothing has happened"));
    stepClock.start();
    next.start(0);
    loop.exec();
    watchdog.reset();
    return reason;
}

bool Player::mustWait() const {
    // An action that has brought up a window waits for what the next steps do there. One that has
    // not is still working, such as waiting for a slow cloud disk.
    QWidget* top = topWindow();
    // Also where a dialog that goes has brought it up, which no action waits for.
    if (busy.isEmpty()) return goesByItself(top) && !nextClicksIn(top);
    if (!top || top == busy.last() || goesByItself(busy.last())) return true;
    return goesByItself(top) && !nextClicksIn(top);
}

/// A window that closes by itself is waited for, unless the scenario has to do with it.
bool Player::nextClicksIn(QWidget* window) const {
    if (step + 1 >= scenario.steps.size()) return false;
    const Step& following = scenario.steps[step + 1];
    return following.verb == QLatin1String("click") &&
           anything(window, following.args[u"on"].toString());
}

bool Player::takeNextStep() {
    if (planning) return true;
    if (step + 1 >= scenario.steps.size()) return false;
    ++step;
    stepClock.restart();
    feedWatchdog(place() + QStringLiteral(": the user interface has stopped answering"));
    const Step& now = scenario.steps[step];
    const Verb* verb = verbNamed(now.verb);
    const QJsonObject args = filledIn(now.args, stage.folder).toObject();
    planning = [this, verb, args] { return verb->plan(stage, args); };
    return true;
}

void Player::tick() {
    if (isOver) return clearUp();
    if (mustWait()) {
        if (stepClock.elapsed() > options.stepLimit)
            end(QStringLiteral("the step has not come to its end"));
        next.start(pollMs);
        return;
    }
    // A dialog that a key has closed is still on its way out, unlike one that a click has closed.
    if (busy.isEmpty()) QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (takeNextStep()) return attempt(planning());
    const QWidget* top = skips() ? nullptr : topWindow();
    end(top && top != stage.dialog ? QStringLiteral("a window is left open: %1").arg(described(top))
                                   : QString());
    next.start(0);
}

void Player::attempt(const Plan& plan) {
    if (plan.action) return perform(plan);
    const bool late = stepClock.elapsed() > (skips() ? options.skipAfter : options.stepLimit);
    if (plan.impossible || late) giveUp(plan.reason, late);
    next.start(planning ? pollMs : 0);
}

void Player::giveUp(const QString& why, bool late) {
    if (skips()) {
        planning = {};
        ++skipped;
        return;
    }
    const QWidget* top = topWindow();
    const bool unexpected = late && top && top != stage.dialog;
    end(unexpected ? QStringLiteral("%1; open is %2").arg(why, described(top)) : why);
}

void Player::perform(const Plan& plan) {
    planning = plan.then;
    busy.append(topWindow());
    next.start(options.watch && !planning ? personPaceMs : 0);
    try {
        plan.action();
    } catch (const StepFailure& failure) {
        giveUp(failure.reason, false);
    } catch (const std::exception& escaped) {
        end(QStringLiteral("an exception escaped: ") + QString::fromLocal8Bit(escaped.what()));
    } catch (...) {
        end(QStringLiteral("an exception escaped"));
    }
    busy.removeLast();
}

void Player::end(const QString& why) {
    if (isOver) return;
    isOver = true;
    if (!why.isEmpty()) reason = place() + QStringLiteral(": ") + why;
    Q_EMIT ending();
    feedWatchdog(reason);
}

void Player::clearUp() {
    QWidget* top = topWindow();
    const bool left = options.leaveDialog && top && top == stage.dialog;
    if ((!top || left) && busy.isEmpty()) return loop.quit();
    if (auto* dialog = qobject_cast<QDialog*>(top))
        dialog->reject();
    else if (top)
        top->close();
    next.start(pollMs);
}

QString Player::place() const {
    if (step < 0) return scenario.file;
    return QStringLiteral("%1: steps[%2] %3")
        .arg(scenario.file)
        .arg(step)
        .arg(scenario.steps[step].verb);
}

void Player::feedWatchdog(const QString& reasonToEnd) {
    const QStringList found = stage.differences + differences(Journal::instance().entries(),
                                                              scenario.expect, stage.folder);
    QString lastWords = reasonToEnd;
    for (const QString& difference : found) lastWords += QStringLiteral("\n  ") + difference;
    watchdog->feed(lastWords);
}

void Player::watchDialog(NewProCfgDialog* dialog) {
    // The dialog may be done in the middle of a slot of its own: never delete it at once.
    connect(dialog, &QDialog::finished, this, [this, dialog] {
        // Closed to clear up, it may be in the middle of a slot that never returns.
        if (!isOver && !dialogNeededLater()) dialog->deleteLater();
    });
}

bool Player::dialogNeededLater() const {
    for (int i = step + 1; i < scenario.steps.size(); ++i) {
        const QString& verb = scenario.steps[i].verb;
        if (verb == QLatin1String("open")) return false;
        if (verb == QLatin1String("call") || verb == QLatin1String("check")) return true;
    }
    return false;
}

}  // namespace workbench
