/// What the tests of both imports share: the dialog that they start from, and how they begin.
#pragma once

#include "import/importFlows.h"
#include "tests/support/FakeDialog.h"

namespace testing_support {

const inline std::string accepted = "dialog FakeDialog done 1";
const inline std::string service = "call osgi::ObjectHelper::GetService(\"firstPagePlugin\")";
const inline std::string query = "call FirstPagePlugin::canStartNew(true)";

struct ImportFlow : testing::Test {
    TemporaryInstallation installation;
    QWidget mainWindow;
    FakeDialog dialog;

    ImportFlow() {
        workbench::Host::instance().setMainWindow(&mainWindow);
        installation.switches().fileDialogPrepared = true;
        dialog.plugins = AppPluginManager::instance();
        clearJournal();
    }
    void answerWith(const QString& path) {
        workbench::FileAnswer answer;
        answer.path = path;
        installation.switches().fileAnswers = {answer};
    }
};

}  // namespace testing_support
