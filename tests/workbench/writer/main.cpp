/// workspaceWriter [die=BYTES] MODE ARGUMENT...
///   create FOLDER TITLE [COUNT]   makes projects, and writes its process id and a growing number
///                                 to the settings after each
///   history FOLDER PREFIX COUNT   adds entries to the history list
///   download FOLDER FILE          fetches a file of the personal cloud disk's top level
///   copy SOURCE TARGET            copies a folder
///   lock FILE                     holds a lock until it is killed
/// What is done for good is told line by line. "die=BYTES" kills the process at the first write
/// that makes a file longer than that. Without a count it writes until it is killed.
#include <QCoreApplication>
#include <cstdio>
#include <limits>

#include "workbench/hostlibs/common/FileDialogState.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/ProjectStore.h"
#include "workbench/hostlibs/fileDialog/CloudBrowser.h"
#include "workbench/scenario/TemporaryCopy.h"

#ifdef Q_OS_UNIX
#include <sys/resource.h>
#endif

namespace {

using workbench::Host;

void tell(const QString& line) {
    std::fprintf(stdout, "%s\n", line.toUtf8().constData());
    std::fflush(stdout);
}

int failed(const QString& reason) {
    std::fprintf(stderr, "%s\n", reason.toUtf8().constData());
    return 1;
}

void dieBeyond(unsigned long bytes) {
#ifdef Q_OS_UNIX
    const rlimit none{0, 0};
    setrlimit(RLIMIT_CORE, &none);
    const rlimit size{bytes, bytes};
    setrlimit(RLIMIT_FSIZE, &size);
#else
    Q_UNUSED(bytes)
#endif
}

int create(const QString& title, int count) {
    workbench::ProjectStore store;
    QString failure;
    QObject::connect(&store, &workbench::ProjectStore::created,
                     [](const QString& path) { tell(QStringLiteral("project ") + path); });
    QObject::connect(&store, &workbench::ProjectStore::failed,
                     [&failure](const QString& reason) { failure = reason; });
    workbench::Installation& installation = Host::instance().installation();
    // Nobody else writes these settings, before or after.
    const qint64 own = QCoreApplication::applicationPid();
    for (int i = 0; i < count; ++i) {
        store.createFromModel(4, 95, QVariantMap{{QStringLiteral("m_strProjectType"), title}});
        if (failure.isEmpty()) {
            installation.systemSettings.modelName = QStringLiteral("%1 %2").arg(own).arg(i);
            failure = installation.saveSystemSettings();
        }
        if (!failure.isEmpty()) return failed(failure);
        tell(QStringLiteral("settings ") + installation.systemSettings.modelName);
    }
    return 0;
}

int addHistory(const QString& prefix, int count) {
    for (int i = 0; i < count; ++i) {
        const QString entry = QStringLiteral("%1%2").arg(prefix).arg(i);
        const QString error = Host::instance().installation().addToHistory(entry);
        if (!error.isEmpty()) return failed(error);
        tell(QStringLiteral("entry ") + entry);
    }
    return 0;
}

int download(const QString& file) {
    workbench::CloudBrowser browser([] { return true; });
    workbench::FileAnswer answer;
    if (!browser.goTo(workbench::PersonalPlace) || !browser.download(file, answer))
        return failed(browser.error());
    tell(QStringLiteral("file ") + answer.path);
    return 0;
}

int hold(const QString& file) {
    workbench::FileLock lock(file);
    if (!lock.lock(0)) return failed(lock.error());
    tell(QStringLiteral("locked"));
    return QCoreApplication::exec();
}

int run(QStringList words) {
    const QString mode = words.value(0);
    if (mode == QLatin1String("lock")) return hold(words.value(1));
    if (mode == QLatin1String("copy")) {
        const QString problem = workbench::copyFolderWhole(words.value(1), words.value(2));
        return problem.isEmpty() ? 0 : failed(problem);
    }
    const QString error = Host::instance().loadInstallation(words.value(1));
    if (!error.isEmpty()) return failed(error);
    if (mode == QLatin1String("download")) return download(words.value(2));
    bool counted = false;
    int count = words.value(3).toInt(&counted);
    if (!counted) count = std::numeric_limits<int>::max();
    return mode == QLatin1String("create") ? create(words.value(2), count)
                                           : addHistory(words.value(2), count);
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    QStringList words = QCoreApplication::arguments().mid(1);
    if (words.value(0).startsWith(QLatin1String("die=")))
        dieBeyond(words.takeFirst().mid(4).toULong());
    return run(words);
}
