// page data of a budget is taken: message 100
#include <SharedInterface.h>

#include <QCoreApplication>

void Communication::SendMsgToPlugin(int, int code, const QJsonObject&) {
    if (code == 100) QCoreApplication::processEvents();
}
