/// A person's hands in the recording window.
#pragma once

#include <QAbstractItemView>
#include <QComboBox>
#include <QJsonArray>
#include <QJsonDocument>

#include "dialog/NewProCfgDialog.h"
#include "tests/workbench/FileDialogHand.h"
#include "tests/workbench/RunProgram.h"
#include "workbench/app/MainWindow.h"
#include "workbench/app/recordCommand.h"
#include "workbench/hostlibs/fileDialog/LoginWindow.h"
#include "workbench/scenario/hands.h"
#include "workbench/scenario/targets.h"

namespace testing_support {

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
                if (auto* found = qobject_cast<workbench::MainWindow*>(each)) window = found;
            ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
            installation = workbench::Host::instance().installation().folder;
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
        return whenModal<workbench::LoginWindow>([accept](workbench::LoginWindow* shown) {
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
    QPointer<workbench::MainWindow> window;
    QPointer<NewProCfgDialog> dialog;
    QString installation;
};

}  // namespace testing_support
