#include "workbench/record/RecordingFile.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QTemporaryFile>

#include "workbench/base/fileSystem.h"
#include "workbench/record/scenarioText.h"

namespace workbench {

RecordingFile::RecordingFile(QString path, QString installation)
    : path(std::move(path)), installation(std::move(installation)) {}

QString RecordingFile::fault() const {
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) ? QString()
                                           : path + QStringLiteral(": ") + file.errorString();
}

void RecordingFile::write(const Scenario& scenario) {
    reason = written(path, scenario);
    if (!reason.isEmpty()) return writeElsewhere(scenario);
    standsIn = path;
    if (!spare.isEmpty()) QFile::remove(spare);
    spare.clear();
}

void RecordingFile::writeElsewhere(const Scenario& scenario) {
    const QString place = temporaryPlace();
    if (spare.isEmpty() && !place.isEmpty()) {
        QTemporaryFile fresh(
            QStringLiteral("%1/%2-XXXXXX.json").arg(place, QFileInfo(path).completeBaseName()));
        fresh.setAutoRemove(false);
        if (fresh.open()) spare = fresh.fileName();
    }
    const bool kept = !spare.isEmpty() && written(spare, scenario).isEmpty();
    standsIn = kept ? spare : QString();
    if (kept || QFileInfo(spare).size() > 0) return;  // what it held before is better than nothing
    if (!spare.isEmpty()) QFile::remove(spare);
    spare.clear();
}

/// @return empty, or why it could not be written; what was there before then stays.
QString RecordingFile::written(const QString& file, Scenario scenario) const {
    if (!installation.isEmpty())
        scenario.installation = QFileInfo(file).absoluteDir().relativeFilePath(installation);
    const QByteArray content = scenarioText(scenario);
    QSaveFile target(file);
    const bool right = target.open(QIODevice::WriteOnly) &&
                       target.write(content) == content.size() && target.commit();
    return right ? QString() : QStringLiteral("%1: %2").arg(file, target.errorString());
}

}  // namespace workbench
