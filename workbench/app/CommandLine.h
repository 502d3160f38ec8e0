/// The program's command line.
#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>

namespace workbench {

enum class Command { Window, Play, Tour, Diff, Record, Gallery };

struct CommandLine {
    Command command = Command::Window;
    QStringList files;     ///< Of `play`, `diff` and `record`.
    QString installation;  ///< Absolute folder.
    QString journal;       ///< Empty: not written.
    QString pictures;      ///< Empty: not kept.
    QString settings;      ///< Of the window. Empty: its own.
    QJsonObject host;      ///< Skin and scale, where they are given, as a scenario has them.
    bool watch = false;
    bool coverage = false;  ///< Of `play`: tell what of the contract was reached.
    bool force = false;     ///< Of `record`: the file may be there already.
};

/// Reads the program's arguments.
/// @param error set to what is wrong; empty where help or the version was asked for and printed.
/// @return whether the program is to go on.
bool readCommandLine(const QStringList& arguments, CommandLine& into, QString& error);

/// @return folder of the sample installation: of the installed program, else in the sources of
///         this build.
QString sampleInstallation();
/// The folder in which the window works where none is named: a copy of the sample, made at the
/// first start, so that projects and history stay out of the sample. An installed program has it
/// among the user's data, any other beside itself in the build tree.
/// @param error set where the copy cannot be made.
QString workingInstallation(QString& error);
/// @return the file in which the window keeps its look and its last installations: of an installed
///         program among the user's settings, else beside the copy of the sample.
QString ownSettings();
/// @return folder of the scenario files, found like the sample.
QString scenarioFolder();

}  // namespace workbench
