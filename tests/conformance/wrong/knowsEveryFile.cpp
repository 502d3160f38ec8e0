// of what is no project file nothing is known
#include <SharedInterface.h>

#include <QFileInfo>

void SharedInterface::GetFileInfo(const QString& path, QString& name, QString& kind,
                                  QString& suffix, QString& detail) {
    for (QString* each : {&name, &kind, &detail}) each->clear();
    suffix = QFileInfo(path).suffix().toUpper();
    if (QFileInfo::exists(path)) name = QFileInfo(path).completeBaseName();
}
