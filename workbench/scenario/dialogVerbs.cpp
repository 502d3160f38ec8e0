#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>
#include <QStyleOptionComboBox>
#include <QTreeWidget>

#include "workbench/scenario/Stage.h"
#include "workbench/scenario/hands.h"
#include "workbench/scenario/hostDialog.h"
#include "workbench/scenario/targets.h"
#include "workbench/scenario/verbs.h"
#include "zBaseControl.h"
#include "zControl.h"

namespace workbench {

namespace {

QString text(const QJsonObject& args, const char* key, const char* otherwise = "") {
    return args.value(QLatin1String(key)).toString(QLatin1String(otherwise));
}

QString quoted(const char* what, const QString& name) {
    return QStringLiteral("%1 \"%2\"").arg(QLatin1String(what), name);
}

Plan pressPlan(QWidget* widget, QPoint at, const QString& what, bool twice = false,
               const std::function<Plan()>& then = {}) {
    if (!widget) return Plan::wait(QStringLiteral("there is no %1").arg(what));
    bringIntoSight(widget);
    const QString reason = unreachable(widget, at);
    if (!reason.isEmpty())
        return Plan::wait(QStringLiteral("%1 cannot be clicked: %2").arg(what, reason));
    return Plan::act([=] { twice ? pressTwice(widget, at) : press(widget, at); }, then);
}

Plan pressPlan(QWidget* widget, const QString& what, const std::function<Plan()>& then = {}) {
    return pressPlan(widget, widget ? widget->rect().center() : QPoint(), what, false, then);
}

Plan open(Stage& stage, const QJsonObject& args) {
    if (stage.dialog && stage.dialog->isVisible())
        return Plan::giveUp(QStringLiteral("the dialog is open already"));
    if (QWidget* top = topWindow())
        return Plan::giveUp(QStringLiteral("an unexpected window is open: %1").arg(described(top)));
    const bool chooser = text(args, "dialog") == QLatin1String("xzGcLxDialog");
    const QString entry = text(args, "entry");
    if (chooser && !entry.isEmpty())
        return Plan::giveUp(QStringLiteral("the chooser itself says what to start with"));
    return Plan::act(
        [&stage, chooser, entry] { chooser ? stage.openChooser() : stage.openDialog(entry); });
}

Plan ribbon(Stage& stage, const QJsonObject& args) {
    const QString entry = text(args, "entry");
    if (!ribbonButton(stage.dialog, entry) && !addKindEntry(stage.dialog, entry))
        return Plan::giveUp(
            QStringLiteral("%1 could not be added").arg(quoted("ribbon entry", entry)));
    return pressPlan(ribbonButton(stage.dialog, entry), quoted("ribbon entry", entry));
}

Plan taxMode(Stage& stage, const QJsonObject& args) {
    const QString entry = text(args, "entry");
    return pressPlan(taxModeButton(stage.dialog, entry), quoted("tax-mode button", entry));
}

Plan pickFeeMode(const QString& mode) {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    if (!menu) return Plan::wait(QStringLiteral("the menu of fee modes has not opened"));
    for (QAction* action : menu->actions())
        if (action->text() == mode || action->text().startsWith(mode + QLatin1Char('(')))
            return pressPlan(menu, menu->actionGeometry(action).center(), quoted("fee mode", mode));
    return Plan::wait(QStringLiteral("there is no %1").arg(quoted("fee mode", mode)));
}

Plan model(Stage& stage, const QJsonObject& args) {
    const QString name = text(args, "name");
    const QString use = text(args, "use", "new");
    QWidget* card = modelCard(stage.dialog, name);
    if (!card) return Plan::wait(QStringLiteral("there is no %1").arg(quoted("model card", name)));
    if (use == QLatin1String("double-click")) {
        auto* title = card->findChild<QLabel*>(QStringLiteral("lblTitle"));
        if (!title) return Plan::wait(QStringLiteral("the model card has no title"));
        return pressPlan(card, title->mapTo(card, title->rect().center()),
                         quoted("model card", name), true);
    }
    if (use == QLatin1String("new"))
        return pressPlan(newButtonOf(card), quoted("button \"新建\" of model card", name));
    const QString mode = text(args, "mode");
    return pressPlan(menuButtonOf(card), quoted("menu button of model card", name),
                     [mode] { return pickFeeMode(mode); });
}

/// The list of template cards is kept out of sight, so that no mouse reaches it; its cards are used
/// through their widgets.
Plan useHiddenCard(QWidget* card, bool twice) {
    if (!twice) {
        auto* button = card->findChild<zBaseButton*>(QStringLiteral("btnNewProject"));
        if (!button) return Plan::wait(QStringLiteral("the template card has no button"));
        return Plan::act([button] { button->click(); });
    }
    return Plan::act([card] {
        const QPoint middle = card->rect().center();
        QMouseEvent event(QEvent::MouseButtonDblClick, middle, card->mapToGlobal(middle),
                          Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(card, &event);
    });
}

Plan useCard(const Stage& stage, const QString& name, bool twice) {
    QWidget* card = templateCard(stage.dialog, name);
    const QString what = quoted("template card", name);
    if (!card) return Plan::wait(QStringLiteral("there is no %1").arg(what));
    if (!card->isVisible()) return useHiddenCard(card, twice);
    if (twice) return pressPlan(card, card->rect().center(), what, true);
    return pressPlan(card->findChild<zBaseButton*>(QStringLiteral("btnNewProject")), what);
}

Plan useRow(const Stage& stage, const QString& name, bool twice) {
    auto* tree = stage.dialog->findChild<QTreeWidget*>(QStringLiteral("templateTree"));
    const QString what = quoted("template row", name);
    QTreeWidgetItem* row = tree ? templateRow(tree, name) : nullptr;
    if (!row) return Plan::wait(QStringLiteral("there is no %1").arg(what));
    tree->scrollToItem(row);
    QWidget* widget = tree->itemWidget(row, 0);
    if (!widget) return Plan::wait(QStringLiteral("there is no %1").arg(what));
    if (!twice) return pressPlan(widget->findChild<zBaseButton*>(), what);
    return pressPlan(widget, QPoint(10, widget->height() / 2), what, true);
}

Plan useTemplate(Stage& stage, const QJsonObject& args) {
    const bool twice = text(args, "use", "new") == QLatin1String("double-click");
    const bool cards = text(args, "from", "tree") == QLatin1String("cards");
    const QString name = text(args, "name");
    return cards ? useCard(stage, name, twice) : useRow(stage, name, twice);
}

Plan noChooser() {
    return Plan::wait(QStringLiteral("no page with a file chooser is shown"));
}

Plan file(Stage& stage, const QJsonObject& args) {
    QComboBox* combo = fileCombo(stage.dialog);
    QLineEdit* editor = combo ? combo->lineEdit() : nullptr;
    if (!editor) return noChooser();
    const QString reason = unreachable(editor);
    if (!reason.isEmpty()) return Plan::wait(QStringLiteral("the file chooser: ") + reason);
    const QString typed = text(args, "text");
    return Plan::act([editor, typed] { type(editor, typed); });
}

Plan pickFromList(const QPointer<QComboBox>& combo, int row) {
    QAbstractItemView* view = combo ? combo->view() : nullptr;
    if (!view || !view->isVisible()) return Plan::wait(QStringLiteral("the list has not opened"));
    return Plan::act([view, row] {
        pressKey(view, QStringLiteral("Home"));
        for (int i = 0; i < row; ++i) pressKey(view, QStringLiteral("Down"));
        pressKey(view, QStringLiteral("Return"));
    });
}

Plan pick(Stage& stage, const QJsonObject& args) {
    QComboBox* combo = fileCombo(stage.dialog);
    if (!combo) return noChooser();
    const QString entry = text(args, "text");
    const int row = combo->findText(entry);
    if (row < 0) return Plan::wait(QStringLiteral("the list has no %1").arg(quoted("file", entry)));
    QStyleOptionComboBox option;
    option.initFrom(combo);
    option.editable = combo->isEditable();
    option.subControls = QStyle::SC_All;
    const QRect arrow = combo->style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                       QStyle::SC_ComboBoxArrow, combo);
    return pressPlan(
        combo, arrow.center(), QStringLiteral("arrow of the file chooser"), false,
        [combo = QPointer<QComboBox>(combo), row] { return pickFromList(combo, row); });
}

Plan browse(Stage& stage, const QJsonObject&) {
    return pressPlan(onFilePage(stage.dialog, "browseButton"), QStringLiteral("browse button"));
}

Plan create(Stage& stage, const QJsonObject&) {
    return pressPlan(onFilePage(stage.dialog, "newButton"), QStringLiteral("new button"));
}

/// Runs a verb only while the dialog can be used.
template <Plan (*verb)(Stage&, const QJsonObject&)>
Plan onDialog(Stage& stage, const QJsonObject& args) {
    const QString obstacle = stage.obstacle();
    return obstacle.isEmpty() ? verb(stage, args) : Plan::giveUp(obstacle);
}

}  // namespace

const QVector<Verb>& dialogVerbs() {
    static const QVector<Verb> verbs = {
        {QStringLiteral("open"),
         {word("dialog", "NewProCfgDialog xzGcLxDialog"), field("entry", Shape::Text)},
         open},
        {QStringLiteral("ribbon"), {needed("entry")}, onDialog<ribbon>},
        {QStringLiteral("taxMode"), {needed("entry")}, onDialog<taxMode>},
        {QStringLiteral("model"),
         {needed("name"), word("use", "new double-click menu"), field("mode", Shape::Text)},
         onDialog<model>},
        {QStringLiteral("template"),
         {needed("name"), word("from", "cards tree"), word("use", "new double-click")},
         onDialog<useTemplate>},
        {QStringLiteral("file"), {needed("text")}, onDialog<file>},
        {QStringLiteral("pick"), {needed("text")}, onDialog<pick>},
        {QStringLiteral("browse"), {}, onDialog<browse>},
        {QStringLiteral("create"), {}, onDialog<create>}};
    return verbs;
}

}  // namespace workbench
