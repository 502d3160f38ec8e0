#include "workbench/app/CommandLine.h"

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <cstdio>

#include "workbench/hostlibs/common/hostSwitches.h"
#include "workbench/scenario/TemporaryCopy.h"

namespace workbench {

namespace {

QString fromProgram(const QString& path) {
    return QDir::cleanPath(QDir(QCoreApplication::applicationDirPath()).absoluteFilePath(path));
}

/// @return the folder of the installed program's files, where they are.
QString installedFolder() {
    return fromProgram(QStringLiteral(WORKBENCH_DATA_FROM_PROGRAM));
}

bool isInstalled() {
    return QFileInfo(installedFolder()).isDir();
}

/// @return a folder that installed programs have as the sources do.
QString ownFolder(const QString& name) {
    const QString built = QStringLiteral(WORKBENCH_SOURCE_DIR);
    return (isInstalled() ? installedFolder() : built) + QLatin1Char('/') + name;
}

void describe(QCommandLineParser& parser) {
    const auto text = [](const char* utf8) { return QString::fromUtf8(utf8); };
    parser.setApplicationDescription(
        text("\nA host for the dialog \"新建工程\".\n"
             "Without a command it opens its window, where Ctrl+N shows the dialog.\n\n"
             "Exit codes: 0 all as expected, 1 something differs, 2 wrong input."));
    parser.addOptions(
        {{{text("h"), text("help")}, text("Print this help and end.")},
         {{text("v"), text("version")}, text("Print the version and end.")},
         {text("installation"),
          text("Installation folder. The window works in it, instead of in its own copy of the "
               "sample; play, tour and record take a temporary copy of it, instead "
               "of the sample, where a scenario names none."),
          text("DIR")},
         {text("journal"), text("Write the journal to this file."), text("FILE")},
         {text("pictures"), text("Keep pictures in this folder."), text("DIR")},
         {text("settings"), text("Keep the window's look and its last installations in this file."),
          text("FILE")},
         {text("skin"), fieldNamed(hostFields(), "skin").words.join(text(" or ")) + text("."),
          text("SKIN")},
         {text("scale"), text("100 to 300 percent, or a factor from 1 to 3."), text("SCALE")},
         {text("watch"), text("Play visibly, at a person's pace.")},
         {text("coverage"), text("With play: print which host operations, messages, exits and "
                                 "refusals the scenarios reached, and which never.")},
         {text("force"), text("With record: take the place of a FILE that is there.")}});
    parser.addPositionalArgument(text("play FILE..."), text("Play scenario files and judge them."),
                                 text("[play FILE... |"));
    parser.addPositionalArgument(
        text("tour"), text("Play the tour and print what crossed the boundary."), text("tour |"));
    parser.addPositionalArgument(text("diff A B"), text("Print what differs between two journals."),
                                 text("diff A B |"));
    parser.addPositionalArgument(
        text("record FILE"),
        text("Open the window on a temporary copy and write what is done in the dialog as a "
             "scenario file."),
        text("record FILE |"));
    parser.addPositionalArgument(
        text("gallery"), text("Picture every page in every skin, one by one and on a sheet."),
        text("gallery]"));
}

/// Prints what was asked for instead of a command.
/// @return whether anything was.
bool printed(const QCommandLineParser& parser) {
    const bool help = parser.isSet(QStringLiteral("help"));
    if (!help && !parser.isSet(QStringLiteral("version"))) return false;
    const QString version = QStringLiteral("newpro-workbench " WORKBENCH_VERSION " (Qt %1)\n")
                                .arg(QLatin1String(qVersion()));
    std::fputs((help ? parser.helpText() : version).toUtf8().constData(), stdout);
    return true;
}

bool readCommand(QStringList words, CommandLine& into, QString& error) {
    const QString command = words.isEmpty() ? QString() : words.takeFirst();
    if (command == QLatin1String("play")) {
        into.command = Command::Play;
        into.files = words;
        if (words.isEmpty()) error = QStringLiteral("play: which files?");
    } else if (command == QLatin1String("tour")) {
        into.command = Command::Tour;
        if (!words.isEmpty()) error = QStringLiteral("tour: unknown argument ") + words.first();
    } else if (command == QLatin1String("diff")) {
        into.command = Command::Diff;
        into.files = words;
        if (words.size() != 2) error = QStringLiteral("diff: takes two journals");
    } else if (command == QLatin1String("record")) {
        into.command = Command::Record;
        for (const QString& word : words) into.files.append(QDir::current().absoluteFilePath(word));
        if (words.size() != 1 || words.first().isEmpty())
            error = QStringLiteral("record: takes one file");
    } else if (command == QLatin1String("gallery")) {
        into.command = Command::Gallery;
        if (!words.isEmpty()) error = QStringLiteral("gallery: unknown argument ") + words.first();
    } else if (!command.isEmpty()) {
        error = QStringLiteral("unknown command ") + command;
    }
    return error.isEmpty();
}

bool readLook(const QCommandLineParser& parser, CommandLine& into, QString& error) {
    const QString skin = parser.value(QStringLiteral("skin"));
    const QStringList skins = fieldNamed(hostFields(), "skin").words;
    if (skins.contains(skin))
        into.host.insert(QStringLiteral("skin"), skin);
    else if (!skin.isEmpty())
        error = QStringLiteral("--skin: must be ") + skins.join(QLatin1String(" or "));
    if (!parser.isSet(QStringLiteral("scale"))) return error.isEmpty();
    QString scale = parser.value(QStringLiteral("scale"));
    if (scale.endsWith(QLatin1Char('%'))) scale.chop(1);
    into.host.insert(QStringLiteral("scale"), scale.toDouble());
    if (!fieldNamed(hostFields(), "scale").fault(scale.toDouble()).isEmpty())
        error = QStringLiteral("--scale: must be 100 to 300 percent, or a factor from 1 to 3");
    return error.isEmpty();
}

/// Reads the options that name a file or a folder.
bool readPaths(const QCommandLineParser& parser, CommandLine& into, QString& error) {
    const std::pair<const char*, QString*> options[] = {{"installation", &into.installation},
                                                        {"journal", &into.journal},
                                                        {"pictures", &into.pictures},
                                                        {"settings", &into.settings}};
    for (const auto& [name, path] : options) {
        const QString option = QLatin1String(name);
        if (!parser.isSet(option)) continue;
        const QString value = parser.value(option);
        *path = QDir::current().absoluteFilePath(value);
        if (value.isEmpty()) error = QStringLiteral("--%1: must not be empty").arg(option);
        if (value.contains(QChar(0)))
            error = QStringLiteral("--%1: must not hold a NUL character").arg(option);
    }
    return error.isEmpty();
}

/// Reads the options that one command alone knows.
bool readSwitches(const QCommandLineParser& parser, CommandLine& into, QString& error) {
    const struct {
        const char* name;
        Command of;
        const char* command;
        bool* value;
    } switches[] = {{"coverage", Command::Play, "play", &into.coverage},
                    {"force", Command::Record, "record", &into.force}};
    for (const auto& each : switches) {
        *each.value = parser.isSet(QLatin1String(each.name));
        if (*each.value && into.command != each.of)
            error = QStringLiteral("--%1: goes with %2 alone")
                        .arg(QLatin1String(each.name), QLatin1String(each.command));
    }
    into.watch = parser.isSet(QStringLiteral("watch"));
    return error.isEmpty();
}

/// @return whether two paths lead to one file, or will when it is made.
bool isSameFile(const QString& one, const QString& other) {
    const auto place = [](const QString& path) {
        const QFileInfo file(path);
        if (file.exists()) return file.canonicalFilePath();
        return QFileInfo(file.absolutePath()).canonicalFilePath() + QLatin1Char('/') +
               file.fileName();
    };
    return place(one) == place(other);
}

/// A recording is never written over what somebody may still want.
bool mayRecord(const CommandLine& line, QString& error) {
    if (line.command != Command::Record) return true;
    const QString file = line.files.first();
    if (!line.journal.isEmpty() && isSameFile(file, line.journal))
        error = QStringLiteral("--journal: must be another file than that of record");
    else if (!line.force && QFileInfo::exists(file))
        error = file + QStringLiteral(": is there already; --force takes its place");
    return error.isEmpty();
}

}  // namespace

QString sampleInstallation() {
    return ownFolder(QStringLiteral("workbench/installation"));
}

QString workingInstallation(QString& error) {
    const QString home =
        isInstalled() ? QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                            QStringLiteral("/newpro-workbench")
                      : fromProgram(QStringLiteral(".."));
    const QString folder = home + QStringLiteral("/workspace");
    if (!QFileInfo(folder).isDir() && QDir().mkpath(home))
        error = copyFolderWhole(sampleInstallation(), folder);
    return folder;
}

QString ownSettings() {
    const QString folder =
        isInstalled() ? QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
                            QStringLiteral("/newpro-workbench")
                      : fromProgram(QStringLiteral(".."));
    return folder + QStringLiteral("/window.ini");
}

QString scenarioFolder() {
    return ownFolder(QStringLiteral("tests/scenarios"));
}

bool readCommandLine(const QStringList& arguments, CommandLine& into, QString& error) {
    QCommandLineParser parser;
    describe(parser);
    if (!parser.parse(arguments)) {
        error = parser.errorText();
        return false;
    }
    if (printed(parser)) return false;
    if (!readCommand(parser.positionalArguments(), into, error)) return false;
    if (!readLook(parser, into, error)) return false;
    if (!readPaths(parser, into, error)) return false;
    return readSwitches(parser, into, error) && mayRecord(into, error);
}

}  // namespace workbench
