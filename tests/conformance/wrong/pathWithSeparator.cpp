// GetAppPath is a folder, without separator at its end
#include <SharedInterface.h>

#include <QDir>

QString SharedInterface::GetAppPath() {
    return QDir::tempPath() + QLatin1Char('/');
}
