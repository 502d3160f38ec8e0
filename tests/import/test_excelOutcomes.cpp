/// What the Excel selection dialog shows of its models, and what it answers in the end.
#include "tests/import/ExcelSelection.h"

namespace {

using namespace testing_support;

/// Where the host's combo box keeps the state of an entry.
const int stateRole = Qt::UserRole + 100;

TEST_F(ExcelSelection, gives_every_model_the_picture_of_its_tax_mode_and_its_state) {
    const QString kvys = QStringLiteral("Kvys");
    const char* const pictures[] = {":/Image/Home/XiaLaZeng.svg", ":/Image/Home/XiaLaJian.svg",
                                    ":/Image/Home/XiaLaYing.svg"};
    installation.clearModels();
    zBaseCombox expected;
    for (int mode : {0, 1, 2}) {
        QList<TaxTemplateInfo> models;
        for (int flag : {0, 1, -7}) {
            TaxTemplateInfo info = model(QStringLiteral("%1/%2").arg(mode).arg(flag));
            info.flag = flag;
            models.append(info);
            expected.addItemState(QLatin1String(pictures[mode]), flag != 0, info.name, QVariant());
        }
        installation.setModels(kvys, mode, models);
    }
    const importExcelSelFile dialog(nullptr);
    const auto picture = [](const QComboBox& combo, int row) {
        return combo.itemIcon(row).pixmap(combo.iconSize()).toImage();
    };
    ASSERT_EQ(combo(dialog)->count(), expected.count());
    for (int row = 0; row < expected.count(); ++row) {
        SCOPED_TRACE(expected.itemText(row).toStdString());
        EXPECT_EQ(combo(dialog)->itemText(row), expected.itemText(row));
        EXPECT_FALSE(picture(expected, row).isNull());
        EXPECT_EQ(picture(*combo(dialog), row), picture(expected, row));
        ASSERT_TRUE(expected.itemData(row, stateRole).isValid());
        EXPECT_EQ(combo(dialog)->itemData(row, stateRole), expected.itemData(row, stateRole));
    }
    EXPECT_NE(picture(expected, 0), picture(expected, 3));
    EXPECT_NE(picture(expected, 3), picture(expected, 6));
    EXPECT_NE(expected.itemData(0, stateRole), expected.itemData(1, stateRole));
}

TEST_F(ExcelSelection, without_models_still_takes_a_workbook_and_names_no_model) {
    installation.clearModels();
    importExcelSelFile dialog(nullptr);
    EXPECT_EQ(models(dialog), QStringList());
    const QString path = installation.write(QStringLiteral("a.xlsx"), smallestWorkbook());
    answerWith(path);
    press(dialog, "btnSelFile");
    EXPECT_EQ(dialog.result(), int(QDialog::Accepted));
    EXPECT_EQ(dialog.GetPath(), path);
    EXPECT_EQ(dialog.GetJjms(), QString());
}

TEST_F(ExcelSelection, names_no_template_after_any_run) {
    const QString path = installation.write(QStringLiteral("a.xlsx"), smallestWorkbook());
    for (const char* button : {"btnSelFile", "btnSelDir"}) {
        importExcelSelFile dialog(nullptr);
        answerWith(path);
        press(dialog, button);
        EXPECT_EQ(dialog.result(), int(QDialog::Accepted));
        EXPECT_EQ(dialog.GetGcmb(), QString()) << button;
        EXPECT_NE(dialog.GetPath(), QString());
    }
}

TEST_F(ExcelSelection, has_nothing_chosen_when_it_is_closed_after_a_refused_file) {
    importExcelSelFile dialog(nullptr);
    answerWith(installation.write(QStringLiteral("text.xlsx"), "no workbook"));
    const auto driver = whenModal<importExcelSelFile>([](importExcelSelFile* shown) {
        click(child<zBaseButton>(shown, "btnSelFile"));
        expectNothingChosen(*shown);
        shown->close();
    });
    EXPECT_EQ(dialog.ShowModal(), 1);
    EXPECT_EQ(countOf("box"), 1);
    EXPECT_EQ(dialog.GetImportType(), -1);
    EXPECT_EQ(dialog.GetPath(), QString());
    EXPECT_EQ(dialog.GetJjms(), QString());
}

}  // namespace
