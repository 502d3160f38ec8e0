#include <QApplication>

#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/ProjectStore.h"
#include "workbench/hostlibs/common/hostSwitches.h"
#include "workbench/journal/Journal.h"
#include "workbench/scenario/Player.h"
#include "workbench/scenario/TemporaryCopy.h"
#include "workbench/scenario/judge.h"

namespace workbench {

namespace {

/// The host, set up for one scenario and reset at the end of the scope.
class HostScope {
  public:
    HostScope(const QJsonObject& base, const QJsonObject& settings, const QString& folder) {
        Host& host = Host::instance();
        host.reset();
        error = host.loadInstallation(folder);
        host.switches().boxesAnswerThemselves = true;
        host.switches().fileDialogPrepared = true;
        for (const QJsonObject& each : {base, settings})
            applyHostSettings(filledIn(each, folder).toObject());
        Journal::instance().clear();
    }
    ~HostScope() { Host::instance().reset(); }
    HostScope(const HostScope&) = delete;
    HostScope& operator=(const HostScope&) = delete;

    QString error;
};

DialogSetup withFolder(DialogSetup setup, const QString& folder) {
    if (!setup.history) return setup;
    for (QString& entry : *setup.history) entry = filledIn(QJsonValue(entry), folder).toString();
    return setup;
}

}  // namespace

PlayResult play(const Scenario& scenario, const PlayOptions& options) {
    PlayResult result;
    const QString source =
        scenario.installation.isEmpty() ? options.installation : scenario.installation;
    const TemporaryCopy copy(source);
    result.unplayable = copy.error();
    result.folder = copy.folder();
    if (!result.unplayable.isEmpty()) return result;
    // Read where it lies first: what is wrong must be named by the user's own file.
    Installation original;
    if (!Installation::load(source, original, result.unplayable)) return result;
    const HostScope host(options.host, scenario.host, copy.folder());
    result.unplayable = host.error;
    if (!result.unplayable.isEmpty()) return result;

    const bool quits = QApplication::quitOnLastWindowClosed();
    QApplication::setQuitOnLastWindowClosed(false);
    QWidget mainWindow;
    mainWindow.setWindowTitle(scenario.title);
    mainWindow.resize(1100, 850);
    if (options.watch) mainWindow.show();
    Host::instance().setMainWindow(&mainWindow);
    {
        ProjectStore store;
        Stage stage;
        stage.folder = copy.folder();
        stage.pictureFolder = options.pictureFolder;
        stage.setup = withFolder(scenario.dialog, copy.folder());
        stage.mainWindow = &mainWindow;
        stage.store = &store;
        Player player(scenario, options, stage);
        QObject::connect(&player, &Player::ending,
                         [&] { result.journal = Journal::instance().entries(); });
        result.ended = player.run();
        result.skipped = player.skippedSteps();
        result.differences = stage.differences;
        result.pictures = stage.pictures;
        delete stage.dialog;
    }
    QApplication::setQuitOnLastWindowClosed(quits);
    result.differences += differences(result.journal, scenario.expect, copy.folder());
    return result;
}

}  // namespace workbench
