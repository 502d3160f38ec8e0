#include "models/createProject.h"

#include "tests/support/FakeDialog.h"

namespace {

using testing_support::clearJournal;
using testing_support::flowLines;
using testing_support::Lines;
using workbench::FirstPage;

class CreateFromModel : public testing::Test {
  protected:
    void create(const char* name, const QString& feeMode = QString()) {
        clearJournal();
        newpro::createFromModel(dialog, testing_support::model(QString::fromUtf8(name), feeMode));
    }
    static std::string logLine(const char* code) {
        return "call SharedInterface::InsertFunLog(\"" + GNSJ_XJGC.toStdString() + "\", 4, \"" +
               code + "\")";
    }
    static std::string endLine() {
        return "call SharedInterface::EndFunLog(\"" + GNSJ_XJGC.toStdString() + "\", false, -1)";
    }

    testing_support::TemporaryInstallation host;
    testing_support::FakeDialog dialog;
};

const char* const accepted = "dialog FakeDialog done 1";
const char* const service = R"(call osgi::ObjectHelper::GetService("firstPagePlugin"))";
const char* const asked = "call FirstPagePlugin::canStartNew(true)";
const char* const used = R"(call SharedInterface::UseFunc(13015, ""))";

TEST_F(CreateFromModel, AcceptsAsksLogsAndSignalsInThisOrder) {
    create("定额计价【四川2000定额】");
    EXPECT_EQ(flowLines(), (Lines{accepted, service, asked, used, logLine("m"), endLine(),
                                  "signal SignalCreatePro(4, 95)"}));
    EXPECT_EQ(dialog.sent.userType(), int(QMetaType::QVariantMap));
    const QVariantMap map = dialog.sent.toMap();
    EXPECT_EQ(map.size(), 13);
    EXPECT_EQ(map.value(QStringLiteral("m_strProjectType")),
              QVariant(QStringLiteral("定额计价【四川2000定额】")));
}

TEST_F(CreateFromModel, AnUncountedModelIsCreatedWithoutALetter) {
    create("清单计价【国标2013规范，四川2020定额】（税率9%，2025安文费）");
    EXPECT_EQ(flowLines(),
              (Lines{accepted, service, asked, used, endLine(), "signal SignalCreatePro(4, 95)"}));
}

TEST_F(CreateFromModel, The2003And2008NormsLogTheirCrossedLetters) {
    create("清单计价【国标2003规范，四川2004定额】");
    EXPECT_EQ(flowLines().at(4), logLine("l"));
    create("清单计价【国标2008规范，四川2009定额】");
    EXPECT_EQ(flowLines().at(4), logLine("k"));
}

TEST_F(CreateFromModel, WithoutFirstPageTheDialogClosesAndNothingElseHappens) {
    host.switches().firstPage = FirstPage::Absent;
    create("定额计价【四川2000定额】");
    EXPECT_EQ(flowLines(), (Lines{accepted, service}));
    EXPECT_FALSE(dialog.sent.isValid());
}

TEST_F(CreateFromModel, ABusyFirstPageEndsIt) {
    host.switches().firstPage = FirstPage::Busy;
    create("定额计价【四川2000定额】");
    EXPECT_EQ(flowLines(), (Lines{accepted, service, asked}));
    EXPECT_FALSE(dialog.sent.isValid());
}

TEST_F(CreateFromModel, AnUnknownApplicationTypeIsSentAsMinusOne) {
    dialog.appType = QStringLiteral("unknown");
    create("某模式");
    EXPECT_EQ(flowLines().back(), "signal SignalCreatePro(-1, 95)");
}

TEST_F(CreateFromModel, TheFeeModeOfTheModelDecidesTheFlag) {
    const struct {
        const char* feeMode;
        int flag;
    } rows[] = {{"整体计费", 1}, {"单独计费", 0}, {"", 0}, {"别的", 0}};
    for (const auto& row : rows) {
        create("某模式", QString::fromUtf8(row.feeMode));
        EXPECT_EQ(dialog.sent.toMap().value(QStringLiteral("mJfms")), QVariant(row.flag))
            << row.feeMode;
    }
}

TEST_F(CreateFromModel, ADialogThatGoesWhileItIsAcceptedIsNotTouchedAgain) {
    dialog.onDone = [this] { dialog.destroy(); };
    create("某模式");
    EXPECT_EQ(flowLines(), (Lines{accepted, service, asked, used, endLine()}));
    EXPECT_FALSE(dialog.sent.isValid());
}

class CreateFromPageData : public testing::Test {
  protected:
    void create(const char* name, int kind) {
        clearJournal();
        newpro::createFromPageData(AppPluginManager::instance(),
                                   {{QStringLiteral("TemplateName"), QString::fromUtf8(name)},
                                    {QStringLiteral("GcLj"), QStringLiteral("/p")},
                                    {QStringLiteral("GsMb"), QStringLiteral("g")},
                                    {QStringLiteral("JsMb"), QStringLiteral("j")}},
                                   kind);
    }

