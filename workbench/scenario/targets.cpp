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

QString titleOf(const QWidget* card) {
    const auto* title = card ? card->findChild<QLabel*>(QStringLiteral("lblTitle")) : nullptr;
    return title ? title->text() : QString();
}

QWidget* cardIn(const QListWidget* list, const QString& title) {
    for (int row = 0; list && row < list->count(); ++row) {
        QWidget* card = list->itemWidget(list->item(row));
        if (card && titleOf(card) == title) return card;
    }
    return nullptr;
}

QList<QWidget*> partsOf(const QWidget* card) {
    const QWidget* button = card->findChild<QWidget*>(QStringLiteral("btnNewProject"));
    QList<QWidget*> parts;
    if (!button) return parts;
    for (zBaseButton* part : button->findChildren<zBaseButton*>()) parts.append(part);
    return parts;
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
    for (QWidget* part : partsOf(card))
        if (writtenOn(part) == QStringLiteral("新建")) return part;
    return card->findChild<QWidget*>(QStringLiteral("btnNewProject"));
}

QWidget* menuButtonOf(const QWidget* card) {
    for (QWidget* part : partsOf(card))
        if (writtenOn(part).isEmpty()) return part;
    return nullptr;
}

QWidget* templateCard(const QWidget* dialog, const QString& title) {
    return cardIn(dialog->findChild<QListWidget*>(QStringLiteral("lswTemplateEng")), title);
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
    for (QComboBox* combo : dialog->findChildren<QComboBox*>(QStringLiteral("fileCombo")))
        if (combo->isVisible()) return combo;
    return nullptr;
}

QWidget* filePageButton(const QWidget* dialog, const char* objectName) {
    for (QWidget* button : dialog->findChildren<QWidget*>(QLatin1String(objectName)))
        if (button->isVisible()) return button;
    return nullptr;
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
