#include "workbench/app/recordCommand.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QSaveFile>
#include <QTemporaryDir>

#include "workbench/app/MainWindow.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/hostSwitches.h"
#include "workbench/record/Recorder.h"
#include "workbench/record/scenarioText.h"
#include "workbench/scenario/TemporaryCopy.h"
#include "workbench/scenario/journalDiff.h"

namespace workbench {

namespace {

/// What was recorded, and what a play of it must come to.
struct Recording {
    Scenario scenario;
    QVector<QJsonObject> journal;
    QStringList unsaid;
};

/// @param content written whole, or not at all. Null: it is only tried whether it could be.
/// @return empty, or why it cannot be written.
QString written(const QString& path, const QByteArray& content) {
    QSaveFile file(path);
    const bool right =
        file.open(QIODevice::WriteOnly) &&
        (content.isNull() || (file.write(content) == content.size() && file.commit()));
    return right ? QString() : QStringLiteral("%1: %2").arg(path, file.errorString());
}

/// Lets a person work. @return empty, or what is wrong with the installation.
QString watch(const RecordOptions& options, Recording& into) {
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
        applyHostSettings(options.host);
        MainWindow window;
        window.show();
        QApplication::exec();
        const QString name = QFileInfo(options.file).completeBaseName();
        into = {recorder.scenario(QStringLiteral("Recorded: ") + name), recorder.journal(),
                recorder.unsaid()};
    }
    host.reset();
    return {};
}

/// Plays the file in a process of its own, out of sight: nobody's mouse gets between.
/// @return empty where the play gives the same journal; else what differs.
QStringList verify(const RecordOptions& options, const Recording& recording) {
    const QTemporaryDir folder;
    const QString journal = folder.filePath(QStringLiteral("journal"));
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
    program.setProcessEnvironment(environment);
    program.start(options.program,
                  {QStringLiteral("play"), options.file, QStringLiteral("--installation"),
                   options.installation, QStringLiteral("--journal"), journal});
    if (!program.waitForFinished(-1)) return {program.errorString()};
    const bool asExpected = program.exitStatus() == QProcess::NormalExit && program.exitCode() == 0;
    QVector<QJsonObject> played;
    QString error;
    if (!readJournal(journal, played, error))
        return {QString::fromUtf8(program.readAllStandardError()), error};
    QStringList differs = journalDifference(recording.journal, played);
    if (differs.isEmpty() && asExpected) return {};
    differs.prepend(QStringLiteral("--- recorded\n+++ played"));
    const QString told = QString::fromUtf8(program.readAllStandardOutput());
    for (const QString& line : told.split(QLatin1Char('\n')).filter(QStringLiteral("ended early")))
        differs.prepend(line.trimmed());
    return differs;
}

}  // namespace

int recordScenario(const RecordOptions& options, QString& report) {
    report = written(options.file, {});
    if (!report.isEmpty()) return 2;
    Recording recording;
    report = watch(options, recording);
    if (!report.isEmpty()) return 2;
    if (!options.isSample)
        recording.scenario.installation =
            QFileInfo(options.file).absoluteDir().relativeFilePath(options.installation);
    report = written(options.file, scenarioText(recording.scenario));
    if (!report.isEmpty()) return 2;
    const QStringList differs = verify(options, recording);
    if (differs.isEmpty()) {
        report = QStringLiteral("%1: a play of it gives the same journal").arg(options.file);
        return 0;
    }
    report = QStringLiteral("%1: a play of it gives another journal\n%2")
                 .arg(options.file, differs.join(QLatin1Char('\n')));
    for (const QString& each : recording.unsaid)
        report += QStringLiteral("\nnot recorded: ") + each;
    return 1;
}

}  // namespace workbench
