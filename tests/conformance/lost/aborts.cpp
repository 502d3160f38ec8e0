// page data of no known kind is taken: message 0
// the process crashes
// hold, 1 differ, 4 not reached
#include <SharedInterface.h>

void Communication::SendMsgToPlugin(int, int code, const QJsonObject&) {
    if (code == 0) qFatal("no such message");
}
