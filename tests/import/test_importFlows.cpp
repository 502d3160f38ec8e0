#include <QDialog>
#include <QFileInfo>

#include "fileDialog.h"
#include "import/importExcelSelFile.h"
#include "tests/import/ExcelFiles.h"
#include "tests/import/ImportFlow.h"
#include "workbench/hostlibs/common/FileDialogState.h"

namespace {

using namespace testing_support;
using workbench::FirstPage;

const std::string used = "call SharedInterface::UseFunc(11118, \"\")";

/// The Excel flow, with the selection dialog driven by the test. Of the dialog's own calls only its
/// end is looked at here.
struct ExcelImport : ImportFlow {
    QString folder = installation.path(QStringLiteral("books"));

    Lines lines() {
        return journalLines(
            {"FakeDialog", "osgi::ObjectHelper::GetService", "FirstPagePlugin::canStartNew",
             "SharedInterface::UseFunc", "importExcelSelFile", "AppPluginManager::isLoaded",
             "AppPluginManager::load", "Communication::SendMsgToPlugin", "exception"});
    }
    void chooseFolder() {
        answerWith(folder);
        const auto driver = whenModal<importExcelSelFile>(
            [](importExcelSelFile* shown) { click(child<QPushButton>(shown, "btnSelDir")); });
        newpro::importExcel(dialog);
    }
    std::string message(int client) {
        QJsonObject body{
            {QStringLiteral("isnewapp"), true},  {QStringLiteral("type"), 1},
            {QStringLiteral("path"), folder},    {QStringLiteral("jjms"), QStringLiteral("一般甲")},
            {QStringLiteral("gcmb"), QString()}, {QStringLiteral("client_pid"), client}};
        if (client != 4) body.insert(QStringLiteral("jjms"), QString());
        return lineOf({{QStringLiteral("kind"), QStringLiteral("call")},
                       {QStringLiteral("name"), QStringLiteral("Communication::SendMsgToPlugin")},
                       {QStringLiteral("args"), QJsonArray{client, 107, body}}});
    }
};

const std::string opened = "dialog importExcelSelFile opened";
const std::string chosen = "dialog importExcelSelFile done 1";

TEST_F(ExcelImport, closes_asks_logs_lets_the_user_choose_and_sends) {
    chooseFolder();
    EXPECT_EQ(lines(), Lines({accepted, service, query, used, opened, chosen,
                              "call AppPluginManager::isLoaded(4)",
                              "call AppPluginManager::load(4)", message(4)}));
}

TEST_F(ExcelImport, does_not_load_a_loaded_plugin) {
    installation.switches().plugins.insert(4, true);
    chooseFolder();
    EXPECT_EQ(lines(), Lines({accepted, service, query, used, opened, chosen,
                              "call AppPluginManager::isLoaded(4)", message(4)}));
}

TEST_F(ExcelImport, sends_without_a_plugin_manager_all_the_same) {
    dialog.plugins = nullptr;
    chooseFolder();
    EXPECT_EQ(lines(), Lines({accepted, service, query, used, opened, chosen, message(4)}));
}

TEST_F(ExcelImport, without_configuration_goes_to_the_general_contracting_plugin) {
    installation.switches().configurationPresent = false;
    chooseFolder();
    EXPECT_EQ(lines(), Lines({accepted, service, query, used, opened, chosen,
                              "call AppPluginManager::isLoaded(16)",
                              "call AppPluginManager::load(16)", message(16)}));
}

TEST_F(ExcelImport, sends_the_chosen_workbook) {
    const QString path = installation.write(QStringLiteral("a.xlsx"), smallestWorkbook());
    answerWith(path);
    const auto driver = whenModal<importExcelSelFile>([](importExcelSelFile* shown) {
        child<QComboBox>(shown, "m_pJjmsCombo")->setCurrentIndex(1);
        click(child<QPushButton>(shown, "btnSelFile"));
    });
    newpro::importExcel(dialog);
    const QVector<QJsonObject> sent = entriesOf("Communication::SendMsgToPlugin");
    ASSERT_EQ(sent.size(), 1);
    EXPECT_EQ(sent.first().value(QLatin1String("args")).toArray().at(2).toObject(),
              QJsonObject({{QStringLiteral("isnewapp"), true},
                           {QStringLiteral("type"), 0},
                           {QStringLiteral("path"), path},
                           {QStringLiteral("jjms"), QStringLiteral("一般乙")},
                           {QStringLiteral("gcmb"), QStringLiteral("")},
                           {QStringLiteral("client_pid"), 4}}));
}

TEST_F(ExcelImport, sends_nothing_when_the_selection_is_closed) {
    const auto driver =
        whenModal<importExcelSelFile>([](importExcelSelFile* shown) { shown->close(); });
    newpro::importExcel(dialog);
    EXPECT_EQ(lines(),
              Lines({accepted, service, query, used, opened, "dialog importExcelSelFile done 0"}));
}

TEST_F(ExcelImport, ends_after_closing_where_the_host_is_not_ready) {
    installation.switches().firstPage = FirstPage::Busy;
    newpro::importExcel(dialog);
    EXPECT_EQ(lines(), Lines({accepted, service, query}));
    clearJournal();
    installation.switches().firstPage = FirstPage::Absent;
    newpro::importExcel(dialog);
    EXPECT_EQ(lines(), Lines({accepted, service}));
}

TEST_F(ExcelImport, asks_over_the_main_window_and_leaves_no_dialog_behind) {
    answerWith(folder);
    QPointer<importExcelSelFile> selection;
    const auto driver = whenModal<importExcelSelFile>([&](importExcelSelFile* shown) {
        selection = shown;
        EXPECT_EQ(shown->parentWidget(), &mainWindow);
        click(child<QPushButton>(shown, "btnSelDir"));
    });
    newpro::importExcel(dialog);
    EXPECT_FALSE(selection);
}

TEST_F(ExcelImport, touches_no_dialog_that_is_deleted_on_acceptance_or_meanwhile) {
    for (const bool atOnce : {true, false}) {
        FakeDialog other;
        other.plugins = dialog.plugins;
        other.onDone = [&] {
            if (atOnce) other.destroy();
        };
        clearJournal();
        answerWith(folder);
        const auto driver = whenModal<importExcelSelFile>([&](importExcelSelFile* shown) {
            other.destroy();
            click(child<QPushButton>(shown, "btnSelDir"));
        });
        newpro::importExcel(other);
        EXPECT_EQ(lines().back(), message(4));
    }
}

TEST_F(ExcelImport, survives_a_main_window_that_goes_while_the_user_chooses) {
    const QPointer<QWidget> window(new QWidget);
    workbench::Host::instance().setMainWindow(window);
    const auto driver =
        whenModal<importExcelSelFile>([&](importExcelSelFile*) { delete window.data(); });
    newpro::importExcel(dialog);
    EXPECT_EQ(countOf("Communication::SendMsgToPlugin"), 0);
}

TEST_F(ExcelImport, leaves_no_dialog_behind_when_the_host_throws_and_succeeds_the_second_time) {
    for (const char* call :
         {"osgi::ObjectHelper::GetService", "FirstPagePlugin::canStartNew",
          "SharedInterface::UseFunc", "Communication::GetMainWindow", "AppPluginManager::isLoaded",
          "AppPluginManager::load", "Communication::SendMsgToPlugin"}) {
        SCOPED_TRACE(call);
        installation.switches().plugins.clear();
        answerWith(folder);
        throwAt(call, workbench::ThrowRule::As::StdException);
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [] {
            if (auto* shown = qobject_cast<importExcelSelFile*>(QApplication::activeModalWidget()))
                click(child<QPushButton>(shown, "btnSelDir"));
        });
        timer.start(1);
        EXPECT_THROW(newpro::importExcel(dialog), std::exception);
        timer.stop();
        EXPECT_TRUE(mainWindow.findChildren<importExcelSelFile*>().isEmpty());
        throwNoMore();
        clearJournal();
        chooseFolder();
        EXPECT_EQ(countOf("Communication::SendMsgToPlugin"), 1);
    }
}

}  // namespace
