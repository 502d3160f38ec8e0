// suffixes are answered in upper case
// the process crashes
// hold, 1 differ, 4 not reached
#include <SharedInterface.h>

#include <QFileInfo>

static int depthOf(const QString& path, volatile int* outer) {
    volatile int here[1024] = {outer ? outer[0] + 1 : 0};
    return path.isEmpty() ? here[0] : depthOf(path, here) + here[0];
}

void SharedInterface::GetFileInfo(const QString& path, QString& name, QString& kind,
                                  QString& suffix, QString& detail) {
    for (QString* each : {&name, &kind, &suffix, &detail}) each->clear();
    if (GetProgramTypeByFile(path) == -1) return;
    suffix = QFileInfo(path).suffix().toUpper();
    if (path.endsWith(QLatin1String(".gcfx"))) suffix = QString::number(depthOf(path, nullptr));
}
