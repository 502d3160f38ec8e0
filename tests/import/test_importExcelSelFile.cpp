#include "import/importExcelSelFile.h"

#include <QSignalSpy>

#include "tests/import/ExcelSelection.h"
#include "workbench/hostlibs/common/FileDialogState.h"

namespace {

using namespace testing_support;

const QString selected = QStringLiteral(":/Image/Home/select.svg");
const QString unselected = QStringLiteral(":/Image/Home/unselect.svg");

TaxTemplateInfo flagged(const QString& name, int flag) {
    TaxTemplateInfo info = model(name);
    info.flag = flag;
    return info;
}

TEST_F(ExcelSelection, opens_on_the_budget_type_with_nothing_chosen) {
    const importExcelSelFile dialog(nullptr);
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("导入Excel新建"));
    EXPECT_EQ(dialog.size(), QSize(580, 420));
    EXPECT_TRUE(dialog.windowFlags() & Qt::WindowCloseButtonHint);
    EXPECT_EQ(dialog.windowFlags() & Qt::Dialog, Qt::Dialog);
    EXPECT_EQ(dialog.GetAppGc(), QStringLiteral("Kvys"));
    EXPECT_EQ(dialog.GetImportType(), -1);
    EXPECT_EQ(dialog.GetPath() + dialog.GetJjms() + dialog.GetGcmb(), QString());
    EXPECT_EQ(budget(dialog)->backgroundIcon(), selected);
    EXPECT_TRUE(budget(dialog)->autoFillBackground());
    EXPECT_TRUE(contracting(dialog)->isHidden());
    EXPECT_EQ(contracting(dialog)->backgroundIcon(), QString());
    EXPECT_TRUE(contracting(dialog)->autoFillBackground());
}

TEST_F(ExcelSelection, ends_no_application_as_its_last_window) {
    importExcelSelFile dialog(nullptr);
    const QSignalSpy ended(qApp, &QGuiApplication::lastWindowClosed);
    // Only an application that runs tells of its last window.
    QTimer::singleShot(0, &dialog, [&] {
        for (const auto& end : {&importExcelSelFile::accept, &importExcelSelFile::reject}) {
            dialog.show();
            (dialog.*end)();
        }
        dialog.show();
        dialog.close();
        QCoreApplication::exit();
    });
    QApplication::exec();
    EXPECT_EQ(ended.count(), 0);
}

TEST_F(ExcelSelection, names_what_can_be_operated_for_a_screen_reader) {
    const importExcelSelFile dialog(nullptr);
    EXPECT_EQ(combo(dialog)->accessibleName(), QStringLiteral("计价模式"));
    EXPECT_EQ(child<zBaseButton>(&dialog, "btnSelFile")->accessibleName(),
              QStringLiteral("选择文件"));
    EXPECT_EQ(child<zBaseButton>(&dialog, "btnSelDir")->accessibleName(),
              QStringLiteral("选择文件夹"));
}

TEST_F(ExcelSelection, chooses_no_source_by_the_return_key) {
    importExcelSelFile dialog(nullptr);
    dialog.show();
    combo(dialog)->setFocus();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        QTest::keyClick(combo(dialog), key);
        EXPECT_EQ(countOf("zFileDialog::getOpenFileName"), 0);
        expectNothingChosen(dialog);
    }
}

TEST_F(ExcelSelection, asks_the_host_for_the_models_of_every_tax_mode_and_keeps_the_large_mode) {
    { const importExcelSelFile dialog(nullptr); }
    EXPECT_EQ(flowLines(),
              Lines({"call InterfaceAdaptation::openMaxDialogMode(580, 420)",
                     "call ProjectSettingHelper::GetProTaxTemplateInfoList(\"Kvys\", \"\")"}));
}

