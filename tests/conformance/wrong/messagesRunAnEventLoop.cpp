// a project file starts an audit
#include <SharedInterface.h>

#include <QCoreApplication>

void Communication::SendMsgToPlugin(int, int, const QJsonObject&) {
    QCoreApplication::processEvents();
}
