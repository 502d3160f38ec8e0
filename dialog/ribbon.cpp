/// The ribbon of project kinds and import actions: its entries and its dispatcher.
#include <QAction>
#include <QEvent>
#include <QHBoxLayout>
#include <QWidgetAction>

#include "SharedInterface.h"
#include "core/guard.h"
#include "core/scale.h"
#include "dialog/NewProCfgDialogPrivate.h"
#include "zCpf.h"

using Parts = NewProCfgDialogPrivate;

const QString excelImportEntry = QStringLiteral("导入Excel新建");
const QString tenderImportEntry = QStringLiteral("导入YFJZ新建");

namespace {

const char nameProperty[] = "name";

/// @return the widget of a ribbon entry; null for an action without one.
QWidget* tabOf(QAction* action) {
    auto* widgetAction = qobject_cast<QWidgetAction*>(action);
    return widgetAction ? widgetAction->defaultWidget() : nullptr;
}

zBaseButton* buttonOf(QAction* action) {
    QWidget* tab = tabOf(action);
    return tab ? tab->findChild<zBaseButton*>(QStringLiteral("curText")) : nullptr;
}

/// @return what an entry is for, to whom cannot see the page that it leads to.
QString descriptionOf(const QString& entry) {
    if (entry == excelImportEntry) return QStringLiteral("由Excel文件或文件夹新建工程");
    if (entry == tenderImportEntry) return QStringLiteral("由电子招投标数据文件新建工程");
    return QStringLiteral("在此窗口中新建") + entry;
}

}  // namespace

template <typename Apply>
void NewProCfgDialogPrivate::forEntries(const QString& name, Apply&& apply) {
    for (QAction* action : pageOfAction.keys()) {
        // It may have gone, with the dialog or alone, while the host had to do with another.
        if (!pageOfAction.contains(action)) continue;
        QWidget* tab = tabOf(action);
        if (tab && tab->property(nameProperty).toString() == name) apply(tab);
    }
}

void NewProCfgDialog::setGcButtonEnable(QString name, bool enabled) {
    operate(d, [&](Parts& parts) {
        parts.forEntries(name, [&](QWidget* tab) { tab->setEnabled(enabled); });
    });
}

void NewProCfgDialog::setGcButtonVisible(QString name, bool visible) {
    operate(d, [&](Parts& parts) {
        parts.forEntries(name, [&](QWidget* tab) { tab->setVisible(visible); });
    });
}

void NewProCfgDialog::setKJMRWZ(QString name, bool checked) {
    operate(d, [&](Parts& parts) {
        parts.forEntries(name, [&](QWidget* tab) {
            if (auto* entry = qobject_cast<RibbonTab*>(tab)) entry->setChecked(checked);
        });
    });
}

QAction* NewProCfgDialog::addXjPage(const RIBBON::CentralTab& tab, QWidget* page) {
    return operateOr<QAction*>(d, nullptr, [&](Parts& parts) {
        QStackedWidget* pages = parts.pageStack.need();
        // Ahead of the host, which may throw: a page beside the stack would lie over its pages.
        if (page && pages->indexOf(page) < 0) pages->addWidget(page);
        const QPointer<QWidget> shown(page);
        QAction* action = parts.ribbon->addTab(tab);
        if (!action) return action;  // the page stays, and the host has no entry for it
        parts.ribbon.need();         // where it has gone, the entry has, too
        if (zBaseButton* button = buttonOf(action)) {
            button->installEventFilter(this);
            button->setAccessibleDescription(descriptionOf(tab.text));
        }
        connect(action, &QAction::triggered, this, &NewProCfgDialog::slotRibbonTriggered);
        parts.pageOfAction.insert(action, shown);
        parts.actionOfTab.insert(tab.text, action);
        // The ribbon owns the action, and the host may take it out again.
        connect(action, &QObject::destroyed, this, [this, action, text = tab.text] {
            operate({d, "addXjPage"}, [&](Parts& entries) { entries.forgetEntry(action, text); });
        });
        return action;
    });
}

/// While the dialog goes: what its widgets report then finds nothing here.
void NewProCfgDialogPrivate::forgetEntries() {
    for (QAction* action : pageOfAction.keys()) action->disconnect(q);
    pageOfAction.clear();
    actionOfTab.clear();
}

void NewProCfgDialogPrivate::forgetEntry(QAction* action, const QString& text) {
    pageOfAction.remove(action);
    if (actionOfTab.value(text) != action) return;
    actionOfTab.remove(text);
    // An older entry of the same text is the one again.
    for (QAction* other : pageOfAction.keys()) {
        if (other->text() == text) actionOfTab.insert(text, other);
    }
}

void NewProCfgDialog::slotRibbonTriggered() {
    auto* action = qobject_cast<QAction*>(sender());
    if (!action) return;
    operate(d, [action](Parts& parts) { parts.dispatch(action); });
}

