#include "tests/faults/Play.h"

#include <QApplication>
#include <QEvent>
#include <QJsonArray>
#include <algorithm>

#include "tests/faults/Action.h"
#include "tests/faults/Places.h"
#include "tests/faults/Promises.h"
#include "tests/support/platformMessages.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/ProjectStore.h"
#include "workbench/hostlibs/common/hostSwitches.h"
#include "workbench/journal/Journal.h"
#include "workbench/scenario/Player.h"
#include "workbench/scenario/TemporaryCopy.h"

namespace faults {

namespace {

using workbench::Host;
using workbench::Journal;
using workbench::Player;
using workbench::PlayOptions;
using workbench::Scenario;
using workbench::Stage;

/// A step that finds no target after a fault need not be waited for.
constexpr int patienceAfterFault = 30;  // milliseconds
constexpr int patience = 10000;

QStringList* warnings = nullptr;

void keepWarning(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (testing_support::isOfPlatform(text)) return;
    // Said by the workbench of an installation that is not there.
    if (text.startsWith(QLatin1String("/nonexistent/"))) return;
    if (type != QtDebugMsg && type != QtInfoMsg && warnings) warnings->append(text);
}

bool isOpening(const Scenario& flow) {
    return flow.steps.size() == 2 && flow.steps[0].args.isEmpty() &&
           flow.steps[1].verb == QLatin1String("close");
}

const QString entryKey = QStringLiteral("entry");

bool beginsWithDialog(const Scenario& flow) {
    return flow.steps[0].verb == QLatin1String("open") &&
           !flow.steps[0].args.contains(QLatin1String("dialog"));
}

workbench::Step stepAt(const char* verb, const QString& entry) {
    return {QLatin1String(verb), {{entryKey, entry}}};
}

/// What stands for the opening in a dialog that is open: the entry that it starts with is picked.
void leaveOutOpening(Scenario& flow) {
    const workbench::Step opening = flow.steps.takeFirst();
    const QString entry = opening.args.value(entryKey).toString();
    if (!entry.isEmpty()) flow.steps.prepend(stepAt("ribbon", entry));
}

bool standsIn(const QStringList& stack, const char* part) {
    return std::any_of(stack.begin(), stack.end(), [part](const QString& function) {
        return function.contains(QLatin1String(part));
    });
}

/// A window cannot be taken away while its constructor runs, as it is nobody's yet, nor anything of
/// it while its destructor runs.
bool canDelete(Action action, const QStringList& stack) {
    if (!deletes(action)) return true;
    if (standsIn(stack, "~NewProCfgDialog(") || standsIn(stack, "xzGcLxDialog::xzGcLxDialog("))
        return false;
    return !(action == Action::DeleteParent &&
             standsIn(stack, "importExcelSelFile::importExcelSelFile("));
}

QString messageOf(QJsonObject entry, const QString& folder) {
    for (const char* key : {"seq", "ms", "answer"}) entry.remove(QLatin1String(key));
    return QString::fromUtf8(Journal::line(entry)).replace(folder, QLatin1String("{installation}"));
}

void noteJournal(Record& record, const QString& folder) {
    for (const QJsonObject& entry : Journal::instance().entries()) {
        const QString kind = entry.value(QLatin1String("kind")).toString();
        const QString name = entry.value(QLatin1String("name")).toString();
        const QJsonArray args = entry.value(QLatin1String("args")).toArray();
        if (kind == QLatin1String("signal") ||
            name.startsWith(QLatin1String("Communication::SendMsg"))) {
            record.messages.append(messageOf(entry, folder));
        } else if (kind == QLatin1String("box")) {
            record.boxes.append(messageOf(entry, folder));
        } else if (kind == QLatin1String("exception")) {
            record.reports.append(args[0].toString() + QLatin1Char('|') + args[2].toString() +
                                  QLatin1Char('|') + args[3].toString());
        }
    }
}

/// Looks at the module's windows as soon as they have been shown.
class Looker : public QObject {
  public:
    explicit Looker(QStringList& broken) : broken(broken) { qApp->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Show && isWindow(watched))
            QMetaObject::invokeMethod(
                watched,
                [&all = broken, watched] { all += brokenPromises(static_cast<QWidget*>(watched)); },
                Qt::QueuedConnection);
        return false;
    }

