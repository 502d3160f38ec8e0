/// The fault matrix. Flows are played by processes of their own, so that a crash or a hang is one
/// finding among others.
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

#include "tests/faults/Sites.h"
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

constexpr int leakCheckEvery = 50;      // cases
constexpr int longestSilence = 120000;  // milliseconds; a case takes a hundredth of it

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

/// Plays a flow without a fault, once more than its calls need to come out the same: what is made
/// once a process is made in the first play.
/// @param faults what is wrong with the flow itself.
Outcome referenceOf(const workbench::Scenario& flow, QStringList& faults) {
    const Outcome first = playWith(flow, {});
    Outcome reference = playWith(flow, {});
    if (!samePlaces(first.places, reference.places) &&
        !samePlaces(reference.places, playWith(flow, {}).places))
        faults += QStringLiteral("the calls of this flow differ from play to play");
    for (const QString& fault : judge({}, reference, reference)) {
        if (!fault.startsWith(QLatin1String("the place"))) faults += fault;
    }
    if (!reference.faulty.ended.isEmpty()) faults += reference.faulty.ended;
    return reference;
}

/// Plays the cases of one flow. Prints "case NUMBER TEXT" before each, "fault TEXT" for each fault
/// and "done COUNT CALLS" at the end.
void work(const QString& name, bool quick, int from, const QString& only) {
    workbench::Scenario flow;
    QString error;
    if (!workbench::readScenario(fileOf(name), flow, error)) {
        say(QStringLiteral("fault %1\ndone 0 0").arg(error));
        return;
    }
    QStringList wrong;
    const Outcome reference = referenceOf(flow, wrong);
    if (from == 0) {
        for (const QString& fault : wrong) say(QStringLiteral("fault ") + fault);
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
}

/// Flows in the hands of workers, a new one after each that died.
class Flows {
  public:
    Flows(QStringList names, bool quick) : left(std::move(names)), quick(quick) { start(0); }

    /// Takes in what the worker has said. @return whether the flows are through.
    bool advance(int waitMs) {
        worker->waitForReadyRead(waitMs);
        while (worker->canReadLine()) {
            take(QString::fromUtf8(worker->readLine()).trimmed());
            silence.start();
        }
        if (silence.hasExpired(longestSilence)) worker->kill();
        if (worker->state() != QProcess::NotRunning || worker->canReadLine()) return false;
        if (left.isEmpty()) return true;
        if (number < startedFrom) {
            fail(QStringLiteral("the worker ended before its first case"));
            takeNext();
        } else {
            fail(QStringLiteral("the process died or hung: ") +
                 QString::fromUtf8(worker->readAllStandardError()).right(4000));
        }
        if (left.isEmpty()) return true;
        start(number + 1);
        return false;
    }

    int faultCount() const { return found; }
    int caseCount() const { return cases; }
    int placeCount() const { return calls; }

  private:
    void start(int from) {
        worker = std::make_unique<QProcess>();
        QStringList arguments{QStringLiteral("--worker"), QString::number(from)};
        if (quick) arguments.prepend(QStringLiteral("--quick"));
        worker->start(QCoreApplication::applicationFilePath(), arguments + left);
        worker->waitForStarted();
        silence.start();
        startedFrom = from;
        number = from - 1;
    }

    void takeNext() {
        left.removeFirst();
        startedFrom = 0;
        number = -1;
        current = QStringLiteral("without a fault");
    }

    void take(const QString& line) {
        const QString rest = line.section(QLatin1Char(' '), 1);
        if (line.startsWith(QLatin1String("case "))) {
            number = rest.section(QLatin1Char(' '), 0, 0).toInt();
            current = rest.section(QLatin1Char(' '), 1);
        } else if (line.startsWith(QLatin1String("fault "))) {
            fail(rest);
        } else if (line.startsWith(QLatin1String("done "))) {
            cases += rest.section(QLatin1Char(' '), 0, 0).toInt();
            calls += rest.section(QLatin1Char(' '), 1, 1).toInt();
            takeNext();
        }
    }

    void fail(const QString& what) {
        ++found;
        say(QStringLiteral("%1: %2\n    %3").arg(left.value(0), current, what));
    }

    QStringList left;  ///< The first is being played.
    const bool quick;
    std::unique_ptr<QProcess> worker;
    QElapsedTimer silence;
    QString current = QStringLiteral("without a fault");
    int startedFrom = 0;  ///< The case that the first of these flows began with.
    int number = -1;      ///< The case that is being played.
    int cases = 0;
    int calls = 0;
    int found = 0;
};

/// Prints the calls of the host that the module makes and no flow reaches.
int listUnreached(const QStringList& names) {
    QVector<faults::Place> reached;
    for (const QString& name : names) {
        workbench::Scenario flow;
        QString error;
        if (!workbench::readScenario(fileOf(name), flow, error)) qFatal("%s", qPrintable(error));
        reached += playWith(flow, {}).places;
    }
    const QStringList missing = faults::unreached(reached);
    for (const QString& call : missing) say(call);
    say(QStringLiteral("%1 operations, %2 calls, %3 that no flow reaches")
            .arg(faults::operationCount())
            .arg(faults::siteCount())
            .arg(missing.size()));
    return missing.isEmpty() ? 0 : 1;
}

/// One job plays all flows in one process; several take a flow each.
int runAll(const QStringList& names, bool quick, int jobs) {
    QElapsedTimer clock;
    clock.start();
    std::deque<QStringList> waiting;
    for (const QString& name : names) waiting.push_back({name});
    if (jobs == 1) waiting = {names};
    std::vector<std::unique_ptr<Flows>> running;
    int found = 0, cases = 0, calls = 0;
    while (!waiting.empty() || !running.empty()) {
        while (int(running.size()) < jobs && !waiting.empty()) {
            running.push_back(std::make_unique<Flows>(waiting.front(), quick));
            waiting.pop_front();
        }
        for (auto flows = running.begin(); flows != running.end();) {
            if (!(*flows)->advance(20)) {
                ++flows;
                continue;
            }
            found += (*flows)->faultCount();
            cases += (*flows)->caseCount();
            calls += (*flows)->placeCount();
            flows = running.erase(flows);
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
    parser.setApplicationDescription(
        QStringLiteral("Plays each flow with a fault at each call of the host. 0: nothing found."));
    parser.addHelpOption();
    const QCommandLineOption quick(
        QStringLiteral("quick"),
        QStringLiteral(
            "First and last of each call only, with one exception and one other action."));
    const QCommandLineOption jobs(QStringLiteral("jobs"), QStringLiteral("Processes at a time."),
                                  QStringLiteral("N"),
                                  QString::number(QThread::idealThreadCount()));
    const QCommandLineOption worker(
        QStringLiteral("worker"),
        QStringLiteral("Play in this process, for a debugger, from a flow's case FROM."),
        QStringLiteral("FROM"));
    const QCommandLineOption only(
        QStringLiteral("only"),
        QStringLiteral("Beside --worker: the cases whose description contains TEXT."),
        QStringLiteral("TEXT"));
    const QCommandLineOption unreached(QStringLiteral("unreached"),
                                       QStringLiteral("List the calls that no flow reaches."));
    parser.addOptions({quick, jobs, worker, only, unreached});
    parser.addPositionalArgument(QStringLiteral("FLOW"),
                                 QStringLiteral("Of tests/faults/flows; all without one."),
                                 QStringLiteral("[FLOW...]"));
    parser.process(application);
    QStringList flows = parser.positionalArguments();
    if (parser.isSet(worker)) {
        workbench::applySkin();
        int from = parser.value(worker).toInt();
        for (const QString& flow : flows) {
            work(flow, parser.isSet(quick), from, parser.value(only));
            from = 0;
        }
        return 0;
    }
    if (flows.isEmpty()) flows = allFlows();
    if (parser.isSet(unreached)) {
        workbench::applySkin();
        return listUnreached(flows);
    }
    return runAll(flows, parser.isSet(quick), qMax(1, parser.value(jobs).toInt()));
}
