// A person's hands in the recording window. Each recording is played by the program itself.
#include <QAbstractItemView>
#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMenu>
#include <QTreeWidget>
#include <QWindow>
#include <algorithm>

#include "dialog/NewProCfgDialog.h"
#include "dialog/xzGcLxDialog.h"
#include "import/importExcelSelFile.h"
#include "tests/workbench/FileDialogHand.h"
#include "tests/workbench/RunProgram.h"
#include "workbench/app/MainWindow.h"
#include "workbench/app/recordCommand.h"
#include "workbench/hostlibs/fileDialog/LoginWindow.h"
#include "workbench/scenario/TemporaryCopy.h"
#include "workbench/scenario/hands.h"
#include "workbench/scenario/targets.h"

namespace testing_support {

namespace {

using workbench::Host;
using workbench::LoginWindow;
using workbench::MainWindow;

const char* const firstModel = "清单计价【国标2013规范，四川2020定额】（税率9%）";
const char* const school = "锦江区第三中学教学楼.GCFX";

/// Lets quitting end the event loop of the recording window, as in the program.
class QuittingApplication {
  public:
    QuittingApplication() { QApplication::setQuitOnLastWindowClosed(true); }
    ~QuittingApplication() { QApplication::setQuitOnLastWindowClosed(before); }

  private:
    const bool before = QApplication::quitOnLastWindowClosed();
};

class RecordTest : public testing::Test {
  protected:
    RecordTest() {
        options.file = folder.filePath(QStringLiteral("recorded.json"));
        options.installation = QStringLiteral(SAMPLE_INSTALLATION);
        options.program = QStringLiteral(PROGRAM);
        qputenv("LSAN_OPTIONS", workbench_test::leakOptions);  // the program plays what it recorded
    }

    /// Records what `person` does in the window. @return the exit code of the command.
    int record(const std::function<void()>& person) {
        const QuittingApplication quitting;
        QTimer::singleShot(0, [this, &person] {
            for (QWidget* each : QApplication::topLevelWidgets())
                if (auto* found = qobject_cast<MainWindow*>(each)) window = found;
            ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
            installation = Host::instance().installation().folder;
            person();
            window->close();
        });
        // A window that a failed test has left open would wait for ever.
        QTimer patience;
        QObject::connect(&patience, &QTimer::timeout, [] {
            ADD_FAILURE() << "a window is left open";
            if (QWidget* left = workbench::topWindow()) left->close();
        });
        patience.start(15000);
        return recordScenario(options, report);
    }

    void pressInWindow(Qt::Key key, Qt::KeyboardModifiers modifiers) {
        window->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(window));
        QTest::keyClick(window, key, modifiers);
    }
    /// Opens the dialog by its keys and uses it until it closes.
    void inDialog(const std::function<void(NewProCfgDialog*)>& use) {
        const auto driver = whenModal<NewProCfgDialog>([&](NewProCfgDialog* shown) {
            dialog = shown;
            use(shown);
        });
        pressInWindow(Qt::Key_N, Qt::ControlModifier);
    }
    void ribbon(const char* entry) { click(workbench::ribbonButton(dialog, utf(entry))); }
    void taxMode(const char* entry) { click(workbench::taxModeButton(dialog, utf(entry))); }
    void create() { click(workbench::onFilePage(dialog, "newButton")); }
    void browse() { click(workbench::onFilePage(dialog, "browseButton")); }
    QWidget* model(const char* name) { return workbench::modelCard(dialog, utf(name)); }
    void type(const QString& text) {
        QLineEdit* editor = workbench::fileCombo(dialog)->lineEdit();
        QTest::mouseClick(editor, Qt::LeftButton);
        editor->selectAll();
        QInputMethodEvent commit;  // keys have no Chinese
        commit.setCommitString(text);
        QApplication::sendEvent(editor, &commit);
    }
    QString projectFile(const char* name) {
        return installation + QStringLiteral("/ProjectFiles/") + utf(name);
    }
    /// Answers the message box that comes up in this scope with its button.
    [[nodiscard]] ModalDriver answerBox() {
        return ModalDriver(
            "MessageBox", [](QWidget* box) { return box->inherits("workbench::MessageBox"); },
            [](QWidget* box) { click(child<QWidget>(box, "button0")); });
    }
    [[nodiscard]] ModalDriver answerLogin(bool accept) {
        return whenModal<LoginWindow>([accept](LoginWindow* shown) {
            if (!accept) return click(child<QWidget>(shown, "cancelButton"));
            auto* user = child<QLineEdit>(shown, "userField");
            user->clear();
            QTest::keyClicks(user, QStringLiteral("zhang"));
            QTest::keyClicks(child<QLineEdit>(shown, "passwordField"), QStringLiteral("secret"));
            click(child<QWidget>(shown, "loginButton"));
        });
    }
    /// Opens a combo box and chooses a row with the mouse.
    void chooseFrom(QComboBox* combo, int row) {
        QTest::mouseClick(combo, Qt::LeftButton, {},
                          QPoint(combo->width() - 6, combo->height() / 2));
        QAbstractItemView* list = combo->view();
        ASSERT_TRUE(list->isVisible());
        list->scrollTo(list->model()->index(row, 0));
        // For the time of a double click the list takes no click.
        EXPECT_TRUE(QTest::qWaitFor([&] {
            const QPoint place = list->visualRect(list->model()->index(row, 0)).center();
            if (list->isVisible()) QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
            return !list->isVisible();
        }));
    }

