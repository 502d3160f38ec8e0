// page data of an estimate is taken: message 102
#include <SharedInterface.h>

#include <stdexcept>

void Communication::SendMsgToPlugin(int, int code, const QJsonObject& message) {
    const auto has = [&](const char* key) {
        return !message.value(QLatin1String(key)).toString().isEmpty();
    };
    if (code == 102 && has("GcLj") && !has("GsMb")) throw std::logic_error("no template");
}
