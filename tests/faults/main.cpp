/// newpro-faults [--quick] [--jobs N] [FLOW...]: the fault matrix. --unreached: what it does not
/// reach. Without a flow: all. Each flow is played by a process of its own, so that a crash or a
/// hang is one finding among others.
#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QProcess>
#include <QThread>
#include <algorithm>
#include <cstdio>
#include <deque>
#include <memory>
#include <numeric>
#include <vector>

#include "tests/faults/Symbols.h"
#include "tests/faults/Verdict.h"
#include "tests/faults/interposer/places.h"
#include "workbench/hostlibs/zBaseControl/SkinStyle.h"

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>

extern "C" Q_DECL_EXPORT const char* __lsan_default_suppressions() {
    return KNOWN_LEAKS;
}

/// Long stacks of allocations and a large quarantine take a third of the time.
extern "C" Q_DECL_EXPORT const char* __asan_default_options() {
    return "malloc_context_size=2:quarantine_size_mb=8";
}
#endif

namespace {

using faults::Case;
using faults::Outcome;
using faults::playWith;

constexpr int leakCheckEvery = 50;  // cases

bool leaks() {
#if defined(__SANITIZE_ADDRESS__)
    return __lsan_do_recoverable_leak_check() != 0;
#else
    return false;
#endif
}

void say(const QString& line) {
    std::printf("%s\n", line.toUtf8().constData());
    std::fflush(stdout);
}

QString fileOf(const QString& flow) {
    return QDir(QStringLiteral(FAULT_FLOWS)).filePath(flow + QStringLiteral(".json"));
}

/// @return a number of the flow's own, the same on every machine.
int turnOf(const QString& flow) {
    return std::accumulate(flow.begin(), flow.end(), 0,
                           [](int sum, QChar letter) { return sum + letter.unicode(); });
}

/// @return whether two plays of a flow made the same calls, but for handlers of events.
bool samePlaces(QVector<faults::Place> one, QVector<faults::Place> other) {
    for (QVector<faults::Place>* places : {&one, &other}) {
        const auto isEvent = [](const auto& place) { return faults::isEvent(place.operation); };
        places->erase(std::remove_if(places->begin(), places->end(), isEvent), places->end());
    }
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](const auto& a, const auto& b) { return a.sameCall(b); });
}

/// Plays the cases of one flow. Prints "case NUMBER TEXT" before each, "fault TEXT" for each fault
/// and "done COUNT" at the end.
int work(const QString& name, bool quick, int from, const QString& only) {
    workbench::Scenario flow;
    QString error;
    if (!workbench::readScenario(fileOf(name), flow, error)) {
        say(QStringLiteral("fault ") + error);
        return 2;
    }
    playWith(flow, {});  // warms up what is made once a process
    const Outcome reference = playWith(flow, {});
    if (from == 0) {
        for (const QString& fault : judge({}, reference, reference)) {
            if (!fault.startsWith(QLatin1String("the place")))
                say(QStringLiteral("fault ") + fault);
        }
        if (!reference.faulty.ended.isEmpty())
            say(QStringLiteral("fault ") + reference.faulty.ended);
        if (!samePlaces(reference.places, playWith(flow, {}).places))
            say(QStringLiteral("fault the calls of this flow differ from play to play"));
    }
    const QVector<Case> cases = casesFor(reference.places, quick, turnOf(name));
    for (int i = from; i < cases.size(); ++i) {
        if (!describe(cases[i]).contains(only)) continue;
        say(QStringLiteral("case %1 %2").arg(i).arg(describe(cases[i])));
        for (const QString& fault : judge(cases[i], playWith(flow, cases[i]), reference))
            say(QStringLiteral("fault ") + fault);
        const bool last = i + 1 == cases.size();
        if ((last || i % leakCheckEvery == leakCheckEvery - 1) && leaks())
            say(QStringLiteral("fault a leak in this case or one of the %1 before it")
                    .arg(leakCheckEvery - 1));
    }
    say(QStringLiteral("done %1 %2").arg(cases.size()).arg(reference.places.size()));
    return 0;
}

/// One flow in the hands of workers, a new one after each that died.
class Flow {
  public:
    Flow(QString name, bool quick) : name(std::move(name)), quick(quick) { start(0); }

    /// Takes in what the worker has said. @return whether the flow is through.
    bool advance(int waitMs) {
        worker->waitForReadyRead(waitMs);
        while (worker->canReadLine()) take(QString::fromUtf8(worker->readLine()).trimmed());
        if (worker->state() != QProcess::NotRunning || worker->canReadLine()) return false;
        if (isDone || number < 0) {
            if (!isDone) fail(QStringLiteral("the worker ended before its first case"));
            return true;
        }
        fail(QStringLiteral("the process died or hung: ") +
             QString::fromUtf8(worker->readAllStandardError()).right(4000));
        start(number + 1);
        return false;
    }

    int faultCount() const { return found; }
    int caseCount() const { return cases; }
    int placeCount() const { return calls; }

  private:
    void start(int from) {
        worker = std::make_unique<QProcess>();
        QStringList arguments{QStringLiteral("--worker"), QString::number(from), name};
        if (quick) arguments.prepend(QStringLiteral("--quick"));
        worker->start(QCoreApplication::applicationFilePath(), arguments);
        worker->waitForStarted();
    }