    QString text() {
        QFile file(options.file);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return QString::fromUtf8(file.readAll());
    }
    QJsonObject recorded() { return QJsonDocument::fromJson(text().toUtf8()).object(); }
    /// @return the steps of the file, one line each.
    Lines steps() {
        Lines lines;
        const QJsonArray array = recorded().value(QStringLiteral("steps")).toArray();
        for (const QJsonValue& step : array) {
            std::string line = step[u"do"].toString().toStdString();
            QJsonObject args = step.toObject();
            args.remove(QStringLiteral("do"));
            for (const QJsonValue& value : qAsConst(args))
                line += value.isString() ? " " + value.toString().toStdString() : " …";
            lines.push_back(line);
        }
        return lines;
    }

    QTemporaryDir folder;
    workbench::RecordOptions options;
    QString report;
    QPointer<MainWindow> window;
    QPointer<NewProCfgDialog> dialog;
    QString installation;
};

TEST_F(RecordTest, NothingDoneIsAScenarioOfNoSteps) {
    EXPECT_EQ(record([] {}), 0) << report.toStdString();
    EXPECT_EQ(steps(), Lines());
    EXPECT_EQ(report, options.file + QStringLiteral(": a play of it gives the same journal"));
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
                QTest::keyClick(shown, Qt::Key_Return);
            });
            click(workbench::menuButtonOf(model(firstModel)));
        });
    });
    EXPECT_EQ(code, 0) << report.toStdString();
    EXPECT_EQ(steps().size(), 9u);
    EXPECT_FALSE(text().contains(QDate::currentDate().toString(QStringLiteral("-yyyyMMdd-"))))
        << "the file is to play on other days, too";
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
        for (const bool keys : {false, true})
            inDialog([this, keys](auto*) {
                ribbon("审核工程");
                QComboBox* combo = workbench::fileCombo(dialog);
                if (keys) {
                    combo->setFocus();
                    QTest::keyClick(combo, Qt::Key_Down);
                    QTest::keyClick(combo, Qt::Key_Down);
                } else {
                    chooseFrom(combo, 1);
                }
                create();
            });
    });
    EXPECT_EQ(code, 0) << report.toStdString();
    // Between the two the host says that a plug-in was loaded.
    EXPECT_EQ(steps(), (Lines{"open", "ribbon 审核工程",
                              "pick {installation}/ProjectFiles/高新区科研楼安装工程.GCFX",
                              "create", "host …", "open", "ribbon 审核工程", "key Down fileCombo",
                              "key Down fileCombo", "create"}));
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
            click(workbench::newButtonOf(model("2022工程总承包清单计价（税率9%）【初设后】")));
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
        // As the window's frame would.
        inDialog([](NewProCfgDialog* shown) { shown->windowHandle()->close(); });
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
    EXPECT_EQ(steps().size(), 4u);
}

TEST_F(RecordTest, WhatIsWrongBeforehandIsToldBeforeTheWindowOpens) {
    options.installation = folder.filePath(QStringLiteral("none"));
    EXPECT_EQ(recordScenario(options, report), 2);
    EXPECT_EQ(report, options.installation + QStringLiteral(": no such folder"));
    options.file = folder.filePath(QStringLiteral("none/recorded.json"));
    EXPECT_EQ(recordScenario(options, report), 2);
    EXPECT_EQ(report, options.file + QStringLiteral(": No such file or directory"));
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList());
}

}  // namespace

}  // namespace testing_support
