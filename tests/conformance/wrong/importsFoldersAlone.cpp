// the Excel import takes a workbook
#include <SharedInterface.h>

#include <stdexcept>

void Communication::SendMsgToPlugin(int, int code, const QJsonObject& message) {
    if (code == 107 && message.value(QLatin1String("type")).toInt() == 0)
        throw std::runtime_error("no folder");
}
