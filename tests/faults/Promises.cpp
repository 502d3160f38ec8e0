#include "tests/faults/Promises.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QLabel>
#include <QListWidget>
#include <QMetaMethod>
#include <QPushButton>
#include <QScrollBar>
#include <QStackedWidget>

namespace faults {

namespace {

struct Connected : QObject {
    using QObject::isSignalConnected;
};

bool answersClicks(const QAbstractButton* button) {
    const auto* withMenu = qobject_cast<const QPushButton*>(button);
    if (withMenu && withMenu->menu()) return true;
    return (button->*&Connected::isSignalConnected)(
        QMetaMethod::fromSignal(&QAbstractButton::clicked));
}

QString nameOfWidget(const QWidget* widget) {
    return QStringLiteral("%1 \"%2\"")
        .arg(QLatin1String(widget->metaObject()->className()), widget->objectName());
}

/// @return whether a user can come by a widget: nothing around it is hidden but pages of a stack.
bool canBeReached(const QWidget* widget, const QWidget* window) {
    for (; widget && widget != window; widget = widget->parentWidget()) {
        const auto* stack = qobject_cast<const QStackedWidget*>(widget->parentWidget());
        const bool isPage = stack && stack->indexOf(const_cast<QWidget*>(widget)) >= 0;
        if (widget->isHidden() && !isPage) return false;
    }
    return widget == window;
}

void lookAtButtons(const QWidget* window, QStringList& broken) {
    for (const auto* button : window->findChildren<QAbstractButton*>()) {
        if (!canBeReached(button, window)) continue;
        if (!answersClicks(button))
            broken += QStringLiteral("dead: %1 \"%2\"").arg(nameOfWidget(button), button->text());
    }
}

void lookAtPages(const QWidget* window, QStringList& broken) {
    static const QStringList order{QStringLiteral("lswGeneralTax"), QStringLiteral("lswSimpleTax"),
                                   QStringLiteral("lswBusinessTax"),
                                   QStringLiteral("templateTree")};
    const auto* stack = window->findChild<QStackedWidget*>(QStringLiteral("stackedWidget"));
    if (!stack) return;
    for (int page = 0; page < qMin(stack->count(), order.size()); ++page) {
        if (stack->widget(page)->objectName() != order[page])
            broken +=
                QStringLiteral("page %1 is %2").arg(page).arg(nameOfWidget(stack->widget(page)));
    }
}

/// What was made for a stack and never became one of its pages lies over them all.
void lookForLoosePages(const QWidget* window, QStringList& broken) {
    for (const auto* stack : window->findChildren<QStackedWidget*>()) {
        const auto children = stack->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
        for (QWidget* child : children) {
            if (!child->isHidden() && stack->indexOf(child) < 0)
                broken += QStringLiteral("loose: ") + nameOfWidget(child);
        }
    }
}

void lookAtCards(const QWidget* window, QStringList& broken) {
    for (const auto* list : window->findChildren<QListWidget*>()) {
        QStringList titles;
        for (int row = 0; row < list->count(); ++row) {
            const QWidget* card = list->itemWidget(list->item(row));
            const auto* title =
                card ? card->findChild<QLabel*>(QStringLiteral("lblTitle")) : nullptr;
            if (title && !title->text().isEmpty()) titles += title->text();
        }
        if (titles.removeDuplicates() > 0)
            broken += QStringLiteral("cards twice in ") + nameOfWidget(list);
    }
}

/// Whatever is clicked there would move aside between press and release.
void lookForHiddenScrolling(const QWidget* window, QStringList& broken) {
    for (const auto* area : window->findChildren<QAbstractScrollArea*>()) {
        const bool mayNot = area->horizontalScrollBarPolicy() == Qt::ScrollBarAlwaysOff;
        if (mayNot && area->isVisible() && area->horizontalScrollBar()->maximum() > 0)
            broken += QStringLiteral("scrolls sideways: ") + nameOfWidget(area);
    }
}

}  // namespace

QStringList brokenPromises(const QWidget* window) {
    QStringList broken;
    lookAtButtons(window, broken);
    lookAtPages(window, broken);
    lookForLoosePages(window, broken);
    lookAtCards(window, broken);
    lookForHiddenScrolling(window, broken);
    const auto* estimate = window->findChild<QWidget*>(QStringLiteral("BtnGs"));
    if (estimate && !estimate->isHidden()) broken += QStringLiteral("the estimate can be chosen");
    return broken;
}

}  // namespace faults
