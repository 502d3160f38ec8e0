#include "workbench/scenario/targets.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QFileInfo>
#include <QLabel>
#include <QListWidget>
#include <QTreeWidget>
#include <QTreeWidgetItemIterator>

#include "zBaseControl.h"
#include "zControl.h"

namespace workbench {

namespace {

QWidget* cardIn(const QListWidget* list, const QString& title) {
    for (int row = 0; list && row < list->count(); ++row) {
        QWidget* card = list->itemWidget(list->item(row));
        const auto* label = card ? card->findChild<QLabel*>(QStringLiteral("lblTitle")) : nullptr;
        if (label && label->text() == title) return card;
    }
    return nullptr;
}

QWidget* newButton(const QWidget* card) {
    return card->findChild<QWidget*>(QStringLiteral("btnNewProject"));
}

/// @return the part of a card's button that has this text.
QWidget* partOf(const QWidget* card, const QString& text) {
    const QWidget* button = newButton(card);
    if (!button) return nullptr;
    for (zBaseButton* part : button->findChildren<zBaseButton*>())
        if (part->text() == text) return part;
    return nullptr;
}

template <typename Accepts>
QWidget* firstSeen(const QList<QWidget*>& widgets, Accepts accepts) {
    QWidget* hidden = nullptr;
    for (QWidget* widget : widgets) {
        if (!accepts(widget)) continue;
        if (widget->isVisible()) return widget;
        if (!hidden) hidden = widget;
    }
    return hidden;
}

QString writtenOn(const QWidget* widget) {
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) return button->text();
    if (const auto* label = qobject_cast<const QLabel*>(widget)) return label->text();
    return {};
}

}  // namespace

QWidget* topWindow() {
    QWidget* popup = QApplication::activePopupWidget();
    return popup ? popup : QApplication::activeModalWidget();
}

QWidget* ribbonButton(const QWidget* dialog, const QString& entry) {
    for (const RibbonTab* tab : dialog->findChildren<RibbonTab*>())
        if (tab->property("name").toString() == entry)
            return tab->findChild<QWidget*>(QStringLiteral("curText"));
    return nullptr;
}

QWidget* taxModeButton(const QWidget* dialog, const QString& entry) {
    static const char* const names[] = {"generalTaxButton",  "simpleTaxButton",
                                        "businessTaxButton", "templateButton",
                                        "budgetButton",      "importTenderButton"};
    for (const char* name : names) {
        auto* button = dialog->findChild<QAbstractButton*>(QLatin1String(name));
        if (button && button->text() == entry) return button;
    }
    return nullptr;
}

QWidget* modelCard(const QWidget* dialog, const QString& title) {
    static const char* const lists[] = {"lswGeneralTax", "lswSimpleTax", "lswBusinessTax"};
    QList<QWidget*> cards;
    for (const char* name : lists)
        if (QWidget* card = cardIn(dialog->findChild<QListWidget*>(QLatin1String(name)), title))
            cards.append(card);
    return firstSeen(cards, [](const QWidget*) { return true; });
}

QWidget* newButtonOf(const QWidget* card) {
    QWidget* part = partOf(card, QStringLiteral("新建"));
    return part ? part : newButton(card);
}

QWidget* menuButtonOf(const QWidget* card) {
    return partOf(card, QString());
}

QWidget* templateCard(const QWidget* dialog, const QString& title) {
    return cardIn(dialog->findChild<QListWidget*>(QStringLiteral("lswTemplateEng")), title);
}

QWidget* onFilePage(const QWidget* dialog, const char* objectName) {
    for (QWidget* widget : dialog->findChildren<QWidget*>(QLatin1String(objectName)))
        if (widget->isVisible()) return widget;
    return nullptr;
}

QTreeWidgetItem* templateRow(const QTreeWidget* tree, const QString& name) {
    QTreeWidgetItemIterator row(const_cast<QTreeWidget*>(tree));
    for (; *row; ++row) {
        const QWidget* widget = tree->itemWidget(*row, 0);
        const auto* label = widget ? widget->findChild<QLabel*>() : nullptr;
        // The row of a folder has no button.
        if (!label || !widget->findChild<zBaseButton*>()) continue;
        if (label->text() == name || QFileInfo(label->text()).completeBaseName() == name)
            return *row;
    }
    return nullptr;
}

QComboBox* fileCombo(const QWidget* dialog) {
    return qobject_cast<QComboBox*>(onFilePage(dialog, "fileCombo"));
}

QWidget* anything(QWidget* window, const QString& nameOrText) {
    if (window->objectName() == nameOrText) return window;
    if (QWidget* named =
            firstSeen(window->findChildren<QWidget*>(nameOrText), [](auto*) { return true; }))
        return named;
    return firstSeen(window->findChildren<QWidget*>(), [&](const QWidget* widget) {
        return !nameOrText.isEmpty() && writtenOn(widget) == nameOrText;
    });
}

}  // namespace workbench
