// of the host's own project the suffix is known
#include <SharedInterface.h>

#include <QFileInfo>

void SharedInterface::GetFileInfo(const QString& path, QString& name, QString& kind,
                                  QString& suffix, QString& detail) {
    for (QString* each : {&name, &kind, &detail}) each->clear();
    const QFileInfo file(path);
    suffix = file.exists() ? QStringLiteral("工程") : file.suffix().toUpper();
}
