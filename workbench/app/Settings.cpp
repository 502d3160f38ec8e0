#include "workbench/app/Settings.h"

#include <QDir>
#include <QLocale>

#include "workbench/app/Surface.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/hostSwitches.h"

namespace workbench {

namespace {

const char* const geometryKey = "window/geometry";
const char* const docksKey = "window/docks";
const char* const languageKey = "look/language";
const char* const installationsKey = "installations/recent";
const int mostInstallations = 8;

/// @return a kept value, where a scenario could have it too; else nothing.
QJsonValue soundValue(const QVariant& kept, const char* name) {
    const Field field = fieldNamed(hostFields(), name);
    QJsonValue value(kept.toString());
    if (field.shape == Shape::Number) value = kept.toDouble();
    const bool known = field.shape != Shape::Word || field.words.contains(value.toString());
    const bool sound = known && (!field.fault || field.fault(value).isEmpty());
    return kept.isValid() && sound ? value : QJsonValue(QJsonValue::Undefined);
}

}  // namespace

Settings::Settings(const QString& file) : values(file, QSettings::IniFormat) {}

void Settings::applyLook() {
    QJsonObject look;
    for (const char* name : {"skin", "scale"}) {
        const QVariant kept = values.value(QStringLiteral("look/") + QLatin1String(name));
        const QJsonValue value = soundValue(kept, name);
        if (!value.isUndefined()) look.insert(QLatin1String(name), value);
    }
    applyHostSettings(look);
    const int chosen = languageWords().indexOf(values.value(QLatin1String(languageKey)).toString());
    Surface::instance().setLanguage(chosen < 0 ? languageOf(QLocale::system()) : Language(chosen));
}

void Settings::follow() {
    Host& host = Host::instance();
    connect(&host, &Host::skinChanged, this, [this, &host] { set("look/skin", host.skin()); });
    connect(&Surface::instance(), &Surface::languageChanged, this,
            [this] { set(languageKey, languageWords().at(int(Surface::instance().language()))); });
}

void Settings::keepScale(double scale) {
    set("look/scale", qRound(scale * 100));
}

bool Settings::restore(QMainWindow& window) const {
    const QByteArray geometry = values.value(QLatin1String(geometryKey)).toByteArray();
    const bool restored = window.restoreGeometry(geometry);
    window.restoreState(values.value(QLatin1String(docksKey)).toByteArray());
    return restored;
}

void Settings::keep(const QMainWindow& window) {
    values.setValue(QLatin1String(docksKey), window.saveState());
    set(geometryKey, window.saveGeometry());
}

QStringList Settings::installations() const {
    return values.value(QLatin1String(installationsKey)).toStringList();
}

void Settings::addInstallation(const QString& folder) {
    QStringList folders = installations();
    folders.removeAll(folder);
    folders.prepend(folder);
    set(installationsKey, QStringList(folders.mid(0, mostInstallations)));
}

void Settings::forgetInstallations() {
    set(installationsKey, QStringList());
}

/// Written at once: a killed program has lost nothing, and a full disk is told when it is met.
void Settings::set(const char* key, const QVariant& value) {
    values.setValue(QLatin1String(key), value);
    QDir().mkpath(QFileInfo(file()).path());
    values.sync();
    if (!isWritten()) Q_EMIT unwritten();
}

}  // namespace workbench
