#include "tests/monkey/performance.h"

#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTemporaryDir>
#include <QWidget>
#include <cstdio>
#include <cstdlib>

#include "tests/monkey/invariants.h"
#include "tests/monkey/places.h"
#include "tests/support/platformMessages.h"
#include "workbench/journal/Journal.h"
#include "workbench/scenario/Player.h"

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace monkey {

namespace {

/// Collects Qt's messages from here to the end of the scope.
class Messages {
  public:
    Messages() {
        list().clear();
        before = qInstallMessageHandler(take);
    }
    ~Messages() { qInstallMessageHandler(before); }
    Messages(const Messages&) = delete;
    Messages& operator=(const Messages&) = delete;

    static QStringList& list() {
        static QStringList messages;
        return messages;
    }

  private:
    static void take(QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (testing_support::isOfPlatform(text)) return;
        std::fprintf(stderr, "%s\n", text.toUtf8().constData());
        if (type != QtDebugMsg && type != QtInfoMsg)
            list().append(QStringLiteral("message: ") + text);
    }
    QtMessageHandler before = nullptr;
};

/// Ends the process by a fault. On Windows abort() is an end with a code like any other.
[[noreturn]] void crash() {
#ifdef Q_OS_WIN
    std::_Exit(int(0xC0000005));  // STATUS_ACCESS_VIOLATION; nobody is asked what to do
#else
    std::abort();
#endif
}

/// Ends the process at an entry of the journal, from here to the end of the scope.
class Crash {
  public:
    explicit Crash(const QStringList& names) {
        const workbench::Journal& journal = workbench::Journal::instance();
        connection = QObject::connect(
            &journal, &workbench::Journal::recorded, [names](const QJsonObject& entry) {
                if (names.contains(entry.value(QLatin1String("name")).toString())) crash();
            });
    }
    ~Crash() { QObject::disconnect(connection); }
    Crash(const Crash&) = delete;
    Crash& operator=(const Crash&) = delete;

  private:
    QMetaObject::Connection connection;
};

QString described(const QWidget* widget) {
    return QStringLiteral("%1 \"%2\"")
        .arg(QLatin1String(widget->metaObject()->className()), widget->objectName());
}

/// @return windows that nobody owns any more, or that are still open.
QStringList leftovers() {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QStringList faults;
    for (const QWidget* widget : QApplication::topLevelWidgets())
        faults.append(QStringLiteral("leftover: ") + described(widget) +
                      (widget->isVisible() ? QStringLiteral(", still open") : QString()));
    return faults;
}

QStringList leaks() {
#if defined(__SANITIZE_ADDRESS__)
    if (__lsan_do_recoverable_leak_check()) return {QStringLiteral("leak: see standard error")};
#endif
    return {};
}

bool throws(const QJsonObject& host) {
    return !host.value(QLatin1String("throw")).toArray().isEmpty();
}

bool hostThrows(const workbench::Scenario& scenario) {
    if (throws(scenario.host)) return true;
    for (const workbench::Step& step : scenario.steps)
        if (step.verb == QLatin1String("host") && throws(step.args)) return true;
    return false;
}

QStringList found(const Entries& journal, const QStringList& never) {
    for (const QJsonObject& entry : journal) {
        const QString name = entry.value(QLatin1String("name")).toString();
        if (never.contains(name)) return {QStringLiteral("never: ") + name};
    }
    return {};
}

int countOf(const Entries& journal, const char* key, const char* value, const char* event = "") {
    int count = 0;
    for (const QJsonObject& entry : journal)
        if (entry.value(QLatin1String(key)) == QLatin1String(value) &&
            entry.value(QLatin1String("event")).toString() == QLatin1String(event))
            ++count;
    return count;
}

/// @return why a scenario ended early, unless it was by an exception that is the host's own.
QStringList endings(const workbench::PlayResult& result, const PlaceThrows& places) {
    const bool escaped = result.ended.contains(QLatin1String("an exception escaped"));
    if (result.ended.isEmpty() || (escaped && places.lastGoesBack())) return {};
    return {QStringLiteral("ended: ") + result.ended};
}

workbench::PlayOptions optionsIn(const QTemporaryDir& folder) {
    workbench::PlayOptions options;
    options.pictureFolder = folder.path();
    options.skipAfter = 0;
    options.stepLimit = 30000;  // several answers of a slow cloud disk, on a busy machine
    return options;
}

}  // namespace

Performance perform(const workbench::Scenario& scenario, const Traps& traps) {
    Performance done;
    const Crash crash(traps.crashAt);
    const QTemporaryDir folder;
    const Messages messages;
    const PlaceThrows places;
    workbench::PlayResult result;
    try {
        result = workbench::play(scenario, optionsIn(folder));
    } catch (...) {
        done.faults.append(QStringLiteral("escaped: an exception left the event loop"));
        done.spoilt = true;
    }
    const Entries journal = workbench::Journal::instance().entries();
    if (!result.unplayable.isEmpty())
        done.faults.append(QStringLiteral("unplayable: ") + result.unplayable);
    done.faults += endings(result, places) + leftovers() + creationFaults(journal) +
                   journalFaults(journal) + exceptionFaults(journal, hostThrows(scenario)) +
                   Messages::list() + found(journal, traps.never) + leaks();
    done.skipped = result.skipped;
    done.steps = scenario.steps.size() - result.skipped;
    done.dialogs = countOf(journal, "name", "NewProCfgDialog", "opened");
    done.requests = creationRequests(journal);
    done.exceptions = countOf(journal, "kind", "exception");
    done.atPlaces = places.count();
    return done;
}

bool readScenario(const QJsonObject& content, workbench::Scenario& into) {
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("sequence.json")));
    if (!file.open(QIODevice::WriteOnly)) return false;
    file.write(QJsonDocument(content).toJson());
    file.close();
    QString error;
    return workbench::readScenario(file.fileName(), into, error);
}

}  // namespace monkey
