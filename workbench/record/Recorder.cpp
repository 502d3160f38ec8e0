#include "workbench/record/Recorder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>

#include "fileDialog.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/hostSwitches.h"
#include "workbench/journal/Journal.h"
#include "workbench/record/hits.h"
#include "workbench/scenario/hands.h"
#include "workbench/scenario/hostDialog.h"
#include "workbench/scenario/journalDiff.h"

namespace workbench {

namespace {

QString key(const char* ascii) {
    return QLatin1String(ascii);
}

bool isModules(const QWidget* window) {
    return window->inherits("NewProCfgDialog") || window->inherits("xzGcLxDialog") ||
           window->inherits("importExcelSelFile");
}

/// @return the value of a switch as a scenario has it: of several words those that are true.
QJsonValue valueOf(const HostSwitch& each) {
    const QJsonValue value = each.get();
    if (each.field.shape == Shape::Word && value.isBool())
        return each.field.words.at(value.toBool() ? 1 : 0);
    if (each.field.shape != Shape::Words) return value;
    QJsonArray words;
    for (const QString& word : each.field.words)
        if (value[word].toBool()) words.append(word);
    return words;
}

/// @return the switches that a scenario can set and the host can be asked for.
QJsonObject switchesOfHost() {
    QJsonObject values;
    for (const HostSwitch& each : hostSwitches())
        if (each.access.get && each.text) values.insert(each.field.key, valueOf(each));
    return values;
}

/// Sets a member by its key, in which a dot leads into an object.
void setIn(QJsonObject& object, const QString& path, const QJsonValue& value) {
    const QString first = path.section(QLatin1Char('.'), 0, 0);
    const QString rest = path.section(QLatin1Char('.'), 1);
    if (rest.isEmpty()) return void(object.insert(first, value));
    QJsonObject inner = object.value(first).toObject();
    setIn(inner, rest, value);
    object.insert(first, inner);
}

/// @return whether a key in a field for a path changes or marks the text there, and no more.
bool types(const QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Backspace:
        case Qt::Key_Delete:
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Home:
        case Qt::Key_End:
            return true;
        default:
            return event->modifiers() & Qt::ControlModifier ||
                   (!event->text().isEmpty() && event->text().at(0).isPrint());
    }
}

/// @return a path that is there in a play, too: nothing has been downloaded then, and a file of a
///         cloud disk stands for its copy.
QString playable(QString path, const QString& folder) {
    if (zFileDialog::yunpanFile.isEmpty()) return path;
    return path.replace(folder + key("/Downloads/"), folder + key("/CloudDisks/"));
}

/// @param path what the file dialog has answered just now. @return the answer for a play.
QJsonObject fileAnswer(const QString& path) {
    if (path.isEmpty()) return {{key("cancel"), true}};
    QJsonObject answer{{key("path"), path}, {key("place"), zFileDialog::iClickedBtn}};
    if (!zFileDialog::yunpanFile.isEmpty())
        answer.insert(key("cloudPath"), zFileDialog::yunpanFile);
    return answer;
}

/// @return the keys of the step that opens this dialog.
QJsonObject startOf(const QWidget* dialog) {
    const QString entry = dialog->property(startEntryProperty).toString();
    return entry.isEmpty() ? QJsonObject() : QJsonObject{{key("entry"), entry}};
}

bool isModifier(int key) {
    return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_AltGr;
}

}  // namespace

Recorder::Recorder() : known(switchesOfHost()), folder(Host::instance().installation().folder) {
    qApp->installEventFilter(this);
    connect(&Journal::instance(), &Journal::recorded, this, &Recorder::noticeEntry);
}

bool Recorder::eventFilter(QObject* watched, QEvent* event) {
    if (watched->isWidgetType()) notice(static_cast<QWidget*>(watched), event);
    return false;
}

// An event that a widget does not take comes again for its parent: only the first is noticed.
void Recorder::notice(QWidget* widget, QEvent* event) {
    const bool modules = isModules(widget->window());
    const auto first = [widget](const QPointer<QWidget>& last) {
        return !last || last == widget || !widget->isAncestorOf(last);
    };
    switch (event->type()) {
        case QEvent::Show:
            return noticeShow(widget);
        case QEvent::Close:
            if (modules && event->spontaneous()) add({key("close"), {}});
            return;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            inPopup = widget->window()->windowType() == Qt::Popup;
            if (!modules || static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton) return;
            if (first(pressed)) noticePress(widget, event->type() == QEvent::MouseButtonDblClick);
            return;
        case QEvent::MouseButtonRelease:
            if (inPopup) noticeMenu(widget, event);
            if (pressed == widget) noticeRelease(widget, static_cast<QMouseEvent*>(event));
            return;
        case QEvent::KeyPress:
            inPopup = QApplication::activePopupWidget();
            if (inPopup) return noticeMenu(widget, event);
            if (modules && first(keyDown)) noticeKey(widget, static_cast<QKeyEvent*>(event));
            return;
        case QEvent::KeyRelease:
            keyDown = nullptr;
            return;
        default:
            return;
    }
}