    testing_support::TemporaryInstallation host;
};

TEST_F(CreateFromPageData, WithTheTargetLoadedTheMessageCarriesItsNumber) {
    host.switches().plugins.insert(4, true);
    create("定额计价【四川2000定额】", 4);
    EXPECT_EQ(flowLines(),
              (Lines{R"(call SharedInterface::UseFunc(11017, ""))",
                     "call AppPluginManager::pluginText(4)", "call AppPluginManager::isLoaded(4)",
                     ("call Communication::SendMsgToPlugin(4, 100, "
                      R"({"GcLx":"定额计价【四川2000定额】","apptype":"Kvys","client_pid":4}))"),
                     R"(call SharedInterface::EndUseFun(11017, ""))"}));
}

TEST_F(CreateFromPageData, WithTheTargetNotLoadedItIsLoadedAndNotNumbered) {
    create("某模式", 4);
    EXPECT_EQ(flowLines(),
              (Lines{"call AppPluginManager::pluginText(4)", "call AppPluginManager::isLoaded(4)",
                     "call AppPluginManager::load()",
                     "call Communication::SendMsgToPlugin(4, 100, "
                     R"({"GcLx":"某模式","apptype":"Kvys"}))"}));
}

TEST_F(CreateFromPageData, TheTextIsAskedOfTheKindAndTheLoadingOfTheTarget) {
    host.switches().plugins = {{4, true}, {5, false}};
    create("", 5);
    EXPECT_EQ(flowLines(),
              (Lines{"call AppPluginManager::pluginText(5)", "call AppPluginManager::isLoaded(4)",
                     "call Communication::SendMsgToPlugin(4, 103, "
                     R"({"GcLj":"/p","GcLx":"","apptype":"Kvys","client_pid":4}))"}));
}

TEST_F(CreateFromPageData, EachKindSendsItsMessage) {
    const struct {
        int kind;
        const char* message;
    } rows[] = {
        {6, R"(6, 102, {"GcLj":"/p","GcLx":"","GsMb":"g"})"},
        {17, R"(16, 103, {"GcLj":"/p","GcLx":"","apptype":"Kvzcb"})"},
        {16, R"(16, 105, {"GcLx":"","apptype":"Kvzcb"})"},
        {8, R"(8, 104, {"GcLj":"/p","GcLx":"","JsMb":"j","apptype":"Kvjs"})"},
        {32, R"(32, 0, {"GcLx":""})"},
    };
    for (const auto& row : rows) {
        host.switches().plugins.clear();  // the one before is loaded by now
        create("", row.kind);
        EXPECT_EQ(testing_support::journalLines({"Communication::SendMsgToPlugin"}),
                  Lines{"call Communication::SendMsgToPlugin(" + std::string(row.message) + ")"});
    }
}

TEST_F(CreateFromPageData, AKindWithoutACaseIsNumberedWhereItIsLoaded) {
    host.switches().plugins.insert(32, true);
    create("", 32);
    EXPECT_EQ(flowLines().back(),
              R"(call Communication::SendMsgToPlugin(32, 0, {"GcLx":"","client_pid":32}))");
}

TEST_F(CreateFromPageData, AMissingManagerCountsAsNotLoadedAndTheMessageIsStillSent) {
    newpro::createFromPageData(nullptr, {}, 16);
    EXPECT_EQ(flowLines(), Lines{"call Communication::SendMsgToPlugin(16, 105, "
                                 R"({"GcLx":"","apptype":"Kvzcb"}))"});
}

TEST_F(CreateFromPageData, NeitherClosesADialogNorAsksTheFirstPage) {
    create("清单计价【四川抗震加固定额】", 5);
    EXPECT_EQ(testing_support::countOf("dialog"), 0);
    EXPECT_EQ(testing_support::countOf("osgi::ObjectHelper::GetService"), 0);
}

}  // namespace
