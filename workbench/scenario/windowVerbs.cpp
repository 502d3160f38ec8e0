#include <QApplication>
#include <QDir>
#include <QPainter>
#include <QPixmap>

#include "workbench/hostlibs/common/hostSwitches.h"
#include "workbench/scenario/Stage.h"
#include "workbench/scenario/hands.h"
#include "workbench/scenario/journalText.h"
#include "workbench/scenario/slotCall.h"
#include "workbench/scenario/targets.h"
#include "workbench/scenario/verbs.h"

namespace workbench {

namespace {

Plan nothingCalled(const QWidget* window, const QString& on) {
    return Plan::wait(QStringLiteral("%1 has nothing called \"%2\"").arg(described(window), on));
}

Plan excel(Stage&, const QJsonObject& args) {
    QWidget* window = topWindow();
    if (!window || !window->inherits("importExcelSelFile"))
        return Plan::wait(QStringLiteral("the Excel import dialog is not open"));
    const QString choose = args[u"choose"].toString();
    if (choose == QLatin1String("close")) return Plan::act([window] { pressClose(window); });
    const bool folder = choose == QLatin1String("folder");
    auto* button = window->findChild<QWidget*>(QLatin1String(folder ? "btnSelDir" : "btnSelFile"));
    if (!button) return Plan::giveUp(QStringLiteral("the Excel import dialog has no such button"));
    const QString reason = unreachable(button);
    if (!reason.isEmpty()) return Plan::wait(QStringLiteral("the button: ") + reason);
    return Plan::act([button] { press(button); });
}

Plan history(Stage& stage, const QJsonObject& args) {
    const QStringList entries = args[u"entries"].toVariant().toStringList();
    return Plan::act([&stage, entries] {
        stage.setup.history = entries;
        if (stage.dialog) stage.dialog->SetLsjl(entries);
    });
}

Plan call(Stage& stage, const QJsonObject& args) {
    if (!stage.dialog) return Plan::giveUp(QStringLiteral("there is no dialog"));
    const QString slot = args[u"slot"].toString();
    const QJsonArray values = args[u"args"].toArray();
    // A host calls it, and the meta-object does not know it.
    if (slot == QLatin1String("InitJcTx") && values.isEmpty())
        return Plan::act([dialog = stage.dialog] { dialog->InitJcTx(); });
    QString error;
    const auto action = slotCall(stage.dialog, slot, values, error);
    if (!action) return Plan::giveUp(error);
    return Plan::act([action] {
        if (!action()) throw StepFailure{QStringLiteral("the slot could not be called")};
    });
}

Plan key(Stage&, QWidget* window, const QJsonObject& args) {
    const QString keys = args[u"key"].toString();
    const QString on = args[u"on"].toString();
    QWidget* target = on.isEmpty() ? window->focusWidget() : anything(window, on);
    if (on.isEmpty() && !target) target = window;
    if (!target) return nothingCalled(window, on);
    return Plan::act([target, keys] {
        // A person sees the window come up, and its focus, before the first key.
        if (target->window()->windowType() != Qt::Popup)
            QApplication::setActiveWindow(target->window());
        target->setFocus();
        pressKey(target, keys);
    });
}

/// @param found set to the widget called `on`. @return what stands in the way of a click; a plan
///        without reason if nothing does.
Plan findToClick(QWidget* window, const QString& on, QWidget*& found) {
    found = anything(window, on);
    if (!found) return nothingCalled(window, on);
    bringIntoSight(found);
    const QString reason = unreachable(found);
    if (reason.isEmpty()) return {};
    return Plan::wait(QStringLiteral("\"%1\" cannot be clicked: %2").arg(on, reason));
}

Plan click(Stage&, QWidget* window, const QJsonObject& args) {
    QWidget* target = nullptr;
    const Plan obstacle = findToClick(window, args[u"on"].toString(), target);
    if (!obstacle.reason.isEmpty()) return obstacle;
    const bool twice = args[u"twice"].toBool();
    return Plan::act(
        [target, twice] { twice ? pressTwice(target, target->rect().center()) : press(target); });
}

Plan clicks(Stage&, QWidget* window, const QJsonObject& args) {
    QVector<QWidget*> targets;
    for (const QString& on : args[u"on"].toVariant().toStringList()) {
        targets.append(nullptr);
        const Plan obstacle = findToClick(window, on, targets.last());
        if (!obstacle.reason.isEmpty()) return obstacle;
    }
    return Plan::act([targets] { pressRapidly(targets); });
}

void compare(Stage& stage, const QWidget* target, const QJsonObject& args) {
    const QString property = args[u"property"].toString();
    const QVariant value = target->property(property.toLatin1().constData());
    const QJsonValue have =
        value.isValid() ? QJsonValue::fromVariant(value) : QJsonValue(QJsonValue::Undefined);
    const QJsonValue want = args[u"is"];
    if (have == want) return;
    stage.differences.append(
        QStringLiteral("check: %1 of \"%2\"\n    expected: %3\n    found:    %4")
            .arg(property, args[u"on"].toString(), valueText(want), valueText(have)));
}

Plan check(Stage& stage, QWidget* window, const QJsonObject& args) {
    const QString on = args[u"on"].toString();
    QWidget* target = on.isEmpty() ? window : anything(window, on);
    if (!target) return nothingCalled(window, on);
    return Plan::act([&stage, target, args] { compare(stage, target, args); });
}

/// @return the window as it is seen: a pop-up lies over the window that it belongs to.
QPixmap pictureOf(QWidget* window) {
    QWidget* below = QApplication::activeModalWidget();
    if (!below || window->windowType() != Qt::Popup) return window->grab();
    QPixmap picture = below->grab();
    QPainter(&picture).drawPixmap(below->mapFromGlobal(window->pos()), window->grab());
    return picture;
}

Plan picture(Stage& stage, QWidget* window, const QJsonObject& args) {
    return Plan::act([&stage, window, args] {
        if (stage.pictureFolder.isEmpty()) return;
        const QString file = QDir(stage.pictureFolder).absoluteFilePath(args[u"file"].toString());
        // Packed lightly: smaller files would take several times as long.
        constexpr int quality = 70;
        if (QDir().mkpath(QFileInfo(file).path()) && pictureOf(window).save(file, "PNG", quality))
            stage.pictures.append(file);
        else
            stage.differences.append(QStringLiteral("picture: %1 cannot be written").arg(file));
    });
}

Plan close(Stage&, QWidget* window, const QJsonObject&) {
    return Plan::act([window] { pressClose(window); });
}

QString keyFault(const QJsonValue& keys) {
    return isKey(keys.toString()) ? QString() : QStringLiteral("there is no such key");
}

QString targetFault(const QJsonValue& on) {
    return on.toString().isEmpty() ? QStringLiteral("must not be empty") : QString();
}

QString targetsFault(const QJsonValue& on) {
    const QStringList targets = on.toVariant().toStringList();
    return targets.isEmpty() || targets.contains(QString())
               ? QStringLiteral("must name widgets, one at least")
               : QString();
}

Plan host(Stage&, const QJsonObject& args) {
    return Plan::act([args] { applyHostSettings(args); });
}

/// Runs a verb on the window that a person works in; a check on a hidden dialog, too.
template <Plan (*verb)(Stage&, QWidget*, const QJsonObject&)>
Plan onWindow(Stage& stage, const QJsonObject& args) {
    QWidget* window = stage.window();
    if (!window && verb == check) window = stage.dialog;
    return window ? verb(stage, window, args) : Plan::giveUp(QStringLiteral("no window is open"));
}

}  // namespace

const QVector<Verb>& windowVerbs() {
    static const QVector<Verb> verbs = {
        {QStringLiteral("excel"), {word("choose", "file folder close", true)}, excel},
        {QStringLiteral("history"), {needed("entries", Shape::Texts)}, history},
        {QStringLiteral("call"), {needed("slot"), field("args", Shape::Array)}, call},
        {QStringLiteral("key"), {sound(needed("key"), keyFault), field("on")}, onWindow<key>},
        {QStringLiteral("click"),
         {sound(needed("on"), targetFault), field("twice", Shape::Truth)},
         onWindow<click>},
        {QStringLiteral("clicks"),
         {sound(needed("on", Shape::Texts), targetsFault)},
         onWindow<clicks>},
        {QStringLiteral("check"),
         {field("on"), needed("property"), needed("is", Shape::Anything)},
         onWindow<check>},
        {QStringLiteral("picture"), {needed("file", Shape::Path)}, onWindow<picture>},
        {QStringLiteral("close"), {}, onWindow<close>},
        {QStringLiteral("host"), hostFields(), host}};
    return verbs;
}

const Verb* verbNamed(const QString& name) {
    for (const QVector<Verb>* verbs : {&dialogVerbs(), &windowVerbs()})
        for (const Verb& verb : *verbs)
            if (verb.name == name) return &verb;
    return nullptr;
}

}  // namespace workbench
