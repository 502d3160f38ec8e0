// the tender import takes a file
#include <SharedInterface.h>

#include <stdexcept>

void Communication::SendMsgToPlugin(int, int code, const QJsonObject&) {
    if (code == 108) throw std::runtime_error("no tenders here");
}
