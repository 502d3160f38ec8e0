// of a missing file only the suffix is known
#include <SharedInterface.h>

void SharedInterface::GetFileInfo(const QString&, QString& name, QString& kind, QString& suffix,
                                  QString& detail) {
    name = kind = detail = QStringLiteral("known");
    suffix = QStringLiteral("GCFX");
}