  private:
    static bool isWindow(const QObject* object) {
        return object->inherits("NewProCfgDialog") || object->inherits("xzGcLxDialog") ||
               object->inherits("importExcelSelFile");
    }

    QStringList& broken;
};

/// The host and the stage of one case.
class Run {
  public:
    Run(const Scenario& flow, const Case& wanted)
        : flow(flow),
          wanted(wanted),
          copy(flow.installation),
          watch(
              wanted, [this] { actOrWait(); },
              [this](Action action, const QStringList& stack) {
                  return canAct(action, stage) && canDelete(action, stack);
              }) {
        options.leaveDialog = true;
        warnings = &outcome.warnings;
        qInstallMessageHandler(keepWarning);
        prepareHost();
        makeStage();
    }

    ~Run() {
        QObject::disconnect(atItsEnd);
        qInstallMessageHandler(nullptr);
        warnings = nullptr;
    }

    Outcome play() {
        const QWidgetList before = QApplication::allWidgets();
        const bool fromTheStart = isOpening(flow) || !beginsWithDialog(flow);
        watch.count(fromTheStart);
        stage.opened = nullptr;
        const auto looker = std::make_unique<Looker>(outcome.broken);
        outcome.faulty = playFaulty();
        if (stage.dialog && !deletes(wanted.action)) outcome.broken += brokenPromises(stage.dialog);
        outcome.dialogLeft = stage.dialog && stage.dialog->isVisible();
        if (outcome.dialogLeft) stage.dialog->grab();
        watch.count(false);
        restoreHost();
        if (outcome.dialogLeft && deletes(wanted.action)) workOn();
        outcome.again = playOnce(secondTry(), [] {});
        // The end of the dialog belongs to the flow as well.
        watch.count(fromTheStart);
        delete stage.dialog;
        watch.count(false);
        clearUp();
        outcome.places = watch.places();
        outcome.fired = watch.fired();
        outcome.stack = watch.stack();
        for (const QWidget* widget : QApplication::allWidgets()) {
            const bool known = before.contains(const_cast<QWidget*>(widget));
            // Qt makes these once, when a menu or a list first asks for the screen.
            if (known || widget->windowType() == Qt::Desktop) continue;
            outcome.strays.append(QLatin1String(widget->metaObject()->className()));
        }
        return outcome;
    }

  private:
    /// A window that an operation was given must not go before the operation has used it.
    void actOrWait() {
        if (!onlyDelays(wanted.action)) options.stepLimit = patienceAfterFault;
        if (!deletes(wanted.action) || !takesWindow(wanted.place.operation)) return actNow();
        const QString name = nameOf(wanted.place.operation);
        atItsEnd = QObject::connect(&Journal::instance(), &Journal::recorded,
                                    [this, name](const QJsonObject& entry) {
                                        if (entry.value(QLatin1String("name")) != name) return;
                                        QObject::disconnect(atItsEnd);
                                        actNow();
                                    });
    }

    void actNow() {
        if (!canAct(wanted.action, stage)) return;
        outcome.acted = true;
        act(wanted.action, stage);
    }

    void prepareHost() {
        Host& host = Host::instance();
        host.reset();
        const QString error = host.loadInstallation(copy.folder());
        if (!error.isEmpty()) qFatal("%s", qPrintable(error));
        host.switches().boxesAnswerThemselves = true;
        host.switches().fileDialogPrepared = true;
        workbench::applyHostSettings(workbench::filledIn(flow.host, copy.folder()).toObject());
        switches = host.switches();
        installation = host.installation();
    }

