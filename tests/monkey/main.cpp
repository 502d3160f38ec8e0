#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QSet>
#include <cstdio>
#include <cstdlib>

#include "tests/monkey/Herd.h"
#include "tests/monkey/findings.h"
#include "tests/monkey/performance.h"
#include "tests/monkey/sequence.h"
#include "workbench/hostlibs/zBaseControl/SkinStyle.h"

#if defined(__SANITIZE_ADDRESS__)
extern "C" Q_DECL_EXPORT const char* __lsan_default_suppressions() {
    return KNOWN_LEAKS;
}
#endif

namespace {

using monkey::Performance;

void print(const QString& line) {
    std::fprintf(stdout, "%s\n", line.toUtf8().constData());
    std::fflush(stdout);
}

/// Of the faults of different kinds; a broken dialog need not be shown a hundred times.
const int mostShrunk = 12;

struct CommandLine {
    monkey::Errand errand;
    QString folder;  ///< For shrunk scenarios.
    QString file;    ///< To judge.
    bool plays = false;
    bool prints = false;
};

CommandLine readArguments() {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Random users play the dialog. Whatever fails is shrunk to a scenario "
                       "file.\nEnds with 0 when nothing failed, with 1 otherwise."));
    parser.addHelpOption();
    const QCommandLineOption sequences(QStringLiteral("sequences"), QStringLiteral("How many."),
                                       QStringLiteral("number"), QStringLiteral("300"));
    const QCommandLineOption seed(QStringLiteral("seed"), QStringLiteral("Of the first sequence."),
                                  QStringLiteral("number"), QStringLiteral("1"));
    const QCommandLineOption processes(QStringLiteral("processes"),
                                       QStringLiteral("How many play at the same time."),
                                       QStringLiteral("number"), QStringLiteral("2"));
    const QCommandLineOption folder(QStringLiteral("faults"),
                                    QStringLiteral("Where shrunk scenarios go."),
                                    QStringLiteral("folder"), QStringLiteral("monkey-faults"));
    const QCommandLineOption never(
        QStringLiteral("never"),
        QStringLiteral("A journal entry of this name counts as a fault; several times."),
        QStringLiteral("name"));
    const QCommandLineOption crash(
        QStringLiteral("crash-at"),
        QStringLiteral("A journal entry of this name ends the process; several times."),
        QStringLiteral("name"));
    const QCommandLineOption show(QStringLiteral("print"),
                                  QStringLiteral("Prints the sequence of the seed."));
    const QCommandLineOption judge(QStringLiteral("judge"),
                                   QStringLiteral("Plays a scenario file and judges it."),
                                   QStringLiteral("file"));
    QCommandLineOption play(QStringLiteral("play"));
    play.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOptions({sequences, seed, processes, folder, never, crash, show, judge, play});
    parser.process(QCoreApplication::arguments());

    CommandLine line;
    line.errand.sequences = parser.value(sequences).toInt();
    line.errand.seed = parser.value(seed).toUInt();
    line.errand.processes = qMax(1, parser.value(processes).toInt());
    line.errand.traps = {parser.values(never), parser.values(crash)};
    line.folder = parser.value(folder);
    line.file = parser.value(judge);
    line.plays = parser.isSet(play);
    line.prints = parser.isSet(show);
    return line;
}

/// A process that is no longer sound ends without looking back.
[[noreturn]] void endAtOnce(int code) {
    std::fflush(nullptr);
    std::_Exit(code);
}

int playSequences(const monkey::Errand& errand) {
    for (int i = 0; i < errand.sequences; ++i) {
        const quint32 seed = errand.seed + quint32(i);
        print(QStringLiteral("begin %1").arg(seed));
        workbench::Scenario scenario;
        Performance done;
        if (monkey::readScenario(monkey::sequence(seed), scenario))
            done = monkey::perform(scenario, errand.traps);
        else
            done.faults.append(QStringLiteral("sequence: it is no scenario"));
        for (const QString& fault : qAsConst(done.faults))
            print(QStringLiteral("fault ") + fault.simplified());
        print(QStringLiteral(
                  "end steps=%1 skipped=%2 dialogs=%3 requests=%4 exceptions=%5 atPlaces=%6")
                  .arg(done.steps)
                  .arg(done.skipped)
                  .arg(done.dialogs)
                  .arg(done.requests)
                  .arg(done.exceptions)
                  .arg(done.atPlaces));
        if (done.spoilt) endAtOnce(0);
    }
    return 0;
}

int judgeFile(const QString& file, const monkey::Traps& traps) {
    workbench::Scenario scenario;
    QString error;
    if (!workbench::readScenario(file, scenario, error)) {
        std::fprintf(stderr, "%s\n", error.toUtf8().constData());
        return 2;
    }
    const Performance done = monkey::perform(scenario, traps);
    for (const QString& fault : done.faults) print(fault.simplified());
    if (done.spoilt) endAtOnce(1);
    return done.faults.isEmpty() ? 0 : 1;
}

int sendHerd(const CommandLine& line) {
    QElapsedTimer clock;
    clock.start();
    monkey::Herd herd(line.errand);
    herd.run();
    print(monkey::summary(herd, clock.elapsed()));
    QSet<QString> known;
    for (const monkey::Failure& failure : herd.failures()) {
        print(QStringLiteral("seed %1: %2").arg(failure.seed).arg(failure.fault));
        const QString fault = monkey::kindOf(failure.fault);
        if (known.contains(fault) || known.size() == mostShrunk) continue;
        known.insert(fault);
        print(monkey::keepShrunk(failure, line.errand.traps, line.folder));
    }
    return herd.failures().isEmpty() ? 0 : 1;
}

int withoutWindows(const CommandLine& line) {
    if (line.prints) {
        print(QString::fromUtf8(QJsonDocument(monkey::sequence(line.errand.seed)).toJson()));
        return 0;
    }
    return sendHerd(line);
}

int run(int& argc, char** argv, CommandLine& line) {
    const QCoreApplication application(argc, argv);
    line = readArguments();
    return line.plays || !line.file.isEmpty() ? -1 : withoutWindows(line);
}

}  // namespace

int main(int argc, char** argv) {
    CommandLine line;
    const int result = run(argc, argv, line);
    if (result >= 0) return result;
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    workbench::applySkin();
    return line.plays ? playSequences(line.errand) : judgeFile(line.file, line.errand.traps);
}
