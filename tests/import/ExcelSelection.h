/// What the tests of the Excel selection dialog share.
#pragma once

#include <QDialog>

#include "import/importExcelSelFile.h"
#include "tests/import/ExcelFiles.h"
#include "tests/support/TestSupport.h"
#include "zBaseControl.h"

namespace testing_support {

/// Every file dialog is answered by the test.
struct ExcelSelection : testing::Test {
    TemporaryInstallation installation;

    ExcelSelection() { installation.switches().fileDialogPrepared = true; }

    void answerWith(const QString& path) {
        workbench::FileAnswer answer;
        answer.path = path;
        installation.switches().fileAnswers = {answer};
    }
    static zBaseCombox* combo(const importExcelSelFile& dialog) {
        return child<zBaseCombox>(&dialog, "m_pJjmsCombo");
    }
    static zBaseWidget* budget(const importExcelSelFile& dialog) {
        return child<zBaseWidget>(&dialog, "ysTile");
    }
    static zBaseWidget* contracting(const importExcelSelFile& dialog) {
        return child<zBaseWidget>(&dialog, "zcbTile");
    }
    static void send(QWidget* tile, QEvent::Type type) {
        QEvent event(type);
        QCoreApplication::sendEvent(tile, &event);
    }
    static QStringList models(const importExcelSelFile& dialog) {
        QStringList texts;
        for (int i = 0; i < combo(dialog)->count(); ++i) texts += combo(dialog)->itemText(i);
        return texts;
    }
    static void press(importExcelSelFile& dialog, const char* button) {
        dialog.show();
        click(child<zBaseButton>(&dialog, button));
    }
    static void expectNothingChosen(const importExcelSelFile& dialog) {
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(dialog.GetImportType(), -1);
        EXPECT_EQ(dialog.GetPath(), QString());
        EXPECT_EQ(dialog.GetJjms(), QString());
        EXPECT_EQ(dialog.GetGcmb(), QString());
    }
};

}  // namespace testing_support
