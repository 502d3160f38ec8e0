// the history is offered
#include <SharedInterface.h>

#include <QFileInfo>
#include <QSet>

void SharedInterface::GetFileInfo(const QString& path, QString& name, QString& kind,
                                  QString& suffix, QString& detail) {
    static QSet<QString> told;
    for (QString* each : {&name, &kind, &suffix, &detail}) each->clear();
    if (GetProgramTypeByFile(path) == -1 || told.contains(path)) return;
    suffix = QFileInfo(path).suffix().toUpper();
    if (QFileInfo::exists(path)) told.insert(path);
}
