#include "workbench/hostlibs/common/Host.h"

#include <set>
#include <stdexcept>
#include <string>

#include "workbench/hostlibs/common/FileDialogState.h"
#include "workbench/hostlibs/common/hostSwitches.h"
#include "workbench/journal/Journal.h"

int SharedInterface::firstOpenClose = 0;

namespace workbench {

namespace {

// A thrown character string has no owner, so that its text must outlive whoever catches it.
const char* lasting(const QString& text) {
    static std::set<std::string> texts;
    return texts.insert(text.toStdString()).first->c_str();
}

[[noreturn]] void throwAs(ThrowRule::As type, const QString& text) {
    if (type == ThrowRule::As::Literal) throw lasting(text);
    if (type == ThrowRule::As::String) throw text;
    if (type == ThrowRule::As::Other) throw 1;
    throw std::runtime_error(text.toStdString());
}

/// The journal's fault hook: what the switches ask for.
void throwIfAsked(const char* name, const QJsonArray& args) {
    const QLatin1String asked(name);
    for (ThrowRule& rule : Host::instance().switches().throws) {
        if (rule.call != asked || ++rule.seen != rule.nth) continue;
        Journal::instance().record(QStringLiteral("call"), asked, {{QStringLiteral("args"), args}});
        throwAs(rule.as, QString(rule.text));
    }
}

}  // namespace

Host::Host() {
    Journal::instance().setFaultHook(throwIfAsked);
}

Host& Host::instance() {
    static Host host;
    return host;
}

QString Host::loadInstallation(const QString& folder) {
    QString error;
    if (!Installation::load(folder, state.installation, error)) return error;
    state.switches.areaConfig.clear();
    state.switches.transactions.clear();
    applyHostSettings(state.installation.hostSettings);
    SharedInterface::firstOpenClose = state.installation.firstOpenClose;
    return {};
}

void Host::setScale(double scale) {
    scale = qBound(1.0, scale, 3.0);
    if (qFuzzyCompare(scale, state.scale)) return;
    state.scale = scale;
    Q_EMIT scaleChanged();
}

void Host::setSkin(const QString& skin) {
    if (skin == state.skin) return;
    state.skin = skin;
    Q_EMIT skinChanged();
}

void Host::reset() {
    const State fresh;
    state.switches = fresh.switches;
    state.installation = fresh.installation;
    state.mainWindow = nullptr;
    state.receiver = nullptr;
    SharedInterface::firstOpenClose = 0;
    resetFileDialog();
    setScale(fresh.scale);
    setSkin(fresh.skin);
}

void Host::deliver(int client, int code, const QVariant& payload) {
    // A copy: a receiver may put another one in its place while it runs.
    const Receiver receiver = state.receiver;
    if (receiver) receiver(client, code, payload);
}

}  // namespace workbench
