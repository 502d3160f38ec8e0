/// The dialog in the hands of a host and a user who do everything that can be done with it.
#pragma once

#include <QMenu>
#include <QMetaMethod>
#include <map>

#include "tests/dialog/DialogFixture.h"

namespace dialog_tests {

class HostileUse : public DialogTest {
  protected:
    struct Place {
        std::string call;
        int nth;
    };
    /// @return every host call that constructing the dialog makes, each with its number.
    std::vector<Place> callsOfConstruction() {
        make();
        std::vector<Place> places;
        std::map<std::string, int> seen;
        for (const std::string& name : journalNames({"call"})) {
            places.push_back({name, ++seen[name]});
        }
        dialog.reset();
        return places;
    }
    /// Everything that a host or a user may still do with a dialog, whole or not.
    void useEverything() {
        host.switches().fileDialogPrepared = true;
        host.switches().firstPage = workbench::FirstPage::Absent;
        expectWholeOnScreen();
        dialog->SetLsjl({QStringLiteral("x"), QString()});
        dialog->SetIsFirstPageOpen(false);
        dialog->InitJcTx();
        dialog->setKJMRWZ(budgetLabel, true);
        dialog->setGcButtonEnable(budgetLabel, true);
        dialog->setGcButtonVisible(budgetLabel, true);
        std::unique_ptr<QWidget> page = std::make_unique<QWidget>();
        if (dialog->addXjPage({QString(), contractingLabel, 0}, page.get()))
            (void)page.release();  // it belongs to the dialog now
        page.reset();
        const QMetaObject& meta = NewProCfgDialog::staticMetaObject;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            const QMetaMethod method = meta.method(i);
            if (method.parameterCount() == 0) method.invoke(dialog.get(), Qt::DirectConnection);
        }
        for (int i = -1; i < 6; ++i) {
            QMetaObject::invokeMethod(dialog.get(), "slotCalculationTaxClicked", Q_ARG(int, i));
        }
        for (QWidgetAction* action : entries()) action->trigger();
        for (auto* button : dialog->findChildren<zBaseButton*>()) {
            if (button->isVisible()) button->click();
        }
        QEvent resize(QEvent::Resize);
        dialog->eventFilter(dialog.get(), &resize);
        dialog->grab();
        settle();
        dialog->close();
        dialog.reset();
        expectNoStrays();
    }
    /// Whatever was missing when it was built: large enough, and what stands in it can be reached.
    void expectWholeOnScreen() {
        dialog->show();
        settle();
        EXPECT_GE(dialog->width(), 880);
        EXPECT_GE(dialog->height(), 750);
        auto* create = dialog->findChild<zBaseButton*>(QStringLiteral("btnNewProject"));
        if (create && create->isVisible()) {
            EXPECT_EQ(create->visibleRegion().boundingRect(), create->rect());
        }
    }
    /// A page that a half-built dialog never put anywhere must not outlive it.
    static void expectNoStrays() {
        settle();
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (qobject_cast<QMenu*>(widget)) continue;
            ADD_FAILURE() << "left behind: " << widget->metaObject()->className() << ' '
                          << widget->objectName().toStdString();
            delete widget;
        }
    }
};

}  // namespace dialog_tests
