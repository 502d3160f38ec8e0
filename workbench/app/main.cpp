#include <QApplication>
#include <cstdio>

#include "workbench/app/CommandLine.h"
#include "workbench/app/MainWindow.h"
#include "workbench/app/Settings.h"
#include "workbench/app/galleryCommand.h"
#include "workbench/app/journalCommands.h"
#include "workbench/app/playCommands.h"
#include "workbench/base/qtNames.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/hostSwitches.h"
#include "workbench/hostlibs/zBaseControl/SkinStyle.h"
#include "workbench/journal/Journal.h"
#include "workbench/scenario/TemporaryCopy.h"

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace {

using workbench::Command;
using workbench::CommandLine;

/// A window needs no console; one that was opened for nothing else goes.
void leaveOwnConsole() {
#ifdef Q_OS_WIN
    DWORD processes[2];
    if (GetConsoleProcessList(processes, 2) == 1) FreeConsole();
#endif
}

int wrong(const QString& error) {
    workbench::complain(error);
    return 2;
}

/// Without a display and a session nothing can be raised or grabbed, and nobody needs to know.
void passOn(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    if (text.startsWith(QLatin1String("This plugin does not support"))) return;
    if (text.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR"))) return;
    std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, text)));
}

/// @return whether something can be shown to a person.
bool hasDisplay() {
    const QString chosen = qEnvironmentVariable("QT_QPA_PLATFORM");
    if (!chosen.isEmpty())
        return !chosen.startsWith(QLatin1String("offscreen")) &&
               !chosen.startsWith(QLatin1String("minimal"));
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
#else
    return true;
#endif
}

/// @return whether the command shows the window.
bool hasWindow(const CommandLine& line) {
    return line.command == Command::Window || line.command == Command::Record;
}

/// Playing needs no display, unless somebody is to watch.
/// @return empty, or why the command cannot be run here.
QString choosePlatform(const CommandLine& line) {
    if (line.watch && !hasDisplay()) return QStringLiteral("--watch: there is no display");
    const bool chosen = !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
    if (hasWindow(line))
        return chosen || hasDisplay() ? QString() : QStringLiteral("there is no display");
    qInstallMessageHandler(passOn);
    if (!hasDisplay() && !chosen) qputenv("QT_QPA_PLATFORM", "offscreen");
    return {};
}

/// The command decides on the platform, so that it is read before the application exists.
bool readArguments(int& argc, char** argv, CommandLine& line, QString& error) {
    const QCoreApplication reading(argc, argv);
    return workbench::readCommandLine(QCoreApplication::arguments(), line, error);
}

int showWindow(const CommandLine& line) {
    leaveOwnConsole();
    QString error;
    const QString folder =
        line.installation.isEmpty() ? workbench::workingInstallation(error) : line.installation;
    workbench::Settings settings(line.settings.isEmpty() ? workbench::ownSettings()
                                                         : line.settings);
    settings.applyLook();
    workbench::applyHostSettings(line.host);
    settings.follow();
    workbench::MainWindow window(&settings);
    if (error.isEmpty())
        error = window.openInstallation(folder);
    else
        window.tellBroken(QString(), error);
    if (!error.isEmpty()) workbench::complain(error);
    window.show();
    return QApplication::exec();
}

int run(const CommandLine& line) {
    if (line.command == Command::Gallery) return workbench::makeGallery(line);
    if (line.command == Command::Record) return workbench::recordFile(line);
    return line.command == Command::Window ? showWindow(line) : workbench::playScenarios(line);
}

}  // namespace

int main(int argc, char** argv) {
    CommandLine line;
    QString error;
    if (!readArguments(argc, argv, line, error)) return error.isEmpty() ? 0 : wrong(error);
    error = choosePlatform(line);
    if (!error.isEmpty()) return wrong(error);
    if (line.command == Command::Diff) return workbench::diffJournals(line);
    workbench::useHighDpiPixmaps();
    QApplication application(argc, argv);
    QApplication::setApplicationDisplayName(QStringLiteral("新建工程工作台"));
    QApplication::setQuitOnLastWindowClosed(hasWindow(line));
    if (!line.journal.isEmpty() && !workbench::Journal::instance().setFile(line.journal))
        return wrong(workbench::Journal::instance().fileError());
    workbench::removeAbandonedCopies();
    workbench::applySkin();
    const int result = run(line);
    const QString unwritten = workbench::Journal::instance().fileError();
    return unwritten.isEmpty() ? result : wrong(unwritten);
}
