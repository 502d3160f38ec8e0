#include "workbench/scenario/hands.h"

#include <QtTest/qtestkeyboard.h>
#include <QtTest/qtestmouse.h>
#include <QAbstractItemView>
#include <QApplication>
#include <QInputMethodEvent>
#include <QKeySequence>
#include <QPointer>
#include <QScrollArea>
#include <QWindow>

#include "workbench/base/qtNames.h"

namespace workbench {

namespace {

bool isBehindModal(const QWidget* window) {
    const QWidget* popup = QApplication::activePopupWidget();
    if (popup) return popup != window && !popup->isAncestorOf(window);
    const QWidget* modal = QApplication::activeModalWidget();
    return modal && modal != window && !modal->isAncestorOf(window);
}

int codeOf(const QString& keys) {
    const QKeySequence sequence = QKeySequence::fromString(keys, QKeySequence::PortableText);
    return sequence.count() == 1 ? firstKeyOf(sequence) : int(Qt::Key_unknown);
}

QPoint inWindow(const QWidget* widget, QPoint at) {
    return widget->mapTo(widget->window(), at);
}

}  // namespace

QString unreachable(const QWidget* widget, QPoint at) {
    if (!widget->isVisible()) return QStringLiteral("it is hidden");
    if (!widget->isEnabled()) return QStringLiteral("it is disabled");
    const QWidget* window = widget->window();
    if (isBehindModal(window)) return QStringLiteral("another window is in front of it");
    const QWidget* under = window->childAt(inWindow(widget, at));
    if (widget == window) return {};
    if (under != widget && !widget->isAncestorOf(under))
        return QStringLiteral("it is out of sight or covered");
    return {};
}

QString unreachable(const QWidget* widget) {
    return unreachable(widget, widget->rect().center());
}

void bringIntoSight(QWidget* widget) {
    for (QWidget* parent = widget->parentWidget(); parent; parent = parent->parentWidget()) {
        if (auto* area = qobject_cast<QScrollArea*>(parent)) area->ensureWidgetVisible(widget);
        auto* view = qobject_cast<QAbstractItemView*>(parent);
        if (!view || !view->viewport()->isAncestorOf(widget)) continue;
        const QPoint middle = widget->mapTo(view->viewport(), widget->rect().center());
        view->scrollTo(view->indexAt(middle));
    }
}

void press(QWidget* widget, QPoint at) {
    QWindow* window = widget->window()->windowHandle();
    QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, inWindow(widget, at));
}

void press(QWidget* widget) {
    press(widget, widget->rect().center());
}

void pressTwice(QWidget* widget, QPoint at) {
    QWindow* window = widget->window()->windowHandle();
    QTest::mouseDClick(window, Qt::LeftButton, Qt::NoModifier, inWindow(widget, at));
}

void pressRapidly(const QVector<QWidget*>& widgets) {
    for (QWidget* widget : widgets) {
        const QPointer<QWindow> window = widget->window()->windowHandle();
        const QPoint at = inWindow(widget, widget->rect().center());
        QMetaObject::invokeMethod(
            qApp,
            [window, at] {
                if (window) QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, at);
            },
            Qt::QueuedConnection);
    }
    QApplication::processEvents();
}

void pressClose(QWidget* window) {
    auto* button = window->findChild<QWidget*>(QStringLiteral("closeButton"));
    if (button && unreachable(button).isEmpty())
        press(button);
    else
        window->close();
}

void type(QWidget* editor, const QString& text) {
    if (!editor->hasFocus()) press(editor);
    QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(editor, Qt::Key_Delete);
    if (text.isEmpty()) return;
    // Key events cannot carry Chinese characters; an input method commits them.
    QInputMethodEvent commit;
    commit.setCommitString(text);
    QApplication::sendEvent(editor, &commit);
    // What a completer has added behind the text is selected now; nobody typed it.
    QTest::keyClick(editor, Qt::Key_Delete);
}

void pressKey(QWidget* widget, const QString& keys) {
    const int code = codeOf(keys);
    const auto modifiers = Qt::KeyboardModifiers(code & int(Qt::KeyboardModifierMask));
    QTest::keyClick(widget, Qt::Key(code & ~int(Qt::KeyboardModifierMask)), modifiers);
}

bool isKey(const QString& keys) {
    return codeOf(keys) != Qt::Key_unknown && codeOf(keys) != 0;
}

}  // namespace workbench
