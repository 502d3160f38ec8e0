/// The state behind the workbench's host libraries: one process, one host.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>

#include "workbench/base/WorkbenchApi.h"
#include "workbench/hostlibs/common/Installation.h"
#include "workbench/hostlibs/common/Switches.h"
#include "workbench/projects/ProgramType.h"

namespace workbench {

/// Stands for the main logic where a plug-in's program type is expected.
constexpr int mainLogic = NoProgram;

/// The skins, by the words that name them everywhere.
const QLatin1String lightSkin("light");
const QLatin1String darkSkin("dark");
const QLatin1String contrastSkin("contrast");

/// Name of the property of a window that closes by itself, so that no scenario has to.
constexpr char goesByItselfProperty[] = "goesByItself";

/// Everything that host operations share. Host libraries read it; the program, the scenario player
/// and tests set it. `reset` brings it back to a fresh host without installation.
class WORKBENCH_API Host : public QObject {
    Q_OBJECT
  public:
    static Host& instance();

    Switches& switches() { return state.switches; }
    /// The installation in use. @see Installation for how it is loaded.
    Installation& installation() { return state.installation; }
    /// Loads an installation folder and makes it the one in use.
    /// @return empty, or the error with file, line and key; the old one then stays in use.
    QString loadInstallation(const QString& folder);

    QWidget* mainWindow() const { return state.mainWindow; }
    void setMainWindow(QWidget* window) { state.mainWindow = window; }

    /// Screen scale, 1.0 to 3.0, and skin, one of the three. Both take effect at once.
    double scale() const { return state.scale; }
    void setScale(double scale);
    QString skin() const { return state.skin; }
    void setSkin(const QString& skin);

    /// Forgets switches, loaded plug-ins, file-dialog state, receiver, installation and main
    /// window.
    void reset();

    /// Called for each message to the main logic (client `mainLogic`) and to plug-ins, after it
    /// was journalled. The project store listens here.
    using Receiver = std::function<void(int client, int code, const QVariant& payload)>;
    void setReceiver(Receiver receiver) { state.receiver = std::move(receiver); }
    void deliver(int client, int code, const QVariant& payload);

  Q_SIGNALS:
    void skinChanged();
    void scaleChanged();

  private:
    Host();

    struct State {
        Switches switches;
        Installation installation;
        QPointer<QWidget> mainWindow;
        double scale = 1.0;
        QString skin = lightSkin;
        Receiver receiver;
    } state;
};

}  // namespace workbench
