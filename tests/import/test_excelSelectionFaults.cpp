// What goes wrong around the Excel selection dialog: it is reported once, and a second try
// succeeds.
#include "tests/import/ExcelSelection.h"
#include "workbench/hostlibs/common/FileDialogState.h"

namespace {

using namespace testing_support;

struct HostCall {
    const char* call;
    const char* reportedAs;
};

TEST_F(ExcelSelection, reports_exceptions_of_its_construction_and_stays_usable) {
    const HostCall calls[] = {
        {"InterfaceAdaptation::openMaxDialogMode", "importExcelSelFile::importExcelSelFile"},
        {"ProjectSettingHelper::GetProjectSettingHelper", "importExcelSelFile::loadJjms"},
        {"ProjectSettingHelper::GetProTaxTemplateInfoList", "importExcelSelFile::loadJjms"}};
    for (const HostCall& call : calls) {
        for (const Thrown& thrown : thrownKinds()) {
            SCOPED_TRACE(std::string(call.call) + ", " + thrown.name);
            clearJournal();
            throwAt(call.call, thrown.as);
            importExcelSelFile dialog(nullptr);
            EXPECT_EQ(journalLines({"exception"}),
                      Lines{"exception " + std::string(call.reportedAs) + ": " + thrown.reported});
            throwNoMore();
            // By it the importing plug-in is found.
            const bool isChosen = call.reportedAs == std::string("importExcelSelFile::loadJjms");
            EXPECT_EQ(dialog.GetAppGc(), isChosen ? QStringLiteral("Kvys") : QString());
            answerWith(installation.folder());
            ASSERT_TRUE(QMetaObject::invokeMethod(&dialog, "slotClickedSelExcelDir"));
            EXPECT_EQ(dialog.GetImportType(), 1);
        }
    }
}

/// Everything that a host or a user may do with a dialog, whole or not; at last a folder is chosen.
void useEverything(importExcelSelFile& dialog, const QString& folder) {
    dialog.show();
    settle();
    for (QWidget* tile : dialog.findChildren<zBaseWidget*>()) {
        for (const QEvent::Type type : {QEvent::Enter, QEvent::Leave})
            ExcelSelection::send(tile, type);
        QTest::mouseClick(tile, Qt::LeftButton);
    }
    const QString types[] = {QStringLiteral("Kvzcb"), QStringLiteral("Kvys")};
    for (const QString& type : types) {
        for (const char* function : {"loadJjms", "loadGcmb", "updateModeSelection"})
            EXPECT_TRUE(QMetaObject::invokeMethod(&dialog, function, Q_ARG(QString, type)));
    }
    dialog.grab();
    auto* button = dialog.findChild<zBaseButton*>(QStringLiteral("btnSelDir"));
    if (button && button->isVisible()) {
        click(button);
    } else {
        EXPECT_TRUE(QMetaObject::invokeMethod(&dialog, "slotClickedSelExcelDir"));
    }
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.GetPath(), folder);
}

TEST_F(ExcelSelection, stays_usable_whichever_question_for_a_size_throws) {
    for (const char* call : scalingCalls) {
        std::unique_ptr<importExcelSelFile> dialog;
        const auto make = [&] {
            clearJournal();
            dialog = std::make_unique<importExcelSelFile>(nullptr);
        };
        const auto use = [&] {
            EXPECT_EQ(countOf("exception"), 1);
            answerWith(installation.folder());
            useEverything(*dialog, installation.folder());
            EXPECT_EQ(countOf("exception"), 1);
        };
        EXPECT_GT(withEveryCallThrowing(call, make, use), 40);
    }
}

TEST_F(ExcelSelection, may_lose_any_of_its_parts) {
    for (const char* gone : {"ysTile", "zcbTile", "m_pJjmsCombo", "btnSelFile", "btnSelDir"}) {
        SCOPED_TRACE(gone);
        importExcelSelFile dialog(nullptr);
        delete child<QWidget>(&dialog, gone);
        answerWith(installation.folder());
        useEverything(dialog, installation.folder());
    }
}

TEST_F(ExcelSelection, reports_exceptions_of_its_slots_and_succeeds_the_second_time) {
    const QString path = installation.write(QStringLiteral("a.xlsx"), smallestWorkbook());
    const struct {
        const char* call;
        const char* slot;
    } table[] = {{"zFileDialog::getCurrentPath", "slotClickedSelExcelFile"},
                 {"SharedInterface::GetAppPath", "slotClickedSelExcelFile"},
                 {"zFileDialog::getOpenFileName", "slotClickedSelExcelFile"},
                 {"LibXLExcel::Open", "slotClickedSelExcelFile"},
                 {"zFileDialog::getCurrentPath", "slotClickedSelExcelDir"},
                 {"zFileDialog::getOpenFileName", "slotClickedSelExcelDir"}};
    for (const auto& row : table) {
        for (const Thrown& thrown : thrownKinds()) {
            SCOPED_TRACE(std::string(row.call) + " in " + row.slot + ", " + thrown.name);
            workbench::resetFileDialog();
            importExcelSelFile dialog(nullptr);
            clearJournal();
            dialog.show();
            answerWith(path);
            throwAt(row.call, thrown.as);
            ASSERT_TRUE(QMetaObject::invokeMethod(&dialog, row.slot));
            EXPECT_EQ(journalLines({"exception"}),
                      Lines{std::string("exception importExcelSelFile::") + row.slot + ": " +
                            thrown.reported});
            expectNothingChosen(dialog);
            throwNoMore();
            answerWith(path);
            ASSERT_TRUE(QMetaObject::invokeMethod(&dialog, row.slot));
            EXPECT_FALSE(dialog.isVisible());
            EXPECT_EQ(dialog.GetPath(), path);
        }
    }
}

}  // namespace