TEST_F(ExcelSelection, lists_the_models_by_tax_mode_whatever_the_order_of_the_configuration) {
    const QString kvys = QStringLiteral("Kvys");
    installation.clearModels();
    installation.setModels(kvys, 2, {flagged(QStringLiteral("营"), 1)});
    installation.setModels(kvys, 3, {model(QStringLiteral("无此"))});
    installation.setModels(kvys, -1, {model(QStringLiteral("亦无"))});
    installation.setModels(kvys, 1, {flagged(QStringLiteral("简"), 0)});
    installation.setModels(kvys, 0,
                           {flagged(QStringLiteral("甲"), 0), flagged(QStringLiteral("乙"), 2)});
    ProjectSettingSpace::ProTaxTemplateInfo again;
    again.models = {model(QStringLiteral("丙"))};
    installation.values().models[kvys].append(again);

    const importExcelSelFile dialog(nullptr);
    EXPECT_EQ(models(dialog),
              QStringList({QStringLiteral("甲"), QStringLiteral("乙"), QStringLiteral("丙"),
                           QStringLiteral("简"), QStringLiteral("营")}));
    EXPECT_EQ(combo(dialog)->currentIndex(), 0);
    const auto record = combo(dialog)->itemData(1).value<TaxTemplateInfo>();
    EXPECT_EQ(record.name, QStringLiteral("乙"));
    EXPECT_EQ(record.flag, 2);
    EXPECT_EQ(record.basis, QStringList{QStringLiteral("规范")});
    for (int i = 0; i < combo(dialog)->count(); ++i) {
        EXPECT_FALSE(combo(dialog)->itemIcon(i).isNull()) << i;
    }
}

TEST_F(ExcelSelection, leaves_the_business_tax_out_for_general_contracting) {
    const QString kvzcb = QStringLiteral("Kvzcb");
    installation.setModels(kvzcb, 1, {model(QStringLiteral("简"))});
    installation.setModels(kvzcb, 2, {model(QStringLiteral("营"))});
    importExcelSelFile dialog(nullptr);
    ASSERT_TRUE(QMetaObject::invokeMethod(&dialog, "loadJjms", Q_ARG(QString, kvzcb)));
    EXPECT_EQ(models(dialog), QStringList({QStringLiteral("总包甲"), QStringLiteral("简")}));
    EXPECT_EQ(dialog.GetAppGc(), kvzcb);
}

TEST_F(ExcelSelection, without_configuration_has_no_models_and_no_type_but_still_takes_a_folder) {
    installation.switches().configurationPresent = false;
    importExcelSelFile dialog(nullptr);
    EXPECT_EQ(models(dialog), QStringList());
    EXPECT_EQ(dialog.GetAppGc(), QString());
    answerWith(installation.folder());
    press(dialog, "btnSelDir");
    EXPECT_EQ(dialog.result(), int(QDialog::Accepted));
    EXPECT_EQ(dialog.GetJjms(), QString());
}

TEST_F(ExcelSelection, does_nothing_on_the_tile_that_is_selected_already) {
    importExcelSelFile dialog(nullptr);
    dialog.show();
    clearJournal();
    combo(dialog)->setCurrentIndex(2);
    send(budget(dialog), QEvent::Enter);
    click(budget(dialog));
    send(budget(dialog), QEvent::Leave);
    EXPECT_EQ(budget(dialog)->backgroundIcon(), selected);
    EXPECT_TRUE(budget(dialog)->autoFillBackground());
    EXPECT_EQ(combo(dialog)->currentIndex(), 2);
    EXPECT_EQ(flowLines(), Lines());
}

TEST_F(ExcelSelection, switches_the_type_by_the_tiles) {
    importExcelSelFile dialog(nullptr);
    dialog.show();
    contracting(dialog)->show();
    QTest::mouseClick(contracting(dialog), Qt::RightButton);
    EXPECT_EQ(dialog.GetAppGc(), QStringLiteral("Kvys"));

    click(contracting(dialog));
    EXPECT_EQ(dialog.GetAppGc(), QStringLiteral("Kvzcb"));
    EXPECT_EQ(models(dialog), QStringList{QStringLiteral("总包甲")});
    EXPECT_EQ(contracting(dialog)->backgroundIcon(), selected);
    EXPECT_EQ(budget(dialog)->backgroundIcon(), QString());
    EXPECT_TRUE(budget(dialog)->autoFillBackground());

    click(budget(dialog));
    EXPECT_EQ(dialog.GetAppGc(), QStringLiteral("Kvys"));
    EXPECT_EQ(models(dialog).size(), 4);
    EXPECT_EQ(budget(dialog)->backgroundIcon(), selected);
    EXPECT_EQ(contracting(dialog)->backgroundIcon(), QString());
}

