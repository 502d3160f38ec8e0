#include "workbench/app/recordCommand.h"

#include <QApplication>
#include <QFileInfo>
#include <QProcess>
#include <QTimer>

#include "workbench/app/MainWindow.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/hostSwitches.h"
#include "workbench/record/Recorder.h"
#include "workbench/record/RecordingFile.h"
#include "workbench/record/scenarioText.h"
#include "workbench/scenario/TemporaryCopy.h"
#include "workbench/scenario/journalDiff.h"

namespace workbench {

namespace {

const int keepMs = 100;  ///< Between an entry of the journal and the file that has it.

/// What was recorded, and what a play of it must come to.
struct Recording {
    Scenario scenario;
    QVector<QJsonObject> journal;
    QStringList unsaid;
};

/// Keeps the file up to date: each step is there before it takes effect, since what it does may end
/// the program; what it did follows soon.
class Keeper : public QObject {
  public:
    Keeper(const Recorder& recorder, RecordingFile& file, const RecordOptions& options)
        : recorder(recorder), file(file), options(options) {
        soon.setSingleShot(true);
        soon.setInterval(keepMs);
        connect(&soon, &QTimer::timeout, this, &Keeper::keep);
        connect(&recorder, &Recorder::stepAdded, this, &Keeper::keep);
        connect(&recorder, &Recorder::entryAdded, this, [this] {
            if (!soon.isActive()) soon.start();
        });
    }

    Scenario scenario() const {
        return recorder.scenario(QStringLiteral("Recorded: ") +
                                 QFileInfo(options.file).completeBaseName());
    }
    /// A session in which nothing was done makes no file.
    void keep() {
        const Scenario now = scenario();
        if (now.steps.isEmpty()) return;
        const QString before = file.place();
        file.write(now);
        if (file.place() != before && !file.problem().isEmpty()) options.tell(notice(file));
    }
    static QString notice(const RecordingFile& file) {
        const QString& place = file.place();
        return file.problem() +
               (place.isEmpty() ? QStringLiteral("; nor can the system's temporary folder take it")
                                : QStringLiteral("; the recording stands in ") + place);
    }

  private:
    const Recorder& recorder;
    RecordingFile& file;
    const RecordOptions& options;
    QTimer soon;
};

/// Lets a person work. @return empty, or what is wrong with the installation.
QString watch(const RecordOptions& options, RecordingFile& file, Recording& into) {
    const TemporaryCopy copy(options.installation);
    if (!copy.error().isEmpty()) return copy.error();
    Installation original;
    QString error;
    // Where it lies first: what is wrong must be named by the person's own file.
    if (!Installation::load(options.installation, original, error)) return error;
    Host& host = Host::instance();
    host.reset();
    error = host.loadInstallation(copy.folder());
    if (!error.isEmpty()) return error;
    {
        const Recorder recorder;
        Keeper keeper(recorder, file, options);
        applyHostSettings(options.host);
        MainWindow window;
        window.showRecording();
        window.show();
        QApplication::exec();
        keeper.keep();
        into = {keeper.scenario(), recorder.journal(), recorder.unsaid()};
    }
    host.reset();
    return {};
}

QStringList linesOf(const QByteArray& utf8) {
    return QString::fromUtf8(utf8)
        .remove(QLatin1Char('\r'))
        .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

/// What a play of the recording has come to.
struct Verdict {
    QString summary;
    QStringList details;
    bool same = false;
};

/// Says what a play that has taken place came to.
Verdict verdictOf(QProcess& program, const QStringList& differs) {
    const bool crashed = program.exitStatus() != QProcess::NormalExit;
    Verdict verdict;
    verdict.same = differs.isEmpty() && !crashed && program.exitCode() == 0;
    verdict.summary = differs.isEmpty() ? QStringLiteral("a play of it gives the same journal")
                                        : QStringLiteral("a play of it gives another journal");
    if (verdict.same) return verdict;
    if (crashed)
        verdict.summary += QStringLiteral(", and crashes");
    else if (differs.isEmpty())
        verdict.summary += QStringLiteral(", but ends with %1").arg(program.exitCode());
    verdict.details =
        linesOf(program.readAllStandardOutput()) + linesOf(program.readAllStandardError());
    if (!differs.isEmpty())
        verdict.details += QStringList{QStringLiteral("--- recorded\n+++ played")} + differs;
    return verdict;
}

/// Plays the file in a process of its own, out of sight: nobody's mouse gets between.
/// @param file where the recording stands.
Verdict verify(const RecordOptions& options, const QString& file, const Recording& recording) {
    const QString unplayable = QStringLiteral("it could not be played");
    const TemporaryFolder folder;
    if (!folder.error().isEmpty()) return {unplayable, {folder.error()}};
    const QString journal = folder.path() + QStringLiteral("/journal");
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    program.setProcessEnvironment(environment);
    program.start(options.program, {QStringLiteral("play"), file, QStringLiteral("--installation"),
                                    options.installation, QStringLiteral("--journal"), journal});
    if (!program.waitForFinished(-1))
        return {unplayable, {options.program + QStringLiteral(": ") + program.errorString()}};
    QVector<QJsonObject> played;
    QString error;
    const bool ended = program.exitStatus() == QProcess::NormalExit;
    if ((ended && program.exitCode() == 2) || !readJournal(journal, played, error))
        return {unplayable, linesOf(program.readAllStandardError() + '\n' + error.toUtf8())};
    return verdictOf(program, journalDifference(recording.journal, played));
}

/// @return what to tell of the steps and of what no step says. @param code set to the exit code.
QStringList reportOf(const RecordOptions& options, const RecordingFile& file,
                     const Recording& recording, int& code) {
    code = 0;
    if (recording.scenario.steps.isEmpty())
        return {options.file +
                QStringLiteral(": nothing was done in the dialog, and no file is written")};
    if (file.place().isEmpty()) {
        code = 2;
        return {Keeper::notice(file), QString::fromUtf8(scenarioText(recording.scenario))};
    }
    const Verdict verdict = verify(options, file.place(), recording);
    QStringList report{file.place() + QStringLiteral(": ") + verdict.summary};
    report += verdict.details;
    if (!verdict.same) code = 1;
    if (file.problem().isEmpty()) return report;
    code = 2;
    return QStringList{Keeper::notice(file)} + report;
}

}  // namespace

int recordScenario(const RecordOptions& options, QString& report) {
    RecordingFile file(options.file, options.isSample ? QString() : options.installation);
    report = file.fault();
    if (!report.isEmpty()) return 2;
    Recording recording;
    report = watch(options, file, recording);
    if (!report.isEmpty()) return 2;
    int code = 0;
    QStringList lines = reportOf(options, file, recording, code);
    for (const QString& each : recording.unsaid)
        lines.append(QStringLiteral("not recorded: ") + each);
    report = lines.join(QLatin1Char('\n'));
    return code;
}

}  // namespace workbench