void NewProCfgDialogPrivate::dispatch(QAction* action) {
    const QString name = action->property(nameProperty).toString();
    if (name == excelImportEntry) {
        runImport(action, &NewProCfgDialog::slotImportExcelNewPro);
        return;
    }
    if (name == tenderImportEntry) {
        runImport(action, &NewProCfgDialog::slotImportCJZPro);
        return;
    }
    if (const newpro::ProjectKind* chosen = newpro::kindOfLabel(name)) {
        if (built && chosen->programType == newpro::BudgetProgram) {
            chooseBudget(*chosen);
        } else if (built && chosen->programType == newpro::ContractingProgram) {
            chooseContracting(*chosen);
        } else {
            // The other kinds share the lists of the kind before them: deliberate, no reload. It
            // would empty them where the configuration has no models for the kind's own type.
            kind.choose(*chosen);
        }
    }
    if (QWidget* page = pageOfAction.value(action)) pageStack->setCurrentWidget(page);
    emphasise(action);
}

/// If `page` is the one shown, goes to the general-tax page. Its button alone does not tell: a
/// second click takes the mark off "预算工程" and leaves its page where it is.
void NewProCfgDialogPrivate::leavePage(int page) {
    if (!taxRow->isChecked(page) && taxPageStack->currentIndex() != page) return;
    taxRow->check(newpro::GeneralPage);
    taxRow->setChecked(page, false);
    taxPageStack->slideInIdx(newpro::GeneralPage);
}

void NewProCfgDialogPrivate::chooseBudget(const newpro::ProjectKind& budget) {
    leavePage(newpro::ContractingPage);
    taxRow->setShown(newpro::BusinessPage, true);
    taxRow->setShown(newpro::ContractingPage, false);
    kind.choose(budget);
    if (!CpfMain::GetInstance()->IsProdAreaYN()) {
        taxRow->setShown(newpro::BusinessPage, true);
        catalogue.lists[newpro::BusinessTax]->show();
        clearTemplateTree();
        q->addMoBanWidget();
    }
    q->GetModelCfgAndInitData();
    q->flushListWidget();
    askTenderImport();
}

// Deliberately not the order of the budget kind: here the models are reloaded before the tree is
// rebuilt, in every area, and the lists are not refreshed. Hosts see the order in what they are
// asked.
void NewProCfgDialogPrivate::chooseContracting(const newpro::ProjectKind& contracting) {
    leavePage(newpro::BusinessPage);
    taxRow->setShown(newpro::BusinessPage, false);
    taxRow->setShown(newpro::ContractingPage, true);
    kind.choose(contracting);
    catalogue.lists[newpro::BusinessTax]->hide();
    taxRow->setShown(newpro::BusinessPage, false);
    importTenderButton->hide();
    q->GetModelCfgAndInitData();
    clearTemplateTree();
    q->addMoBanWidget();
    askTenderImport();
}

void NewProCfgDialogPrivate::askTenderImport() {
    const QString answer =
        TranMiUtilAction::Instance()->JudageValue(QStringLiteral("CJZ新建"), QString());
    if (!answer.isEmpty()) importTenderButton->hide();
}

void NewProCfgDialogPrivate::runImport(QAction* action, void (NewProCfgDialog::*slot)()) {
    const QString importName = action->property(nameProperty).toString();
    const QString kindName = newpro::kindName(kind.programType);
    QAction* kindAction = actionOfTab.value(kindName);
    if (kindAction) {
        q->setKJMRWZ(kindName, true);
        q->setKJMRWZ(importName, false);
    }
    (q.need()->*slot)();
    if (!kindAction) return;
    if (QWidget* page = pageOfAction.value(kindAction)) pageStack->setCurrentWidget(page);
    emphasise(kindAction);
}

/// Sets the entries' fonts: bold for `current`, normal for the others.
void NewProCfgDialogPrivate::emphasise(QAction* current) {
    for (QAction* action : pageOfAction.keys()) {
        zBaseButton* button = buttonOf(action);
        if (!button) continue;
        QFont font = button->font();
        font.setWeight(action == current ? QFont::Bold : QFont::Normal);
        button->setFont(font);
    }
}

bool NewProCfgDialog::eventFilter(QObject* watched, QEvent* event) {
    return operateOr(d, false, [&](Parts& parts) {
        // The type first: a tree that is being deleted still sends events, and is no tree any more.
        if (event->type() == QEvent::Resize && watched == parts.templateTree)
            parts.fitTemplateTree();
        // Ribbon entries never react to the keyboard.
        if (watched->objectName() == QLatin1String("curText")) {
            switch (event->type()) {
                case QEvent::KeyPress:
                case QEvent::KeyRelease:
                case QEvent::ShortcutOverride:
                    event->accept();
                    return true;
                default:
                    break;
            }
        }
        return RoundedDialog::eventFilter(watched, event);
    });
}

void NewProCfgDialogPrivate::buildRibbonEntries() {
    QWidget* audit = q->addShXjWid();
    const struct {
        QString text;
        QString icon;
        QWidget* page;
    } entries[] = {
        {QStringLiteral("预算工程"), QString(), mainPage},
        {QStringLiteral("审核工程"), QString(), audit},
        {excelImportEntry, QStringLiteral(":/Image/Home/excelXJ.svg"), mainPage},
        {tenderImportEntry, QStringLiteral(":/Image/Home/drYfj.svg"), mainPage},
    };
    for (const auto& entry : entries) q->addXjPage({entry.icon, entry.text, 0}, entry.page);
    importTenderButton->hide();
    ribbon->panelLayout()->addStretch();

    q->setKJMRWZ(entries[0].text, true);
    emphasise(actionOfTab.value(entries[0].text));
}