TEST_F(ExcelSelection, lights_up_the_tile_that_is_not_selected_under_the_mouse) {
    importExcelSelFile dialog(nullptr);
    send(contracting(dialog), QEvent::Enter);
    EXPECT_EQ(contracting(dialog)->backgroundIcon(), unselected);
    EXPECT_TRUE(contracting(dialog)->autoFillBackground());
    send(contracting(dialog), QEvent::Leave);
    EXPECT_EQ(contracting(dialog)->backgroundIcon(), QString());
    EXPECT_FALSE(contracting(dialog)->autoFillBackground());
}

TEST_F(ExcelSelection, filters_the_events_of_its_tiles_only) {
    importExcelSelFile dialog(nullptr);
    QEvent enter(QEvent::Enter);
    QEvent move(QEvent::FocusIn);
    EXPECT_TRUE(dialog.eventFilter(budget(dialog), &enter));
    EXPECT_TRUE(dialog.eventFilter(contracting(dialog), &enter));
    EXPECT_FALSE(dialog.eventFilter(budget(dialog), &move));
    EXPECT_FALSE(dialog.eventFilter(combo(dialog), &enter));
    EXPECT_FALSE(dialog.eventFilter(nullptr, &enter));
    QEvent leave(QEvent::Leave);
    EXPECT_TRUE(dialog.eventFilter(budget(dialog), &leave));
    EXPECT_TRUE(dialog.eventFilter(contracting(dialog), &leave));
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
        QMouseEvent released(QEvent::MouseButtonRelease, QPointF(), button, {}, {});
        EXPECT_EQ(dialog.eventFilter(budget(dialog), &released), button == Qt::LeftButton);
    }
}

TEST_F(ExcelSelection, accepts_a_workbook_that_opens) {
    const QString path = installation.write(QStringLiteral("清单 😀.xlsx"), smallestWorkbook());
    importExcelSelFile dialog(nullptr);
    combo(dialog)->setCurrentIndex(1);
    answerWith(path);
    clearJournal();
    press(dialog, "btnSelFile");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.GetImportType(), 0);
    EXPECT_EQ(dialog.GetPath(), path);
    EXPECT_EQ(dialog.GetJjms(), QStringLiteral("一般乙"));
    EXPECT_EQ(dialog.GetGcmb(), QString());
    EXPECT_EQ(flowLines(),
              Lines({"dialog importExcelSelFile opened", "call zFileDialog::getCurrentPath()",
                     "call SharedInterface::GetAppPath()",
                     "call zFileDialog::getOpenFileName(\"importExcelSelFile\", \"" +
                         installation.folder().toStdString() +
                         "\", [\"Excel文件\",\"xls\",\"xlsx\"], 0, \"选择Excel文件\", true, \"\", "
                         "true, 1)",
                     "call LibXLExcel::Open(\"" + path.toStdString() + "\")",
                     "dialog importExcelSelFile done 1"}));
}

TEST_F(ExcelSelection, refuses_a_file_that_is_no_workbook_and_stays_open) {
    const QString path = installation.write(QStringLiteral("text.xlsx"), "no workbook");
    importExcelSelFile dialog(nullptr);
    answerWith(path);
    press(dialog, "btnSelFile");
    expectNothingChosen(dialog);
    const QVector<QJsonObject> boxes = entriesOf("showInforByOneBtn");
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_EQ(boxes.first().value(QLatin1String("args")).toArray().at(1).toString(),
              QStringLiteral("文件打开失败！\r\n①请检查excel文件是否被占用\r\n②请检查是否为正确的"
                             "excel文件\r\n完成上述操作后重新打开。如果仍然提示该错误，请联系开发商"
                             "协助解决问题"));

    answerWith(installation.write(QStringLiteral("good.xlsx"), smallestWorkbook()));
    press(dialog, "btnSelFile");
    EXPECT_EQ(dialog.GetImportType(), 0);
}

TEST_F(ExcelSelection, refuses_it_with_the_sign_of_information_over_the_dialog) {
    const QString path = installation.write(QStringLiteral("text.xlsx"), "no workbook");
    importExcelSelFile dialog(nullptr);
    answerWith(path);
    installation.switches().boxesAnswerThemselves = false;
    const auto driver = whenModal<QDialog>([&](QDialog* box) {
        EXPECT_EQ(box->parentWidget(), &dialog);
        EXPECT_TRUE(child<QLabel>(box, "info"));
        box->close();
    });
    press(dialog, "btnSelFile");
}

