#include "import/importFlows.h"

#include <QDialog>
#include <QFileInfo>

#include "fileDialog.h"
#include "import/importExcelSelFile.h"
#include "tests/import/ExcelFiles.h"
#include "tests/support/FakeDialog.h"
#include "workbench/hostlibs/common/FileDialogState.h"

namespace {

using namespace testing_support;
using workbench::FirstPage;

const std::string accepted = "dialog FakeDialog done 1";
const std::string service = "call osgi::ObjectHelper::GetService(\"firstPagePlugin\")";
const std::string query = "call FirstPagePlugin::canStartNew(true)";
const std::string used = "call SharedInterface::UseFunc(11118, \"\")";

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

struct TenderImport : ImportFlow {
    QString file = QStringLiteral("/data/标.YFJZ");

    void answerFromCloud(const QString& path) {
        answerWith(path);
        workbench::FileAnswer& answer = installation.switches().fileAnswers.first();
        answer.place = 3;
        answer.cloudPath = QStringLiteral("个人云盘/标.YFJZ");
    }

    Lines run() {
        clearJournal();
        newpro::importTender(dialog);
        return flowLines();
    }
    std::string asked(const std::string& folder, const char* parent = "\"QDialog\"") const {
        return std::string("call zFileDialog::getOpenFileName(") + parent + ", \"" + folder +
               "\", [\"云南省电子招投标数据标准\",\"YFJZ\",\"YFJT\"], 2, \"\", true, \"\", true, "
               "1)";
    }
    Lines reset(const std::string& path) const {
        return {"call zFileDialog::SetFilePath(\"\")", "call zFileDialog::SetFilePid(\"\")",
                "call zFileDialog::SetQyid(\"\")",
                "call zFileDialog::TbServerMsg(\"" + path + "\")"};
    }
    Lines upToReset(const std::string& path) const {
        Lines lines{accepted,
                    service,
                    query,
                    "call zFileDialog::getCurrentPath()",
                    "call SharedInterface::GetAppPath()",
                    asked(installation.folder().toStdString())};
        for (const std::string& line : reset(path)) lines.push_back(line);
        return lines;
    }
};

const std::string logged = "call SharedInterface::ReplaceFunLog(\"XJGC\", 2, \"d\")";
const std::string notified = "call AppPluginManager::notify(\"\", 4)";
const std::string asksLoaded = "call AppPluginManager::isLoaded(4)";
const std::string loads = "call AppPluginManager::load(4)";
const std::string tenderSent =
    "call Communication::SendMsgToPlugin(4, 108, {\"dzb_file\":\"/data/标.YFJZ\"})";

Lines joined(Lines lines, const Lines& more) {
    lines.insert(lines.end(), more.begin(), more.end());
    return lines;
}

TEST_F(TenderImport, closes_asks_resets_logs_notifies_loads_and_sends) {
    answerWith(file);
    EXPECT_EQ(run(), joined(upToReset(file.toStdString()),
                            {logged, notified, asksLoaded, loads, tenderSent}));
}

TEST_F(TenderImport, does_not_load_a_loaded_plugin) {
    installation.switches().plugins.insert(4, true);
    answerWith(file);
    EXPECT_EQ(run(),
              joined(upToReset(file.toStdString()), {logged, notified, asksLoaded, tenderSent}));
}

TEST_F(TenderImport, goes_to_the_budget_plugin_whatever_the_kind) {
    dialog.appType = QStringLiteral("Kvzcb");
    answerWith(file);
    EXPECT_EQ(run().back(), tenderSent);
}

TEST_F(TenderImport, sends_without_a_plugin_manager_all_the_same) {
    dialog.plugins = nullptr;
    answerWith(file);
    EXPECT_EQ(run(), joined(upToReset(file.toStdString()), {logged, tenderSent}));
}

TEST_F(TenderImport, resets_the_cloud_state_but_sends_nothing_when_cancelled) {
    answerWith(QString());
    EXPECT_EQ(run(), upToReset(std::string()));
}

TEST_F(TenderImport, forgets_every_part_of_a_cloud_choice_on_every_outcome) {
    for (const bool cancelled : {false, true}) {
        zFileDialog::SetFilePath(QStringLiteral("企业云盘/a"));
        zFileDialog::userName = QStringLiteral("u");
        zFileDialog::yunpanFile = QStringLiteral("y");
        zFileDialog::userId = QStringLiteral("i");
        // A file from the cloud disk: the file dialog itself leaves its place behind.
        cancelled ? answerWith(QString()) : answerFromCloud(file);
        run();
        EXPECT_EQ(zFileDialog::userName + zFileDialog::yunpanFile + zFileDialog::userId, QString());
        EXPECT_EQ(zFileDialog::GetFilePath(), QString());
    }
}

TEST_F(TenderImport, clears_the_shared_strings_between_the_path_and_the_folder_of_the_cloud_disk) {
    const struct {
        const char* call;
        bool cleared;  ///< Whether the strings are gone when the call is made.
    } rows[] = {{"zFileDialog::SetFilePath", false},
                {"zFileDialog::SetFilePid", true},
                {"zFileDialog::SetQyid", true},
                {"zFileDialog::TbServerMsg", true}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.call);
        QString* const strings[] = {&zFileDialog::userName, &zFileDialog::yunpanFile,
                                    &zFileDialog::userId};
        answerFromCloud(file);
        throwAt(row.call, workbench::ThrowRule::As::StdException);
        EXPECT_THROW(newpro::importTender(dialog), std::exception);
        throwNoMore();
        for (const QString* text : strings) EXPECT_EQ(text->isEmpty(), row.cleared);
    }
}

