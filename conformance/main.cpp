/// Prints what a host keeps of the contract. Exit code 0 where nothing differs, 1 where something
/// does, 2 where the command line is wrong.
#include <QApplication>
#include <QCommandLineParser>
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <deque>
#include <string>
#include <thread>

#include "conformance.h"

namespace {

const int longestPatience = 3600;

/// The line of the promise that is being looked at, kept until the program ends.
std::atomic<const std::string*> current{nullptr};

void begin(conformance::Row row) {
    static std::deque<std::string> lines;
    row.verdict = conformance::Verdict::Differs;
    lines.push_back(conformance::lineOf(row).toStdString());
    current = &lines.back();
}

void print(const QString& line) {
    std::puts(qUtf8Printable(line));
    std::fflush(stdout);
}

/// Keeps the table readable: missing pictures are told at its end, and what a platform without
/// windows cannot do is nothing that a host could mend.
void receive(QtMsgType type, const QMessageLogContext& context, const QString& text) {
    const bool ofPicture = qstrcmp(context.category, "qt.svg") == 0;
    if (!ofPicture && !text.startsWith(QLatin1String("This plugin does not support")))
        std::fprintf(stderr, "%s\n", qUtf8Printable(qFormatLogMessage(type, context, text)));
}

void printMissingPictures() {
    const QStringList names = conformance::missingPictures();
    if (!names.isEmpty())
        print(QStringLiteral("The host has no ") + names.join(QStringLiteral(", ")));
}

/// Ends the program with the promise that it did not come back from.
[[noreturn]] void giveUp(const char* what) {
    const std::string* line = current;
    std::printf("%s\n             %s\n", line ? line->c_str() : "", what);
    std::fflush(stdout);
    std::_Exit(1);
}

/// Watches from a thread of its own for a host that crashes or does not come back.
class Watch {
  public:
    /// @param patience seconds that a promise may take.
    explicit Watch(int patience) : patience(patience) {
        for (int signal : {SIGSEGV, SIGABRT})
            std::signal(signal, [](int) { giveUp("the process crashes"); });
        thread = std::thread([this] { run(); });
    }
    ~Watch() {
        done = true;
        thread.join();
    }

  private:
    void run() {
        const std::string* last = nullptr;
        for (int ticks = 0; !done; std::this_thread::sleep_for(std::chrono::milliseconds(50))) {
            ticks = current == last ? ticks + 1 : 0;
            last = current;
            if (ticks > patience * 20) giveUp("does not come back");
        }
    }

    const int patience;
    std::atomic<bool> done{false};
    std::thread thread;
};

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);  // nobody could close them
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Holds the host libraries that this program is linked with against what the "
                       "dialog 新建工程 expects of them."));
    parser.addHelpOption();
    const QCommandLineOption project(QStringLiteral("project"),
                                     QStringLiteral("a project file of the host's own"),
                                     QStringLiteral("file"));
    const QCommandLineOption workbook(QStringLiteral("workbook"),
                                      QStringLiteral("a workbook, .xls or .xlsx"),
                                      QStringLiteral("file"));
    const QCommandLineOption patience(QStringLiteral("patience"),
                                      QStringLiteral("seconds that a promise may take (20)"),
                                      QStringLiteral("seconds"), QStringLiteral("20"));
    parser.addOptions({project, workbook, patience});
    parser.process(application);

    bool whole = false;
    const int seconds = parser.value(patience).toInt(&whole);
    if (!whole || seconds < 1 || seconds > longestPatience) {
        std::fprintf(stderr, "--patience: must be a whole number of seconds, from 1 to %d\n",
                     longestPatience);
        return 2;
    }

    qInstallMessageHandler(receive);
    const Watch watch(seconds);
    const QVector<conformance::Row> rows = conformance::checkHost(
        {parser.value(project), parser.value(workbook)},
        {begin, [](const conformance::Row& row) { print(conformance::lineOf(row)); }});
    printMissingPictures();
    print(conformance::summaryOf(rows));
    for (const conformance::Row& row : rows)
        if (row.verdict == conformance::Verdict::Differs) return 1;
    return 0;
}
