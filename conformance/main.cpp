/// Prints what a host keeps of the contract. Exit code 0 where nothing differs, 1 where something
/// does, 2 where the command line is wrong.
#include <QApplication>
#include <QCommandLineParser>
#include <QFileInfo>
#include <cstdio>

#include "conformance.h"

namespace {

const int longestPatience = 3600;  // seconds

/// Keeps the table readable: missing pictures are told at its end, and what a platform without
/// windows cannot do is nothing that a host could mend.
void receive(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    const bool ofPicture = qstrcmp(context.category, "qt.svg") == 0;
    if (!ofPicture && !text.startsWith(QLatin1String("This plugin does not support")))
        std::fprintf(stderr, "%s\n", qUtf8Printable(qFormatLogMessage(type, context, text)));
}

const struct {
    const char* name;
    const char* help;
    const char* value;  ///< What it takes; null for nothing.
    const char* standard = "";
} options[] = {
    {"project", "a project file of the host's own", "file"},
    {"workbook", "a workbook, .xls or .xlsx", "file"},
    {"account", "who can log in to the cloud, by what is typed", "name"},
    {"password", "the password of this account", "text"},
    {"cloud", "the cloud path of a file that this account may read; may stand more than once",
     "path"},
    {"patience", "seconds that a promise may take (20)", "seconds", "20"},
    {"from",
     "looks in this very process, as a debugger wants it, from the promise of this place on",
     "place"},
    {"told", "for this program's own use", nullptr},
};

QString valueOf(const QCommandLineParser& parser, const char* option) {
    return parser.value(QLatin1String(option));
}

conformance::Files filesOf(const QCommandLineParser& parser) {
    return {valueOf(parser, "project"), valueOf(parser, "workbook"), valueOf(parser, "account"),
            valueOf(parser, "password"), parser.values(QStringLiteral("cloud"))};
}

/// @return whether an option stands for a whole number that is neither less nor more.
bool isNumber(const QCommandLineParser& parser, const char* option, int least, int most) {
    bool whole = false;
    const int number = valueOf(parser, option).toInt(&whole);
    return whole && number >= least && number <= most;
}

/// @return what is wrong with the command line; empty where nothing is.
QString faultOf(const QCommandLineParser& parser) {
    if (!parser.positionalArguments().isEmpty())
        return QStringLiteral("unknown argument ") + parser.positionalArguments().constFirst();
    for (const char* option : {"project", "workbook"})
        if (parser.isSet(QLatin1String(option)) && !QFileInfo(valueOf(parser, option)).isFile())
            return QStringLiteral("--%1: there is no file %2")
                .arg(QLatin1String(option), valueOf(parser, option));
    if (!isNumber(parser, "patience", 1, longestPatience))
        return QStringLiteral("--patience: must be a whole number of seconds, from 1 to %1")
            .arg(longestPatience);
    // Behind the last promise comes the end of the program.
    const int places = conformance::promisesOf(filesOf(parser)).size();
    if (parser.isSet(QStringLiteral("from")) && !isNumber(parser, "from", 0, places))
        return QStringLiteral("--from: must be the place of a promise, from 0 to %1").arg(places);
    return {};
}

/// Reads the command line, or ends the program where only help is asked for.
/// @param application whichever is there: of the look, or of what waits for it.
/// @return whether it can be understood; else says why not.
bool read(QCommandLineParser& parser, const QCoreApplication& application) {
    parser.setApplicationDescription(
        QStringLiteral("Holds the host libraries that this program is linked with against what the "
                       "dialog 新建工程 expects of them."));
    const QCommandLineOption help = parser.addHelpOption();
    for (const auto& option : options)
        parser.addOption({QLatin1String(option.name), QLatin1String(option.help),
                          QLatin1String(option.value), QLatin1String(option.standard)});
    const bool known = parser.parse(application.arguments());
    if (known && parser.isSet(help)) parser.showHelp();
    const QString fault = known ? faultOf(parser) : parser.errorText();
    if (!fault.isEmpty()) std::fprintf(stderr, "%s\n", qUtf8Printable(fault));
    return fault.isEmpty();
}

int watch(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    if (!read(parser, application)) return 2;
    const bool right = conformance::watchHost(filesOf(parser), application.arguments().mid(1),
                                              valueOf(parser, "patience").toInt());
    return right ? 0 : 1;
}

int look(int argc, char** argv) {
#if defined(Q_OS_UNIX) && !defined(Q_OS_MACOS)
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);  // nobody could close them
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QCommandLineParser parser;
    if (!read(parser, application)) return 2;
    qInstallMessageHandler(receive);
    const bool told = parser.isSet(QStringLiteral("told"));
    const bool right =
        conformance::tellRows(filesOf(parser), valueOf(parser, "from").toInt(), told);
    return right || told ? 0 : 1;  // who is told knows
}

}  // namespace

int main(int argc, char** argv) {
    bool looks = false;
    for (int i = 1; i < argc; ++i) looks = looks || qstrncmp(argv[i], "--from", 6) == 0;
    return looks ? look(argc, argv) : watch(argc, argv);
}
