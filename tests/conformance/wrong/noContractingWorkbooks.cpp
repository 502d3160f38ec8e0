// the Excel import takes a folder of a general contract
#include <SharedInterface.h>

#include <stdexcept>

void Communication::SendMsgToPlugin(int client, int code, const QJsonObject&) {
    if (client == 16 && code == 107) throw std::runtime_error("general contracts import nothing");
}
