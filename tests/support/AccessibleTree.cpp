#include "tests/support/AccessibleTree.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMetaEnum>
#include <QPlainTextEdit>

namespace testing_support {

namespace {

QString roleOf(const QAccessibleInterface* thing) {
    static const QMetaEnum roles = QAccessible::staticMetaObject.enumerator(
        QAccessible::staticMetaObject.indexOfEnumerator("Role"));
    return QLatin1String(roles.valueToKey(int(thing->role())));
}

QString statesOf(const QAccessibleInterface* thing) {
    const QAccessible::State state = thing->state();
    const std::pair<bool, const char*> words[] = {
        {state.disabled, "disabled"},     {state.focusable, "focusable"},
        {state.focused, "focused"},       {state.checkable, "checkable"},
        {state.checked, "checked"},       {state.selected, "selected"},
        {state.expanded, "expanded"},     {state.collapsed, "collapsed"},
        {state.hasPopup, "has popup"},    {state.editable, "editable"},
        {state.readOnly, "read only"},    {state.offscreen, "scrolled out"},
        {state.defaultButton, "default"}, {state.passwordEdit, "password"}};
    QStringList names;
    for (const auto& word : words)
        if (word.first) names << QLatin1String(word.second);
    return names.join(QStringLiteral(", "));
}

void gather(QAccessibleInterface* thing, int depth, QVector<Found>& found) {
    if (!thing || thing->state().invisible) return;
    found.append({thing, depth});
    for (int i = 0; i < thing->childCount(); ++i) gather(thing->child(i), depth + 1, found);
}

QString treeLine(const Found& found) {
    QString line = QString(found.depth * 2, QLatin1Char(' ')) + roleOf(found.thing);
    const QString name = found.thing->text(QAccessible::Name);
    if (!name.isEmpty()) line += QStringLiteral(" \"%1\"").arg(name);
    const QString value = found.thing->text(QAccessible::Value);
    if (found.thing->role() == QAccessible::ComboBox && !value.isEmpty())
        line += QStringLiteral(" = \"%1\"").arg(value);
    const QString states = statesOf(found.thing);
    if (!states.isEmpty()) line += QStringLiteral(" [%1]").arg(states);
    const QString more = found.thing->text(QAccessible::Description);
    if (!more.isEmpty() && more != name) line += QStringLiteral(" - ") + more;
    return line.replace(QLatin1Char('\n'), QStringLiteral(" / "));
}

/// @return whether a person uses the widget by hand or key.
bool isInteractive(const QWidget* widget) {
    if (qobject_cast<const QAbstractButton*>(widget)) return !widget->layout();
    if (qobject_cast<const QLineEdit*>(widget)) return true;
    if (qobject_cast<const QComboBox*>(widget)) return true;
    return qobject_cast<const QAbstractItemView*>(widget) &&
           !qobject_cast<const QHeaderView*>(widget);
}

bool isInteractive(const QAccessibleInterface* thing) {
    switch (thing->role()) {
        case QAccessible::Button:
        case QAccessible::CheckBox:
        case QAccessible::RadioButton:
        case QAccessible::ComboBox:
        case QAccessible::EditableText:
        case QAccessible::List:
        case QAccessible::ListItem:
        case QAccessible::Tree:
        case QAccessible::TreeItem:
        case QAccessible::Dialog:
        case QAccessible::MenuItem:
            return true;
        default:
            return false;
    }
}

/// @return whether a person may have to ask what the thing is for.
bool isControl(const QAccessibleInterface* thing) {
    switch (thing->role()) {
        case QAccessible::Button:
        case QAccessible::ButtonMenu:
        case QAccessible::CheckBox:
        case QAccessible::ComboBox:
        case QAccessible::EditableText:
            return true;
        default:
            return false;
    }
}

/// @return whether it tells more than its name.
bool isDescribed(const QAccessibleInterface* thing) {
    const QString description = thing->text(QAccessible::Description);
    return !description.isEmpty() && description != thing->text(QAccessible::Name);
}

QString told(QAccessibleInterface* thing) {
    const QObject* object = thing->object();
    return treeLine({thing, 0}) + QStringLiteral(" (%1 %2)")
                                      .arg(object ? QLatin1String(object->metaObject()->className())
                                                  : QLatin1String("no object"),
                                           object ? object->objectName() : QString());
}

/// @return whether it is told as scrolled out of a list that is on the screen, which need not have
///         shown it yet.
bool isScrolledOut(const QWidget& widget, const QAccessible::State& state) {
    const QWidget* list = &widget;
    while (list && !qobject_cast<const QAbstractItemView*>(list)) list = list->parentWidget();
    return state.offscreen && list && list->isVisible();
}

}  // namespace

QVector<Found> foundIn(QWidget* window) {
    QVector<Found> found;
    gather(QAccessible::queryAccessibleInterface(window), 0, found);
    return found;
}

QString accessibleTree(QWidget* window) {
    QString text;
    for (const Found& each : foundIn(window)) text += treeLine(each) + QLatin1Char('\n');
    return text;
}

QStringList accessibleFaults(QWidget* window) {
    QStringList faults;
    QSet<const QObject*> objects;
    for (const Found& each : foundIn(window)) {
        QAccessibleInterface* thing = each.thing;
        const auto* widget = qobject_cast<QWidget*>(thing->object());
        if (widget) objects.insert(widget);
        const bool used = isInteractive(thing) || thing->state().focusable;
        if (used && thing->text(QAccessible::Name).isEmpty())
            faults << QStringLiteral("no name: ") + told(thing);
        if (isControl(thing) && !isDescribed(thing))
            faults << QStringLiteral("no description: ") + told(thing);
        if (thing->role() == QAccessible::NoRole)
            faults << QStringLiteral("no role: ") + told(thing);
        if (widget && !widget->isVisible() && !isScrolledOut(*widget, thing->state()))
            faults << QStringLiteral("not on the screen: ") + told(thing);
        QAccessibleInterface* parent = thing->parent();
        if (each.depth > 0 && (!parent || parent->indexOfChild(thing) < 0))
            faults << QStringLiteral("not its parent's child: ") + told(thing);
    }
    for (const QWidget* widget : window->findChildren<QWidget*>()) {
        if (widget->window() != window || !widget->isVisible() || !isInteractive(widget)) continue;
        if (!objects.contains(widget))
            faults << QStringLiteral("not in the tree: %1 %2")
                          .arg(QLatin1String(widget->metaObject()->className()),
                               widget->objectName());
    }
    return faults;
}

}  // namespace testing_support