void Recorder::noticeShow(QWidget* window) {
    const bool chooser = window->inherits("xzGcLxDialog");
    if (!chooser && !window->inherits("NewProCfgDialog")) return;
    folder = Host::instance().installation().folder;
    const bool chosen = kindChosen;
    kindChosen = false;
    if (chooser)
        add({key("open"), {{key("dialog"), key("xzGcLxDialog")}}});
    else if (!chosen)
        add({key("open"), startOf(window)});
}

void Recorder::noticePress(QWidget* widget, bool twice) {
    pressed = widget;
    doubled = false;
    if (auto* combo = around<QComboBox>(widget)) return watch(combo);
    // A menu opens while the button is held.
    const Step step = stepOfClick(widget, false);
    menuStep = step.args.value(key("use")) == key("menu") ? step : Step();
    // A button takes the second press of two like any other.
    if (!twice || around<QAbstractButton>(widget)) return;
    if (clicked == widget) steps.removeLast();
    click(widget, true);
    doubled = true;
}

void Recorder::noticeRelease(QWidget* widget, const QMouseEvent* event) {
    pressed = nullptr;
    if (doubled || !widget->rect().contains(event->pos()) || around<QComboBox>(widget)) return;
    const int before = steps.size();
    click(widget, false);
    if (steps.size() > before) clicked = widget;
}

void Recorder::click(QWidget* widget, bool twice) {
    const Step step = stepOfClick(widget, twice);
    if (step.args.value(key("use")) == key("menu")) return;
    if (!step.verb.isEmpty()) return add(step);
    clicked = nullptr;
    lost.append(QStringLiteral("a click on %1 behind step %2")
                    .arg(QLatin1String(widget->metaObject()->className()))
                    .arg(steps.size()));
}

/// The entry of a card's menu completes the step; other pop-ups tell by what they change.
void Recorder::noticeMenu(QWidget* menu, QEvent* event) {
    const auto* shown = qobject_cast<QMenu*>(menu);
    if (!shown) return;
    // A menu that was opened by key is gone through by key.
    if (menuStep.verb.isEmpty()) {
        const QWidget* owner = menu->parentWidget();
        if (event->type() == QEvent::KeyPress && owner && isModules(owner->window()))
            noticeKey(menu, static_cast<QKeyEvent*>(event));
        return;
    }
    const QAction* entry = shown->activeAction();
    if (event->type() == QEvent::MouseButtonRelease)
        entry = shown->actionAt(static_cast<QMouseEvent*>(event)->pos());
    else if (static_cast<QKeyEvent*>(event)->key() != Qt::Key_Return)
        return;
    if (!entry) return;
    menuStep.args.insert(key("mode"), entry->text().section(QLatin1Char('('), 0, 0));
    add(menuStep);
    menuStep = {};
}

void Recorder::noticeKey(QWidget* widget, const QKeyEvent* event) {
    keyDown = widget;
    auto* combo = around<QComboBox>(widget);
    if (combo) watch(combo);
    if (isModifier(event->key()) || (combo && combo->isEditable() && types(event))) return;
    const QKeySequence keys(event->key() | int(event->modifiers() & ~Qt::KeypadModifier));
    Step step{key("key"), {{key("key"), keys.toString(QKeySequence::PortableText)}}};
    const QString on = nameOf(combo ? combo : widget);
    if (event->key() != Qt::Key_Escape && !on.isEmpty()) step.args.insert(key("on"), on);
    if (isKey(step.args.value(key("key")).toString())) add(step);
}

void Recorder::watch(QComboBox* combo) {
    connect(combo, qOverload<int>(&QComboBox::activated), this, &Recorder::noticeChoice,
            Qt::UniqueConnection);
    if (!combo->lineEdit()) return;
    disconnect(combo->lineEdit(), &QLineEdit::textEdited, this, nullptr);
    connect(combo->lineEdit(), &QLineEdit::textEdited, this, [this, combo] { edited = combo; });
}

