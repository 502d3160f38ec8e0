#include "workbench/hostlibs/common/Host.h"

#include <QPointer>
#include <set>
#include <stdexcept>
#include <string>

#include "workbench/hostlibs/common/FileDialogState.h"
#include "workbench/hostlibs/common/hostSwitches.h"
#include "workbench/journal/Journal.h"

int SharedInterface::firstOpenClose = 0;

namespace workbench {

struct Host::Data {
    Switches switches;
    Installation installation;
    QPointer<QWidget> mainWindow;
    double scale = 1.0;
    QString skin = lightSkin;
    Receiver receiver;
};

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

Host::Host() : d(new Data) {
    Journal::instance().setFaultHook(throwIfAsked);
}

Host::~Host() {
    delete d;
}

Host& Host::instance() {
    static Host host;
    return host;
}

Switches& Host::switches() {
    return d->switches;
}

Installation& Host::installation() {
    return d->installation;
}

QString Host::loadInstallation(const QString& folder) {
    QString error;
    if (!Installation::load(folder, d->installation, error)) return error;
    d->switches.areaConfig.clear();
    d->switches.transactions.clear();
    applyHostSettings(d->installation.hostSettings);
    SharedInterface::firstOpenClose = d->installation.firstOpenClose;
    return {};
}

QWidget* Host::mainWindow() const {
    return d->mainWindow;
}

void Host::setMainWindow(QWidget* window) {
    d->mainWindow = window;
}

double Host::scale() const {
    return d->scale;
}

void Host::setScale(double scale) {
    scale = qBound(1.0, scale, 3.0);
    if (qFuzzyCompare(scale, d->scale)) return;
    d->scale = scale;
    Q_EMIT scaleChanged();
}

QString Host::skin() const {
    return d->skin;
}

void Host::setSkin(const QString& skin) {
    if (skin == d->skin) return;
    d->skin = skin;
    Q_EMIT skinChanged();
}

void Host::reset() {
    const Data fresh;
    d->switches = fresh.switches;
    d->installation = fresh.installation;
    d->mainWindow = nullptr;
    d->receiver = nullptr;
    SharedInterface::firstOpenClose = 0;
    resetFileDialog();
    setScale(fresh.scale);
    setSkin(fresh.skin);
    Q_EMIT wasReset();
}

void Host::setReceiver(Receiver receiver) {
    d->receiver = std::move(receiver);
}

void Host::deliver(int client, int code, const QVariant& payload) {
    // A copy: a receiver may put another one in its place while it runs.
    const Receiver receiver = d->receiver;
    if (receiver) receiver(client, code, payload);
}

}  // namespace workbench
