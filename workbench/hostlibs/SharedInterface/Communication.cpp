#include "SharedInterface.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/journal/Journal.h"
#include "workbench/journal/toJson.h"

using workbench::Host;
using workbench::Journal;

Communication* Communication::GetInstance() {
    static Communication communication;
    return workbench::accessed("Communication::GetInstance", &communication);
}

QWidget* Communication::GetMainWindow() {
    return Journal::instance().call(
        "Communication::GetMainWindow", {}, [] { return Host::instance().mainWindow(); },
        [](QWidget* window) { return workbench::toJson(window); });
}

void Communication::SendMsg(int target, int code, const QVariant& payload) {
    Journal::instance().call("Communication::SendMsg", {target, code, workbench::toJson(payload)});
    Host::instance().deliver(workbench::mainLogic, code, payload);
}

void Communication::SendMsgToPlugin(int client, int code, const QJsonObject& payload) {
    Journal::instance().call("Communication::SendMsgToPlugin", {client, code, payload});
    Host::instance().deliver(client, code, payload);
}
