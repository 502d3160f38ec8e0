// a project file starts general contracting
#include <SharedInterface.h>

#include <stdexcept>

void Communication::SendMsgToPlugin(int, int code, const QJsonObject&) {
    if (code == 114) throw std::runtime_error("no plug-in listens");
}
