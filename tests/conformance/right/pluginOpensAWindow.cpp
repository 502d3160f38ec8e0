// A plug-in that answers a message with a window of its own.
#include <SharedInterface.h>

#include <QDialog>

void Communication::SendMsgToPlugin(int, int, const QJsonObject&) {
    QDialog().exec();
}
