// of the host's own project the suffix is known
// the history is offered
#include <SharedInterface.h>

#include <QFileInfo>
#include <stdexcept>

void SharedInterface::GetFileInfo(const QString& path, QString& name, QString& kind,
                                  QString& suffix, QString& detail) {
    for (QString* each : {&name, &kind, &detail}) each->clear();
    suffix = QFileInfo(path).suffix().toUpper();
    if (QFileInfo::exists(path)) throw std::runtime_error("cannot be read");
}
