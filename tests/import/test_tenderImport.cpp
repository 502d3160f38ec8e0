#include <QDialog>
#include <QFileInfo>

#include "fileDialog.h"
#include "tests/import/ImportFlow.h"
#include "workbench/hostlibs/common/FileDialogState.h"

namespace {

using namespace testing_support;
using workbench::FirstPage;

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
