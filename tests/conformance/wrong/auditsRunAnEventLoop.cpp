// a project file starts an audit
#include <SharedInterface.h>

#include <QCoreApplication>

void Communication::SendMsgToPlugin(int client, int code, const QJsonObject&) {
    if (client == 4 && code == 103) QCoreApplication::processEvents();
}