TEST_F(TenderImport, resets_the_cloud_state_also_when_the_file_dialog_throws) {
    for (const char* alsoThrows : {"", "zFileDialog::SetFilePid", "zFileDialog::TbServerMsg"}) {
        SCOPED_TRACE(alsoThrows);
        answerFromCloud(file);
        zFileDialog::userId = QStringLiteral("u1");
        throwAt("zFileDialog::getOpenFileName", workbench::ThrowRule::As::StdException, 1,
                QStringLiteral("the first"));
        throwAt(alsoThrows, workbench::ThrowRule::As::StdException, 1, QStringLiteral("another"));
        clearJournal();
        try {
            newpro::importTender(dialog);
            ADD_FAILURE() << "nothing was thrown";
        } catch (const std::exception& exception) {
            EXPECT_STREQ(exception.what(), "the first");
        }
        throwNoMore();
        EXPECT_EQ(zFileDialog::userId, QString());
        const Lines lines = flowLines();
        const Lines wanted = upToReset("");
        EXPECT_EQ(Lines(lines.begin(), lines.begin() + 7),
                  Lines(wanted.begin(), wanted.begin() + 7));
        if (*alsoThrows == '\0') {
            EXPECT_EQ(lines, wanted);
        }
        EXPECT_EQ(countOf("Communication::SendMsgToPlugin"), 0);
    }
}

TEST_F(TenderImport, leaves_the_cloud_state_alone_when_no_file_dialog_opens) {
    for (const char* call : {"zFileDialog::getCurrentPath", "SharedInterface::GetAppPath"}) {
        SCOPED_TRACE(call);
        zFileDialog::userId = QStringLiteral("u1");
        throwAt(call, workbench::ThrowRule::As::StdException);
        clearJournal();
        EXPECT_THROW(newpro::importTender(dialog), std::exception);
        throwNoMore();
        EXPECT_EQ(zFileDialog::userId, QStringLiteral("u1"));
        EXPECT_EQ(flowLines().back(), "call " + std::string(call) + "()");
    }
}

TEST_F(TenderImport, starts_in_the_folder_that_was_used_last) {
    answerWith(file);
    run();
    answerWith(QString());
    const Lines second = run();
    EXPECT_EQ(second.at(4), asked(QFileInfo(file).absolutePath().toStdString()));
    EXPECT_EQ(countOf("SharedInterface::GetAppPath"), 0);
}

TEST_F(TenderImport, ends_after_closing_where_the_host_is_not_ready) {
    installation.switches().firstPage = FirstPage::Busy;
    EXPECT_EQ(run(), Lines({accepted, service, query}));
    installation.switches().firstPage = FirstPage::Absent;
    EXPECT_EQ(run(), Lines({accepted, service}));
}

TEST_F(TenderImport, touches_no_dialog_that_is_deleted_on_acceptance) {
    dialog.onDone = [this] { dialog.destroy(); };
    answerWith(file);
    const Lines lines = run();
    EXPECT_EQ(lines.at(5), asked(installation.folder().toStdString(), "null"));
    EXPECT_EQ(lines.back(), tenderSent);
}

TEST_F(TenderImport, ends_quietly_when_the_dialog_goes_while_the_user_chooses) {
    installation.switches().fileDialogPrepared = false;
    const auto driver = whenModal<QDialog>([this](QDialog*) { dialog.destroy(); });
    const Lines lines = run();
    EXPECT_EQ(lines.back(), "call zFileDialog::TbServerMsg(\"\")");
}

TEST_F(TenderImport, succeeds_the_second_time_after_an_exception_of_any_host_call) {
    for (const char* call :
         {"osgi::ObjectHelper::GetService", "FirstPagePlugin::canStartNew",
          "zFileDialog::getCurrentPath", "SharedInterface::GetAppPath",
          "zFileDialog::getOpenFileName", "zFileDialog::SetFilePath", "zFileDialog::SetFilePid",
          "zFileDialog::SetQyid", "zFileDialog::TbServerMsg", "SharedInterface::ReplaceFunLog",
          "AppPluginManager::notify", "AppPluginManager::isLoaded", "AppPluginManager::load",
          "Communication::SendMsgToPlugin"}) {
        SCOPED_TRACE(call);
        installation.switches().plugins.clear();
        workbench::resetFileDialog();
        answerWith(file);
        throwAt(call, workbench::ThrowRule::As::StdException);
        EXPECT_THROW(newpro::importTender(dialog), std::exception);
        throwNoMore();
        answerWith(file);
        EXPECT_EQ(run().back(), tenderSent);
    }
}

}  // namespace
