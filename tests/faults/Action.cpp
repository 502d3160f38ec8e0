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

void runEventLoop() {
    QEventLoop loop;
    QTimer::singleShot(0, &loop, &QEventLoop::quit);
    loop.exec();
}

/// A user who goes to each kind while the host is asked something, and back to where it was.
void pickKinds(const QWidget* dialog) {
    if (!dialog->isVisible() || !dialog->isEnabled()) return;
    QVector<QPointer<QAbstractButton>> entries;
    for (auto* button : dialog->findChildren<QAbstractButton*>(QStringLiteral("curText"))) {
        if (button->text().endsWith(QStringLiteral("工程"))) entries.append(button);
    }
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
    workbench::showHostDialog(second);
    runEventLoop();
    second->close();
    delete second;
}

void deleteCards(const QWidget* dialog) {
    QVector<QPointer<QWidget>> cards;
    for (QWidget* widget : dialog->findChildren<QWidget*>()) {
        if (widget->inherits("ProModelItemForm") || widget->inherits("TemplateProListItem"))
            cards.append(widget);
    }
    for (const QPointer<QWidget>& card : cards) delete card;
}

void deletePages(const QWidget* dialog) {
    for (const char* name : {"stackedWidget", "m_StackedWidget"}) {
        if (auto* stack = dialog->findChild<QStackedWidget*>(QLatin1String(name)))
            delete stack->currentWidget();
    }
}

}  // namespace

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
            if (stage.dialog) pickKinds(stage.dialog);
            return;
        case Action::DeleteDialog:
            delete stage.dialog;
            return;
        case Action::DeleteParent:
            // A dialog that is being made cannot be taken away: it is nobody's yet.
            if (stage.dialog) delete stage.mainWindow;
            return;
        case Action::DeleteCards:
            if (stage.dialog) deleteCards(stage.dialog);
            return;
        case Action::DeletePages:
            if (stage.dialog) deletePages(stage.dialog);
            return;
        default:
            return;
    }
}

}  // namespace faults