TEST_F(ExcelSelection, accepts_a_folder_without_opening_anything_in_it) {
    installation.write(QStringLiteral("tree/broken.xlsx"), "no workbook");
    importExcelSelFile dialog(nullptr);
    answerWith(installation.path(QStringLiteral("tree")));
    clearJournal();
    press(dialog, "btnSelDir");
    EXPECT_FALSE(dialog.isVisible());
    EXPECT_EQ(dialog.GetImportType(), 1);
    EXPECT_EQ(dialog.GetPath(), installation.path(QStringLiteral("tree")));
    EXPECT_EQ(dialog.GetJjms(), QStringLiteral("一般甲"));
    EXPECT_EQ(flowLines(),
              Lines({"dialog importExcelSelFile opened", "call zFileDialog::getCurrentPath()",
                     "call zFileDialog::getOpenFileName(\"importExcelSelFile\", \"\", [], 0, "
                     "\"打开文件夹\", true, \"\", true, 2)",
                     "dialog importExcelSelFile done 1"}));
}

TEST_F(ExcelSelection, changes_nothing_when_no_source_is_chosen) {
    for (const char* button : {"btnSelFile", "btnSelDir"}) {
        importExcelSelFile dialog(nullptr);
        answerWith(QString());
        press(dialog, button);
        expectNothingChosen(dialog);
        EXPECT_EQ(countOf("LibXLExcel::Open") + countOf("box"), 0);
    }
}

TEST_F(ExcelSelection, starts_in_the_folder_that_was_used_last) {
    const QString path = installation.write(QStringLiteral("books/a.xlsx"), smallestWorkbook());
    for (const char* button : {"btnSelFile", "btnSelFile", "btnSelDir"}) {
        importExcelSelFile dialog(nullptr);
        answerWith(path);
        press(dialog, button);
    }
    const auto folderOf = [](const QJsonObject& entry) {
        return entry.value(QLatin1String("args")).toArray().at(1).toString();
    };
    const QVector<QJsonObject> asked = entriesOf("zFileDialog::getOpenFileName");
    ASSERT_EQ(asked.size(), 3);
    EXPECT_EQ(folderOf(asked.at(0)), installation.folder());
    EXPECT_EQ(folderOf(asked.at(1)), installation.path(QStringLiteral("books")));
    EXPECT_EQ(folderOf(asked.at(2)), installation.path(QStringLiteral("books")));
}

TEST_F(ExcelSelection, answers_rejected_when_it_is_closed) {
    importExcelSelFile dialog(nullptr);
    const auto driver =
        whenModal<importExcelSelFile>([](importExcelSelFile* shown) { shown->close(); });
    EXPECT_EQ(dialog.ShowModal(), 1);
    EXPECT_EQ(dialog.GetImportType(), -1);
}

TEST_F(ExcelSelection, may_be_deleted_while_its_file_dialog_is_open) {
    for (const char* slot : {"slotClickedSelExcelFile", "slotClickedSelExcelDir"}) {
        SCOPED_TRACE(slot);
        installation.switches().fileDialogPrepared = false;
        const QPointer<importExcelSelFile> dialog(new importExcelSelFile(nullptr));
        const auto driver = whenModal<QDialog>([&](QDialog*) { delete dialog.data(); });
        ASSERT_TRUE(QMetaObject::invokeMethod(dialog, slot));
        EXPECT_FALSE(dialog);
    }
    EXPECT_EQ(countOf("LibXLExcel::Open") + countOf("exception"), 0);
}

TEST_F(ExcelSelection, may_be_deleted_while_its_message_is_shown) {
    installation.switches().boxesAnswerThemselves = false;
    answerWith(installation.write(QStringLiteral("text.xlsx"), "no workbook"));
    const QPointer<importExcelSelFile> dialog(new importExcelSelFile(nullptr));
    const auto driver = whenModal<QDialog>([&](QDialog*) { delete dialog.data(); });
    ASSERT_TRUE(QMetaObject::invokeMethod(dialog, "slotClickedSelExcelFile"));
    EXPECT_FALSE(dialog);
}

}  // namespace
