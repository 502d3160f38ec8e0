/// The main window in the hand of a person.
#pragma once

#include <QAction>
#include <QLabel>
#include <QTreeWidget>
#include <algorithm>
#include <memory>

#include "dialog/NewProCfgDialog.h"
#include "models/ProModelItemForm.h"
#include "tests/support/TestSupport.h"
#include "workbench/app/MainWindow.h"
#include "workbench/app/ScaleLimit.h"
#include "workbench/app/Settings.h"
#include "workbench/app/Surface.h"
#include "workbench/projects/ProjectFile.h"

namespace testing_support {

/// The window on an installation with two project files and one that is none.
class MainWindowTest : public testing::Test {
  protected:
    explicit MainWindowTest(bool withSettings = false) {
        // No file manager of whoever runs the tests comes up.
        qputenv("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
        budget = addProject("教学楼.GCFX", 4, "某模式");
        contracting = addProject("产业园.GCFZ", 16, "总包模式");
        host.write(QStringLiteral("ProjectFiles/记事.txt"));
        if (withSettings) keepSettings();
        openWindow();
    }
    ~MainWindowTest() override {
        workbench::Surface::instance().setLanguage(workbench::Language::Chinese);
    }

    QString settingsFile() const { return runs.filePath(QStringLiteral("window.ini")); }
    void keepSettings() { settings = std::make_unique<workbench::Settings>(settingsFile()); }
    void openWindow() {
        window = std::make_unique<workbench::MainWindow>(settings.get());
        window->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
        // As on a screen that holds every scale.
        window->findChild<workbench::ScaleLimit*>()->fit({7680, 4320});
        list = child<QTreeWidget>(window.get(), "projectList");
    }

    QString addProject(const char* file, int programType, const char* model) {
        workbench::ProjectFile project;
        project.programType = programType;
        project.name = QString::fromUtf8(file).section(QLatin1Char('.'), 0, 0);
        project.created = QDateTime(QDate(2025, 3, 4), QTime(5, 6));
        project.request =
            QJsonObject{{QStringLiteral("channel"), QStringLiteral("SendMsgToPlugin")},
                        {QStringLiteral("client"), programType},
                        {QStringLiteral("code"), programType == 16 ? 105 : 100},
                        {QStringLiteral("payload"),
                         QJsonObject{{QStringLiteral("GcLx"), QString::fromUtf8(model)}}}};
        const QString path = host.path(QStringLiteral("ProjectFiles/") + QString::fromUtf8(file));
        QString error;
        EXPECT_TRUE(project.writeNew(path, error)) << error.toStdString();
        return path;
    }

    template <typename T>
    T* part(const char* name) {
        return child<T>(window.get(), name);
    }
    QString text(const char* label) { return part<QLabel>(label)->text(); }
    void key(QWidget* widget, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(widget, key, modifiers);
    }

    /// @return the list's rows as "file|kind|time", in the order of their names.
    Lines rows() {
        Lines lines;
        for (int row = 0; row < list->topLevelItemCount(); ++row) {
            const QTreeWidgetItem* item = list->topLevelItem(row);
            lines.push_back((item->text(0) + QLatin1Char('|') + item->text(1) + QLatin1Char('|') +
                             item->text(2))
                                .toStdString());
        }
        std::sort(lines.begin(), lines.end());
        return lines;
    }
    void clickRow(const char* file) {
        const auto found = list->findItems(QString::fromUtf8(file), Qt::MatchExactly);
        ASSERT_EQ(found.size(), 1) << file;
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(found.first()).center());
    }
    bool comesToCount(int projects) {
        const QString text = QStringLiteral("工程文件：%1 个").arg(projects);
        return QTest::qWaitFor([&] { return this->text("projectCount") == text; });
    }
    /// Opens the dialog with Ctrl+N and creates a project from its first model.
    void createFromFirstCard() {
        const auto driver = whenModal<NewProCfgDialog>([](NewProCfgDialog* dialog) {
            ProModelItemForm* first = nullptr;
            for (ProModelItemForm* card : dialog->findChildren<ProModelItemForm*>()) {
                if (!card->isVisible()) continue;
                if (!first ||
                    card->mapTo(dialog, QPoint()).y() < first->mapTo(dialog, QPoint()).y())
                    first = card;
            }
            ASSERT_TRUE(first);
            click(child<QWidget>(first, "btnNewProject"));
        });
        key(window.get(), Qt::Key_N, Qt::ControlModifier);
    }

    QTemporaryDir runs;  ///< What is kept from run to run.
    TemporaryInstallation host;
    QString budget;
    QString contracting;
    std::unique_ptr<workbench::Settings> settings;
    std::unique_ptr<workbench::MainWindow> window;
    QTreeWidget* list = nullptr;
};

}  // namespace testing_support
