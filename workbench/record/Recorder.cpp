#include "workbench/record/Recorder.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFileInfo>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QRegularExpression>
#include <QScopeGuard>
#include <utility>

#include "fileDialog.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/common/hostSwitches.h"
#include "workbench/journal/Journal.h"
#include "workbench/record/hits.h"
#include "workbench/scenario/hands.h"
#include "workbench/scenario/hostDialog.h"

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

/// @return whether a key in a field for a path changes or marks the text there or opens the list,
///         and no more.
bool types(const QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Backspace:
        case Qt::Key_Delete:
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Home:
        case Qt::Key_End:
        case Qt::Key_Menu:
        case Qt::Key_F4:
            return true;
        case Qt::Key_Down:
        case Qt::Key_Up:
            return event->modifiers() & Qt::AltModifier;
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

/// @return whether it is a menu of the module. That of a field is none: what becomes of the field
///         tells what it does.
bool isOfModule(const QMenu* menu) {
    QWidget* owner = menu ? menu->parentWidget() : nullptr;
    return owner && isModules(owner->window()) && !around<QComboBox>(owner);
}

/// @return whether an event comes to the widget first, not from a child that did not take it.
/// @param last the widget that the event before came to.
bool isFirst(const QWidget* widget, const QPointer<QWidget>& last) {
    return !last || last == widget || !widget->isAncestorOf(last);
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
    switch (event->type()) {
        case QEvent::Show:
            return noticeShow(widget);
        case QEvent::Close:
            if (modules && event->spontaneous()) add({key("close"), {}});
            return;
        case QEvent::Wheel:
            keyed = false;
            return;
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonDblClick:
            keyed = false;
            if (modules && isFirst(widget, pressed))
                noticePress(widget, static_cast<QMouseEvent*>(event));
            return;
        case QEvent::MouseButtonRelease:
            if (pressed == widget) noticeRelease(widget, static_cast<QMouseEvent*>(event));
            pressed = nullptr;  // also where a pop-up has opened and gets the release
            return;
        case QEvent::KeyPress:
            keyed = !QApplication::activePopupWidget();
            if (!keyed) return noticeMenuKey(widget, static_cast<QKeyEvent*>(event));
            if (modules && isFirst(widget, keyDown))
                noticeKey(widget, static_cast<QKeyEvent*>(event));
            return;
        case QEvent::KeyRelease:
            keyDown = nullptr;
            return;
        default:
            return;
    }
}

void Recorder::noticeShow(QWidget* widget) {
    if (auto* menu = qobject_cast<QMenu*>(widget)) return watch(menu);
    auto* combo = qobject_cast<QComboBox*>(widget);
    if (combo && isModules(combo->window())) return watch(combo);
    const bool chooser = widget->inherits("xzGcLxDialog");
    if (!chooser && !widget->inherits("NewProCfgDialog")) return;
    // A window that was minimised is shown again.
    if (opened == widget) return;
    opened = widget;
    folder = Host::instance().installation().folder;
    const bool chosen = kindChosen;
    kindChosen = false;
    if (chooser)
        add({key("open"), {{key("dialog"), key("xzGcLxDialog")}}});
    else if (!chosen)
        add({key("open"), startOf(widget)});
}

void Recorder::noticePress(QWidget* widget, const QMouseEvent* event) {
    leaveMenu();
    pressed = widget;
    doubled = false;
    // What happens to a field is told by what becomes of it.
    if (around<QComboBox>(widget)) return;
    if (event->button() != Qt::LeftButton) return lose(QStringLiteral("another button"), widget);
    // A menu opens while the button is held.
    const Step step = stepOfClick(widget, false);
    if (step.args.value(key("use")) == key("menu")) menuStep = step;
    // A button takes the second press of two like any other.
    const bool twice = event->type() == QEvent::MouseButtonDblClick;
    if (!twice || around<QAbstractButton>(widget)) return;
    if (clicked == widget) steps.removeLast();
    click(widget, true);
    doubled = true;
}

void Recorder::noticeRelease(QWidget* widget, const QMouseEvent* event) {
    if (doubled || event->button() != Qt::LeftButton || around<QComboBox>(widget)) return;
    if (!widget->rect().contains(event->pos())) return lose(QStringLiteral("a drag"), widget);
    const int before = steps.size();
    click(widget, false);
    if (steps.size() > before) clicked = widget;
}

void Recorder::click(QWidget* widget, bool twice) {
    const Step step = stepOfClick(widget, twice);
    if (step.args.value(key("use")) == key("menu")) return;
    if (!step.verb.isEmpty()) return add(step);
    clicked = nullptr;
    lose(QStringLiteral("a click"), widget);
}

/// Notes what no step says. The player scrolls by itself.
void Recorder::lose(const QString& what, const QWidget* on) {
    if (on->inherits("QScrollBar")) return;
    lost.append(QStringLiteral("%1 on %2 behind step %3")
                    .arg(what, QLatin1String(on->metaObject()->className()))
                    .arg(steps.size()));
}

/// The entry that is chosen, by mouse or by any key, completes the step of the card.
void Recorder::watch(QMenu* menu) {
    connect(menu, &QMenu::triggered, this, &Recorder::noticeEntryOfMenu, Qt::UniqueConnection);
}

void Recorder::noticeEntryOfMenu(const QAction* entry) {
    auto* menu = qobject_cast<QMenu*>(sender());
    if (menuStep.verb.isEmpty()) {
        if (!keyed && isOfModule(menu)) lose(QStringLiteral("a choice by mouse"), menu);
        return;
    }
    menuStep.args.insert(key("mode"), entry->text().section(QLatin1Char('('), 0, 0));
    add(std::exchange(menuStep, {}));
}

/// A menu that was opened by key is gone through by key.
void Recorder::noticeMenuKey(QWidget* menu, const QKeyEvent* event) {
    if (!menuStep.verb.isEmpty() || !isOfModule(qobject_cast<QMenu*>(menu))) return;
    keyed = true;
    noticeKey(menu, event);
}

/// The menu that was opened by mouse has been closed again.
void Recorder::leaveMenu() {
    if (menuStep.verb.isEmpty()) return;
    lost.append(QStringLiteral("the menu of %1, closed without a choice, behind step %2")
                    .arg(menuStep.args.value(key("name")).toString())
                    .arg(steps.size()));
    menuStep = {};
}

void Recorder::noticeKey(QWidget* widget, const QKeyEvent* event) {
    keyDown = widget;
    leaveMenu();
    auto* combo = around<QComboBox>(widget);
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

/// A choice from the list, or by the wheel; by keys on the closed field it is made of steps
/// already.
void Recorder::noticeChoice(int index) {
    auto* combo = qobject_cast<QComboBox*>(sender());
    if (!combo || keyed) return;
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
    if (done && opened && opened->inherits(name.toLatin1().constData())) opened = nullptr;
    if (done && name == key("xzGcLxDialog"))
        kindChosen = result == BudgetProgram || result == ContractingProgram;
    // The host's own windows are not there in a play: it has their answers.
    if (name.startsWith(key("workbench::"))) return;
    entries.append(entry);
    const auto told = qScopeGuard([this] { Q_EMIT entryAdded(); });
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
    leaveMenu();
    addText();
    addHost();
    clicked = nullptr;
    step.args = withPlaceholder(step.args, folder).toObject();
    steps.append(step);
    Q_EMIT stepAdded();
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
    made.expect = expectation();
    return made;
}

/// The whole journal, of which only the day in the names of the projects made is left open.
Expectations Recorder::expectation() const {
    static const QRegularExpression day(key("-\\d{8}-(\\d{3})$"));
    QMap<QString, QString> projects;
    for (const QJsonObject& entry : entries) {
        if (entry.value(key("kind")) != key("project")) continue;
        const QString name = QFileInfo(entry.value(key("name")).toString()).completeBaseName();
        projects.insert(name, QString(name).replace(day, key("-") + dayPlaceholder + key("-\\1")));
    }
    Expectations expect;
    expect.hasOnly = true;
    for (QJsonObject entry : entries) {
        entry.remove(key("seq"));
        entry.remove(key("ms"));
        QJsonValue open = withPlaceholder(entry, folder);
        for (auto it = projects.begin(); it != projects.end(); ++it)
            open = withTexts(open, it.key(), it.value());
        expect.onlyList.append(open.toObject());
    }
    return expect;
}

}  // namespace workbench
