#include "workbench/app/journalCommands.h"

#include <QCoreApplication>

#include "workbench/app/playCommands.h"
#include "workbench/app/recordCommand.h"
#include "workbench/scenario/journalDiff.h"

namespace workbench {

int diffJournals(const CommandLine& line) {
    QVector<QJsonObject> journals[2];
    bool right = true;
    for (int i = 0; i < 2; ++i) {
        QString error;
        if (readJournal(line.files[i], journals[i], error)) continue;
        complain(error);
        right = false;
    }
    if (!right) return 2;
    const QStringList difference = journalDifference(journals[0], journals[1]);
    if (difference.isEmpty()) return 0;
    print(QStringLiteral("--- %1\n+++ %2").arg(line.files[0], line.files[1]));
    for (const QString& each : difference) print(each);
    return 1;
}

int recordFile(const CommandLine& line) {
    RecordOptions options;
    options.file = line.files.first();
    options.isSample = line.installation.isEmpty();
    options.installation = options.isSample ? sampleInstallation() : line.installation;
    options.host = line.host;
    options.program = QCoreApplication::applicationFilePath();
    options.tell = complain;
    QString report;
    const int result = recordScenario(options, report);
    result == 2 ? complain(report) : print(report);
    return result;
}

}  // namespace workbench
