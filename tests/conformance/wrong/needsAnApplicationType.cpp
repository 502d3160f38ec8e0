// an estimate's page starts a project
// page data of an estimate is taken: message 102
// page data of no known kind is taken: message 0
#include <SharedInterface.h>

#include <stdexcept>

void Communication::SendMsgToPlugin(int, int code, const QJsonObject& message) {
    const bool page = code == 0 || (code >= 100 && code <= 105);
    if (page && !message.contains(QLatin1String("apptype"))) throw std::logic_error("no apptype");
}