    void makeStage() {
        stage.folder = copy.folder();
        stage.setup = flow.dialog;
        stage.store = &store;
        makeMainWindow();
    }

    void makeMainWindow() {
        if (!window) window = new QWidget;
        stage.mainWindow = window;
        Host::instance().setMainWindow(window);
    }

    void restoreHost() {
        Host::instance().switches() = switches;
        Host::instance().installation() = installation;
        makeMainWindow();
        stage.setup = flow.dialog;
    }

    /// Where the dialog loses a part of itself, it is not closed: it shall be worked on in.
    Record playFaulty() {
        const auto opened = [this] { watch.count(true); };
        const bool closes = flow.steps.constLast().verb == QLatin1String("close");
        if (!deletes(wanted.action) || !closes || !beginsWithDialog(flow))
            return playOnce(flow, opened);
        Scenario open = flow;
        open.steps.removeLast();
        const Record record = playOnce(open, opened);
        if (watch.fired() || !stage.dialog) return record;
        Scenario closing = flow;
        closing.steps = {flow.steps.constLast()};
        return playOnce(closing, [] {});
    }

    /// A user who works on in a dialog that has lost a part of itself. Without pages it is of no
    /// more use, and is closed.
    void workOn() {
        const bool hasModels = switches.configurationPresent && !installation.models.isEmpty();
        Scenario further = flow;
        further.steps = {stepAt("ribbon", QStringLiteral("总承包工程")),
                         stepAt("ribbon", QStringLiteral("预算工程"))};
        // Without models there are no tax modes to be pressed.
        if (hasModels) {
            further.steps += stepAt("taxMode", QStringLiteral("简易计税"));
            further.steps += stepAt("taxMode", QStringLiteral("一般计税"));
        }
        const bool withPages = wanted.action == Action::DeleteCards;
        outcome.goneOn = playOnce(
            further, [] {}, withPages ? patience : patienceAfterFault);
        if (!stage.dialog) return;
        if (!withPages) {
            stage.dialog->close();
            return;
        }
        outcome.broken += brokenPromises(stage.dialog);
        if (hasModels && !canAct(Action::DeleteCards, stage))
            outcome.broken += QStringLiteral("no cards");
    }

    /// In the dialog itself where it is still open, also with cards that were made anew.
    Scenario secondTry() {
        Scenario again = flow;
        const bool open = stage.dialog && stage.dialog->isVisible();
        if (outcome.dialogLeft && open && beginsWithDialog(flow)) {
            leaveOutOpening(again);
        } else {
            delete stage.dialog;
        }
        return again;
    }

    Record playOnce(const Scenario& scenario, const std::function<void()>& opened,
                    int stepLimit = patience) {
        Journal::instance().clear();
        options.stepLimit = stepLimit;
        Player player(scenario, options, stage);
        Record record;
        const auto watchDialog = stage.opened;
        stage.opened = [&](NewProCfgDialog* dialog) {
            watchDialog(dialog);
            record.openedAt = player.stepNumber();
            QObject::connect(dialog, &QDialog::finished, &player,
                             [&] { record.closedAt = player.stepNumber(); });
            opened();
        };
        record.ended = player.run();
        noteJournal(record, copy.folder());
        stage.opened = nullptr;
        return record;
    }

    void clearUp() {
        delete window;
        for (int i = 0; i < 3; ++i) {
            QApplication::processEvents();
            QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
        Host::instance().reset();
        Journal::instance().clear();
    }

    const Scenario& flow;
    const Case wanted;
    const workbench::TemporaryCopy copy;
    Outcome outcome;
    Stage stage;
    PlayOptions options;
    workbench::ProjectStore store;
    QPointer<QWidget> window;
    workbench::Switches switches;
    workbench::Installation installation;
    QMetaObject::Connection atItsEnd;
    PlaceWatch watch;
};

}  // namespace

Outcome playWith(const Scenario& flow, const Case& wanted) {
    Run run(flow, wanted);
    return run.play();
}

}  // namespace faults
