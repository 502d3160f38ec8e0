// What a person does while the program records. Each recording is played by the program itself.
#include <QAction>
#include <QCheckBox>
#include <QCloseEvent>
#include <QMenu>
#include <QTreeWidget>
#include <QWindow>

#include "dialog/xzGcLxDialog.h"
#include "import/importExcelSelFile.h"
#include "tests/workbench/RecordFixture.h"
#include "workbench/scenario/TemporaryCopy.h"

namespace testing_support {

namespace {

const char* const firstModel = "清单计价【国标2013规范，四川2020定额】（税率9%）";
const char* const school = "锦江区第三中学教学楼.GCFX";

TEST_F(RecordTest, NothingDoneMakesNoFile) {
    EXPECT_EQ(record([] {}), 0) << report.toStdString();
    EXPECT_FALSE(QFileInfo::exists(options.file));
    EXPECT_EQ(
        report,
        options.file + QStringLiteral(": nothing was done in the dialog, and no file is written"));
}

TEST_F(RecordTest, ModelCardsByButtonDoubleClickAndMenu) {
    const int code = record([this] {
        inDialog([this](auto*) { click(workbench::newButtonOf(model(firstModel))); });
        inDialog([this](auto*) {
            taxMode("简易计税");
            QWidget* card = model("清单计价【国标2013规范，四川2020定额】");
            doubleClick(child<QWidget>(card, "lblTitle"));
        });
        inDialog([this](auto*) {
            const auto menu = whenModal<QMenu>([](QMenu* shown) {
                QTest::mouseClick(shown, Qt::LeftButton, {},
                                  shown->actionGeometry(shown->actions().last()).center());
            });
            click(workbench::menuButtonOf(model(firstModel)));
        });
        inDialog([this](auto*) {
            const auto menu = whenModal<QMenu>([](QMenu* shown) {
                QTest::keyClick(shown, Qt::Key_Down);
                QTest::keyPress(shown, Qt::Key_Return);  // let go when the menu is gone
            });
            click(workbench::menuButtonOf(model(firstModel)));
        });
    });
    EXPECT_EQ(code, 0) << report.toStdString();
    EXPECT_EQ(steps().size(), 9u);
}

TEST_F(RecordTest, TheTemplateTreeByButtonAndDoubleClick) {
    const auto row = [this](const char* name) {
        auto* tree = child<QTreeWidget>(dialog, "templateTree");
        QTreeWidgetItem* item = workbench::templateRow(tree, utf(name));
        tree->scrollToItem(item);
        return tree->itemWidget(item, 0);
    };
    const int code = record([&] {
        inDialog([&](auto*) {
            taxMode("模板工程");
            click(row("高层住宅")->findChild<zBaseButton*>());
        });
        inDialog([&](auto*) {
            taxMode("模板工程");
            QWidget* place = row("城市道路");
            workbench::pressTwice(place, QPoint(10, place->height() / 2));
        });
    });
    EXPECT_EQ(code, 0) << report.toStdString();
    EXPECT_EQ(steps(), (Lines{"open", "taxMode 模板工程", "template 高层住宅.MODX new", "open",
                              "taxMode 模板工程", "template 城市道路.MODX double-click"}));
}

TEST_F(RecordTest, PathsThatAreTypedAndRefused) {
    const int code = record([this] {
        inDialog([this](auto*) {
            ribbon("审核工程");
            QLineEdit* editor = workbench::fileCombo(dialog)->lineEdit();
            QTest::mouseClick(editor, Qt::LeftButton);
            QTest::keyClick(editor, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClicks(editor, QStringLiteral("nowhere.GCFX"));
            for (int i = 0; i < 2; ++i) {
                const auto box = answerBox();
                create();
            }
            type(projectFile(school));
            create();
        });
    });
    EXPECT_EQ(code, 0) << report.toStdString();
    EXPECT_EQ(steps(),
              (Lines{"open", "ribbon 审核工程", "file nowhere.GCFX", "create", "create",
                     std::string("file {installation}/ProjectFiles/") + school, "create"}));
}

TEST_F(RecordTest, AnEntryOfTheHistoryByMouseAndByKeys) {
    const int code = record([this] {
        enum Way { Mouse, Keys, KeysInTheOpenList };
        for (const Way way : {Mouse, Keys, KeysInTheOpenList})
            inDialog([this, way](auto*) {
                ribbon("审核工程");
                QComboBox* combo = workbench::fileCombo(dialog);
                combo->setFocus();
                if (way == Mouse) {
                    chooseFrom(combo, 1);
                } else if (way == Keys) {
                    QTest::keyClick(combo, Qt::Key_Down);
                    QTest::keyClick(combo, Qt::Key_Down);
                } else {
                    QTest::keyClick(combo, Qt::Key_Down, Qt::AltModifier);
                    QWidget* list = combo->view();
                    ASSERT_TRUE(list->isVisible());
                    QTest::keyClick(list, Qt::Key_Down);
                    QTest::keyClick(list, Qt::Key_Down);
                    QTest::keyClick(list, Qt::Key_Return);
                }
                create();
            });
    });
    EXPECT_EQ(code, 0) << report.toStdString();
    // Between the two the host says that a plug-in was loaded.
    EXPECT_EQ(steps(),
              (Lines{"open", "ribbon 审核工程",
                     "pick {installation}/ProjectFiles/高新区科研楼安装工程.GCFX", "create",
                     "host …", "open", "ribbon 审核工程", "key Down fileCombo",
                     "key Down fileCombo", "create", "open", "ribbon 审核工程",
                     std::string("pick {installation}/ProjectFiles/") + school, "create"}));
}

TEST_F(RecordTest, TheFileDialogByItsAnswers) {
    const int code = record([this] {
        inDialog([this](auto*) {
            ribbon("审核工程");
            {
                const auto driver = whenOpen([](Hand& hand) { hand.press("cancelButton"); });
                browse();
            }
            const auto driver = whenOpen([](Hand& hand) {
                hand.clickRow(school);
                hand.press("openButton");
            });
            browse();
            create();
        });
    });
    EXPECT_EQ(code, 0) << report.toStdString();
    EXPECT_EQ(steps(), (Lines{"open", "ribbon 审核工程", "browse", "browse", "create"}));
    const QJsonArray answers = recorded().value(QStringLiteral("host"))[u"fileDialog"].toArray();
    ASSERT_EQ(answers.size(), 2);
    EXPECT_EQ(answers.at(0), QJsonValue(QJsonObject{{QStringLiteral("cancel"), true}}));
    EXPECT_EQ(answers.at(1)[u"path"].toString(),
              QStringLiteral("{installation}/ProjectFiles/") + utf(school));
}

TEST_F(RecordTest, TheLogInByItsAnswerAndWithoutThePassword) {
    const int code = record([&] {
        inDialog([&](auto*) {
            ribbon("审核工程");
            type(utf("个人云盘/我的工程/青羊区社区医院.GCFX"));
            for (const bool accept : {false, true}) {
                const auto driver = answerLogin(accept);
                create();
            }
        });
    });
    EXPECT_EQ(code, 0) << report.toStdString();
    EXPECT_FALSE(text().contains(QStringLiteral("secret")));
    EXPECT_TRUE(text().contains(QStringLiteral("\"userId\": \"zhang\"")));
}

TEST_F(RecordTest, AFileOfTheCloudDiskInTheFileDialog) {
    const int code = record([this] {
        inDialog([this](auto*) {
            ribbon("审核工程");
            const auto open = whenOpen([this](Hand& hand) {
                {
                    const auto login = answerLogin(true);
                    hand.press("place3");
                }
                hand.doubleClickRow("我的工程");
                hand.doubleClickRow("青羊区社区医院.GCFX");
            });
            browse();
            create();
        });
    });
    EXPECT_EQ(code, 0) << report.toStdString() << text().left(2000).toStdString();
}

TEST_F(RecordTest, TheChooser) {
    const auto choose = [this](const char* button) {
        const auto driver = whenModal<xzGcLxDialog>(
            [button](xzGcLxDialog* shown) { click(child<QWidget>(shown, button)); });
        pressInWindow(Qt::Key_N, Qt::ControlModifier | Qt::ShiftModifier);
    };
    const int code = record([&] {
        choose("BtnQx");
        const auto driver = whenModal<NewProCfgDialog>([this](NewProCfgDialog* shown) {
            dialog = shown;
            const char* const name = "2022工程总承包清单计价（税率9%）【初设后】";
            ASSERT_TRUE(QTest::qWaitFor([&] { return model(name) != nullptr; }));
            click(workbench::newButtonOf(model(name)));
        });
        choose("BtnZcb");
    });
    EXPECT_EQ(code, 0) << report.toStdString();
    EXPECT_EQ(steps(),
              (Lines{"open xzGcLxDialog", "click BtnQx", "open xzGcLxDialog", "click BtnZcb",
                     "model 2022工程总承包清单计价（税率9%）【初设后】 new"}));
}

TEST_F(RecordTest, TheExcelImportWithItsModels) {
    const int code = record([this] {
        inDialog([this](auto*) {
            const auto excel = whenModal<importExcelSelFile>([this](importExcelSelFile* shown) {
                auto* models = child<QComboBox>(shown, "m_pJjmsCombo");
                chooseFrom(models, 2);
                const auto open = whenOpen([this](Hand& hand) {
                    hand.write("pathField", installation + QStringLiteral("/Workbooks"));
                    hand.key("pathField", Qt::Key_Return);
                    hand.doubleClickRow("教学楼分部分项清单.xlsx");
                });
                click(child<QWidget>(shown, "btnSelFile"));
            });
            ribbon("导入Excel新建");
        });
    });
    EXPECT_EQ(code, 0) << report.toStdString();
    EXPECT_EQ(steps(), (Lines{"open", "ribbon 导入Excel新建", "key Home m_pJjmsCombo",
                              "key Down m_pJjmsCombo", "key Down m_pJjmsCombo", "excel file"}));
}

TEST_F(RecordTest, TheRibbonAndTheWaysToClose) {
    const int code = record([this] {
        inDialog([this](NewProCfgDialog* shown) {
            ribbon("审核工程");
            ribbon("预算工程");
            QTest::keyClick(shown, Qt::Key_Escape);
        });
        inDialog([](NewProCfgDialog* shown) { click(child<QWidget>(shown, "closeButton")); });
        // As the window's frame would: QWindow::close() is the program's own way.
        inDialog([](NewProCfgDialog* shown) {
            QCloseEvent close;
            QApplication::sendEvent(shown->windowHandle(), &close);
        });
    });
    EXPECT_EQ(code, 0) << report.toStdString();
    EXPECT_EQ(steps(), (Lines{"open", "ribbon 审核工程", "ribbon 预算工程", "key Esc", "open",
                              "close", "open", "close"}));
}

TEST_F(RecordTest, TheSwitchesOfThePanelBeforeAndBetween) {
    options.host = {{QStringLiteral("skin"), QStringLiteral("dark")}};
    const int code = record([this] {
        QTest::keyClick(child<QComboBox>(window, "firstPage"), Qt::Key_Down);
        QTest::keyClick(child<QCheckBox>(window, "plugins.4"), Qt::Key_Space);
        QTest::keyClick(child<QCheckBox>(window, "configuration"), Qt::Key_Space);
        inDialog([](NewProCfgDialog* shown) { QTest::keyClick(shown, Qt::Key_Escape); });
        QTest::keyClick(child<QComboBox>(window, "firstPage"), Qt::Key_Up);
        QTest::keyClick(child<QCheckBox>(window, "configuration"), Qt::Key_Space);
        QTest::keyClick(child<QCheckBox>(window, "cloud.slow"), Qt::Key_Space);
        inDialog([this](auto*) { click(workbench::newButtonOf(model(firstModel))); });
    });
    EXPECT_EQ(code, 0) << report.toStdString();
    const QJsonObject expected{
        {QStringLiteral("firstPage"), QStringLiteral("busy")},
        {QStringLiteral("configuration"), QStringLiteral("absent")},
        {QStringLiteral("plugins"), QJsonObject{{QStringLiteral("4"), true}}},
        {QStringLiteral("skin"), QStringLiteral("dark")}};
    EXPECT_EQ(recorded().value(QStringLiteral("host")).toObject(), expected);
    EXPECT_EQ(steps(), (Lines{"open", "key Esc", "host … present ready", "open",
                              std::string("model ") + firstModel + " new"}));
}

TEST_F(RecordTest, AnInstallationOfOnesOwnIsNamedFromTheFile) {
    const QString own = folder.filePath(QStringLiteral("own"));
    ASSERT_EQ(workbench::copyFolderWhole(QStringLiteral(YUNNAN_INSTALLATION), own), QString());
    options.installation = own;
    options.isSample = false;
    const int code = record([this] {
        inDialog([this](auto*) {
            click(
                workbench::newButtonOf(model("清单计价【国标2013规范，云南2020定额】（税率9%）")));
        });
    });
    EXPECT_EQ(code, 0) << report.toStdString();
    EXPECT_EQ(recorded().value(QStringLiteral("installation")).toString(), QStringLiteral("own"));
    EXPECT_TRUE(
        QDir(own + QStringLiteral("/ProjectFiles")).entryList({QStringLiteral("*税率*")}).isEmpty())
        << "the person's own installation is left as it is";
}

TEST_F(RecordTest, WhatNoStepSaysIsReportedAndTheFileWritten) {
    const int code = record([this] {
        // No scenario can take the plug-in manager away.
        QTest::keyClick(child<QCheckBox>(window, "pluginManager"), Qt::Key_Space);
        inDialog([this](auto*) {
            ribbon("审核工程");
            type(projectFile(school));
            create();
        });
    });
    EXPECT_EQ(code, 1);
    EXPECT_TRUE(
        report.startsWith(options.file + QStringLiteral(": a play of it gives another journal\n")))
        << report.toStdString();
    EXPECT_TRUE(report.contains(QStringLiteral("\n+  ")) &&
                report.contains(QStringLiteral("AppPluginManager::")))
        << report.toStdString();
    EXPECT_TRUE(report.contains(QStringLiteral("\nDIFFERS      Recorded: recorded\n")) &&
                report.contains(QStringLiteral("\n  only.list[")))
        << report.toStdString();
    EXPECT_EQ(steps().size(), 4u);
}

TEST_F(RecordTest, WhatIsWrongBeforehandIsToldBeforeTheWindowOpens) {
    options.installation = folder.filePath(QStringLiteral("none"));
    EXPECT_EQ(recordScenario(options, report), 2);
    EXPECT_EQ(report, options.installation + QStringLiteral(": no such folder"));
    options.file = folder.filePath(QStringLiteral("none/recorded.json"));
    EXPECT_EQ(recordScenario(options, report), 2);
    EXPECT_EQ(report, options.file + QStringLiteral(": ") + noSuchFolder());
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList());
}

}  // namespace

}  // namespace testing_support
