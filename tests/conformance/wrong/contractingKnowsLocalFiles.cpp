// a cloud path starts general contracting
#include <SharedInterface.h>

#include <stdexcept>

#include "../cloudHost.h"

CloudHost& cloudHost() {
    static CloudHost host;
    return host;
}

void Communication::SendMsgToPlugin(int, int, const QJsonObject& message) {
    const QString file = message.value(QLatin1String("pro_file")).toString();
    if (!file.isEmpty() && !QFile::exists(file)) throw std::runtime_error("no such file");
}
