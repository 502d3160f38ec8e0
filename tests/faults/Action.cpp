#include "tests/faults/Action.h"

#include <QAbstractButton>
#include <QApplication>
#include <QEventLoop>
#include <QStackedWidget>
#include <QTimer>
#include <algorithm>

#include "SharedInterface.h"
#include "workbench/hostlibs/common/Host.h"
#include "workbench/scenario/Stage.h"
#include "workbench/scenario/hostDialog.h"

namespace faults {

namespace {

using workbench::Host;
using workbench::Stage;

void answerMissing() {
    workbench::Switches& switches = Host::instance().switches();
    switches.firstPage = workbench::FirstPage::Absent;
    switches.configurationPresent = false;
    switches.pluginManagerPresent = false;
    Host::instance().setMainWindow(nullptr);
}

void answerRefusing() {
    workbench::Switches& switches = Host::instance().switches();
    switches.firstPage = workbench::FirstPage::Busy;
    switches.openVersion = 0;
    switches.account.loggedIn = false;
    switches.account.login = workbench::Login::Cancelled;
    switches.plugins.clear();
    switches.fileAnswers.clear();
    switches.cloud.refused = true;
}

void answerEmpty() {
    workbench::Installation empty;
    // Relative paths must not lead into the folder that the program was started in.
    empty.folder = QStringLiteral("/nonexistent");
    Host::instance().installation() = empty;
    workbench::Switches& switches = Host::instance().switches();
    switches.account.userId.clear();
    switches.areaConfig.clear();
    switches.fileAnswers = {workbench::FileAnswer{}};
}

void answerBroken() {
    Host::instance().switches().cloud.broken = true;
    workbench::Installation& installation = Host::instance().installation();
    for (auto& modes : installation.models) {
        ProjectSettingSpace::ProTaxTemplateInfo strange;
        strange.taxMode = -7;
        strange.models = {TaxTemplateInfo{}};
        modes.prepend(strange);
        for (auto& mode : modes) mode.models.append(TaxTemplateInfo{});
    }
    installation.history = QStringList{QString(), QStringLiteral("##"), QStringLiteral("bd##"),
                                       QString(QChar(0)), QString(3000, QLatin1Char('#'))};
    for (auto& suffixes : installation.suffixes) suffixes.append(QString());
}

/// @return the window that could be taken away: the dialog, or the chooser as long as there is
///         none.
QWidget* windowOf(const Stage& stage) {
    if (stage.dialog) return stage.dialog;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->inherits("xzGcLxDialog")) return window;
    }
    return nullptr;
}

void runEventLoop() {
    QEventLoop loop;
    QTimer::singleShot(0, &loop, &QEventLoop::quit);
    loop.exec();
}

QVector<QPointer<QAbstractButton>> kindEntries(const QWidget* dialog) {
    QVector<QPointer<QAbstractButton>> entries;
    for (auto* button : dialog->findChildren<QAbstractButton*>(QStringLiteral("curText"))) {
        if (button->text().endsWith(QStringLiteral("工程"))) entries.append(button);
    }
    return entries;
}

/// A user who goes to each kind while the host is asked something, and back to where it was.
void pickKinds(const QWidget* dialog) {
    QVector<QPointer<QAbstractButton>> entries = kindEntries(dialog);
    const auto isChecked = [](const QPointer<QAbstractButton>& entry) {
        return entry->isChecked();
    };
    const auto current = std::find_if(entries.begin(), entries.end(), isChecked);
    if (current != entries.end()) entries.append(*current);
    for (const QPointer<QAbstractButton>& entry : entries) {
        if (entry) entry->click();
    }
}

void openSecondDialog(const Stage& stage) {
    NewProCfgDialog* second =
        workbench::makeHostDialog(stage.setup, *stage.store, stage.mainWindow);
    // No step is played in it.
    second->setProperty(workbench::goesByItselfProperty, true);
    workbench::showHostDialog(second);
    runEventLoop();
    second->close();
    delete second;
}

using Widgets = QVector<QPointer<QWidget>>;

Widgets cardsOf(const QWidget* dialog) {
    Widgets cards;
    for (QWidget* widget : dialog->findChildren<QWidget*>()) {
        if (widget->inherits("ProModelItemForm") || widget->inherits("TemplateProListItem"))
            cards.append(widget);
    }
    return cards;
}

Widgets shownPagesOf(const QWidget* dialog) {
    Widgets pages;
    for (const char* name : {"stackedWidget", "m_StackedWidget"}) {
        auto* stack = dialog->findChild<QStackedWidget*>(QLatin1String(name));
        if (stack && stack->currentWidget()) pages.append(stack->currentWidget());
    }
    return pages;
}

void deleteAll(const Widgets& widgets) {
    for (const QPointer<QWidget>& widget : widgets) delete widget;
}

}  // namespace

bool canAct(Action action, const Stage& stage) {
    if (action < Action::PickKinds) return true;
    // A window that is being made cannot be taken away: it is nobody's yet.
    if (action == Action::DeleteDialog) return windowOf(stage);
    if (action == Action::DeleteParent) return stage.mainWindow && windowOf(stage);
    const QWidget* dialog = stage.dialog;
    if (!dialog) return false;
    switch (action) {
        case Action::PickKinds:
            return dialog->isVisible() && dialog->isEnabled() && !kindEntries(dialog).isEmpty();
        case Action::DeleteCards:
            return !cardsOf(dialog).isEmpty();
        case Action::DeletePages:
            return !shownPagesOf(dialog).isEmpty();
        default:
            return true;
    }
}

void act(Action action, Stage& stage) {
    switch (action) {
        case Action::AnswerMissing:
            return answerMissing();
        case Action::AnswerRefusing:
            return answerRefusing();
        case Action::AnswerEmpty:
            return answerEmpty();
        case Action::AnswerBroken:
            return answerBroken();
        case Action::RunEventLoop:
            return runEventLoop();
        case Action::OpenSecondDialog:
            return openSecondDialog(stage);
        case Action::PickKinds:
            return pickKinds(stage.dialog);
        case Action::DeleteDialog:
            delete windowOf(stage);
            return;
        case Action::DeleteParent:
            delete stage.mainWindow;
            return;
        case Action::DeleteCards:
            return deleteAll(cardsOf(stage.dialog));
        case Action::DeletePages:
            return deleteAll(shownPagesOf(stage.dialog));
        default:
            return;
    }
}

}  // namespace faults