    void take(const QString& line) {
        if (line.startsWith(QLatin1String("case "))) {
            number = line.section(QLatin1Char(' '), 1, 1).toInt();
            current = line.section(QLatin1Char(' '), 2);
            cases = number + 1;
        } else if (line.startsWith(QLatin1String("fault "))) {
            fail(line.mid(6));
        } else if (line.startsWith(QLatin1String("done "))) {
            isDone = true;
            calls = line.section(QLatin1Char(' '), 2, 2).toInt();
        }
    }

    void fail(const QString& what) {
        ++found;
        say(QStringLiteral("%1: %2\n    %3").arg(name, current, what));
    }

    const QString name;
    const bool quick;
    std::unique_ptr<QProcess> worker;
    QString current = QStringLiteral("without a fault");
    int number = -1;
    int cases = 0;
    int calls = 0;
    int found = 0;
    bool isDone = false;
};

/// Operations that no flow can reach without a fault: what reports one, what a layout with a
/// template chooser or with an estimate page would use (their rooms test it), and handlers of
/// events.
bool outOfReach(int operation) {
    static const QString names[] = {QStringLiteral("ProcExceptionNew"),
                                    QStringLiteral("ProjectSettingHelper::getJiLinMoBanList"),
                                    QStringLiteral("zBaseComboxPopup::setDisplayText"),
                                    QStringLiteral("zBaseComboxPopup::hideDropDownPopup"),
                                    QStringLiteral("SharedInterface::getInstance"),
                                    QStringLiteral("GetProgramTypeByFile")};
    return faults::isEvent(operation) || std::find(std::begin(names), std::end(names),
                                                   faults::nameOf(operation)) != std::end(names);
}

/// Prints the operations of the host that the module calls and no flow reaches.
int listUnreached(const QStringList& names) {
    QVector<bool> reached(faults::operationCount());
    for (const QString& name : names) {
        workbench::Scenario flow;
        QString error;
        if (!workbench::readScenario(fileOf(name), flow, error)) qFatal("%s", qPrintable(error));
        for (const faults::Place& place : playWith(flow, {}).places)
            reached[place.operation] = true;
    }
    int missing = 0;
    for (int i = 0; i < reached.size(); ++i) {
        if (reached[i] || outOfReach(i)) continue;
        say(faults::demangled(faults::operationName(i)));
        ++missing;
    }
    say(QStringLiteral("%1 operations, %2 that no flow reaches").arg(reached.size()).arg(missing));
    return missing == 0 ? 0 : 1;
}

int runAll(const QStringList& names, bool quick, int jobs) {
    QElapsedTimer clock;
    clock.start();
    std::deque<QString> waiting(names.begin(), names.end());
    std::vector<std::unique_ptr<Flow>> running;
    int found = 0, cases = 0, calls = 0;
    while (!waiting.empty() || !running.empty()) {
        while (int(running.size()) < jobs && !waiting.empty()) {
            running.push_back(std::make_unique<Flow>(waiting.front(), quick));
            waiting.pop_front();
        }
        for (auto flow = running.begin(); flow != running.end();) {
            if (!(*flow)->advance(20)) {
                ++flow;
                continue;
            }
            found += (*flow)->faultCount();
            cases += (*flow)->caseCount();
            calls += (*flow)->placeCount();
            flow = running.erase(flow);
        }
    }
    say(QStringLiteral("%1 flows, %2 host calls, %3 cases, %4 faults, %5 s")
            .arg(names.size())
            .arg(calls)
            .arg(cases)
            .arg(found)
            .arg(clock.elapsed() / 1000));
    return found == 0 && cases > 0 ? 0 : 1;
}

QStringList allFlows() {
    QStringList names;
    for (const QFileInfo& file :
         QDir(QStringLiteral(FAULT_FLOWS)).entryInfoList({QStringLiteral("*.json")}, QDir::Files))
        names.append(file.completeBaseName());
    return names;
}

}  // namespace

int main(int argc, char** argv) {
    // Every case has an installation of its own: on a disk it would mostly be waited for.
    if (qEnvironmentVariableIsEmpty("TMPDIR") && QFileInfo(QStringLiteral("/dev/shm")).isWritable())
        qputenv("TMPDIR", "/dev/shm");
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QCommandLineParser parser;
    const QCommandLineOption quick(QStringLiteral("quick"));
    const QCommandLineOption jobs(QStringLiteral("jobs"), {}, QStringLiteral("N"),
                                  QString::number(QThread::idealThreadCount()));
    const QCommandLineOption worker(QStringLiteral("worker"), {}, QStringLiteral("FROM"));
    // Beside --worker, for the debugger: only the cases whose description contains the text.
    const QCommandLineOption only(QStringLiteral("only"), {}, QStringLiteral("TEXT"));
    const QCommandLineOption unreached(QStringLiteral("unreached"));
    parser.addOptions({quick, jobs, worker, only, unreached});
    parser.addPositionalArgument(QStringLiteral("flow"), {});
    parser.process(application);
    QStringList flows = parser.positionalArguments();
    if (parser.isSet(worker)) {
        workbench::applySkin();
        return work(flows.value(0), parser.isSet(quick), parser.value(worker).toInt(),
                    parser.value(only));
    }
    if (flows.isEmpty()) flows = allFlows();
    if (parser.isSet(unreached)) {
        workbench::applySkin();
        return listUnreached(flows);
    }
    return runAll(flows, parser.isSet(quick), qMax(1, parser.value(jobs).toInt()));
}
