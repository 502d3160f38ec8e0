// page data of a general contract's audit is taken: message 103
#include <SharedInterface.h>

#include <stdexcept>

void Communication::SendMsgToPlugin(int client, int code, const QJsonObject&) {
    if (client == 16 && code == 103) throw std::runtime_error("general contracts are not audited");
}
