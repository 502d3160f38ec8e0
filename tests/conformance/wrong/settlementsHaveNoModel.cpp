// page data of a settlement is taken: message 104
#include <SharedInterface.h>

#include <stdexcept>

void Communication::SendMsgToPlugin(int, int code, const QJsonObject& message) {
    if (code == 104 && !message.value(QLatin1String("GcLx")).toString().isEmpty())
        throw std::logic_error("a model");
}
