// a project file starts an audit
#include <SharedInterface.h>

#include <stdexcept>

void Communication::SendMsgToPlugin(int, int, const QJsonObject&) {
    throw std::runtime_error("no plug-in listens");
}