/// A choice from an open list; by keys on the closed field it is made of steps already.
void Recorder::noticeChoice(int index) {
    auto* combo = qobject_cast<QComboBox*>(sender());
    if (!combo || !inPopup) return;
    if (combo->isEditable()) return add({key("pick"), {{key("text"), combo->itemText(index)}}});
    const auto press = [&](const char* what) {
        add({key("key"), {{key("key"), key(what)}, {key("on"), nameOf(combo)}}});
    };
    press("Home");
    for (int i = 0; i < index; ++i) press("Down");
}

void Recorder::noticeEntry(const QJsonObject& entry) {
    const QString name = entry.value(key("name")).toString();
    const bool done = entry.value(key("event")) == key("done");
    const int result = entry.value(key("result")).toInt();
    if (done && name == key("workbench::LoginWindow")) noticeLogin(result != 0);
    if (done && name == key("xzGcLxDialog"))
        kindChosen = result == BudgetProgram || result == ContractingProgram;
    // The host's own windows are not there in a play: it has their answers.
    if (name.startsWith(key("workbench::"))) return;
    entries.append(entry);
    // And its main window is a plain one.
    if (name == key("Communication::GetMainWindow"))
        entries.last().insert(key("answer"), key("QWidget"));
    if (name != key("zFileDialog::getOpenFileName") || !entry.contains(key("answer"))) return;
    const QString path = playable(entry.value(key("answer")).toString(), folder);
    entries.last().insert(key("answer"), path);
    fileAnswers.append(fileAnswer(path));
}

/// Whoever logged in, and whether: known before the step that asked for it.
void Recorder::noticeLogin(bool accepted) {
    const QWidget* window = QApplication::activeModalWidget();
    const auto* user = window ? window->findChild<QLineEdit*>(key("userField")) : nullptr;
    QJsonObject account{{key("login"), key(accepted ? "accepted" : "cancelled")}};
    if (accepted && user) account.insert(key("userId"), user->text().trimmed());
    if (accepted && user) known.insert(key("account.userId"), user->text().trimmed());
    steps.insert(qMax(0, steps.size() - 1), {key("host"), {{key("account"), account}}});
}

void Recorder::add(Step step) {
    addText();
    addHost();
    clicked = nullptr;
    step.args = withPlaceholder(step.args, folder).toObject();
    steps.append(step);
}

void Recorder::addText() {
    if (edited)
        steps.append(
            {key("file"), {{key("text"), withPlaceholder(edited->lineEdit()->text(), folder)}}});
    edited = nullptr;
}

/// Somebody may have changed the host since the step before. That its log-in window asks is no
/// change: a play gets the answer that was given.
void Recorder::addHost() {
    const QJsonObject now = switchesOfHost();
    QJsonObject changed;
    for (auto it = now.begin(); it != now.end(); ++it)
        if (it.value() != known.value(it.key()) && it.value() != key("ask"))
            setIn(changed, it.key(), it.value());
    known = now;
    if (changed.isEmpty()) return;
    if (steps.isEmpty())
        host = changed;
    else
        steps.append({key("host"), changed});
}

Scenario Recorder::scenario(const QString& title) const {
    Scenario made;
    made.title = title;
    made.host = host;
    if (!fileAnswers.isEmpty()) made.host.insert(key("fileDialog"), fileAnswers);
    made.host = withPlaceholder(made.host, folder).toObject();
    made.steps = steps;
    made.expect.hasOnly = true;
    QSet<QString> kinds;
    for (QJsonObject entry : entries) {
        entry.remove(key("seq"));
        entry.remove(key("ms"));
        const QString kind = entry.value(key("kind")).toString();
        const QString name = entry.value(key("name")).toString();
        kinds.insert(kind);
        // The name of a project has the day in it, and so has what is said of it later.
        if (kind == key("project")) {
            made.expect.inOrder.append(QJsonObject{{key("kind"), kind}});
            continue;
        }
        if (lastingText(entry).contains(key("{day}"))) {
            entry.remove(key("args"));
            entry.remove(key("answer"));
        }
        if (!made.expect.onlyNames.contains(name)) made.expect.onlyNames.append(name);
        made.expect.onlyList.append(withPlaceholder(entry, folder).toObject());
    }
    made.expect.onlyNames.sort();
    for (const char* kind : {"box", "exception", "project"})
        if (!kinds.contains(key(kind)))
            made.expect.never.append(QJsonObject{{key("kind"), key(kind)}});
    return made;
}

}  // namespace workbench
