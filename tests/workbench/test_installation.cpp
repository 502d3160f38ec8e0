#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

#include "models/usageCodes.h"
#include "tests/support/TestSupport.h"
#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace testing_support {

using workbench::Host;
using workbench::Installation;

namespace {

QByteArray sampleContent(const char* file) {
    return contentOf(QLatin1String(SAMPLE_INSTALLATION "/") + QLatin1String(file));
}

/// A file of the sample with one place changed, and what the loader must say of it.
struct Damage {
    const char* title;
    const char* file;
    const char* from;  ///< The first occurrence is replaced.
    const char* to;
    const char* key;
    const char* message;
};

const Damage damages[] = {
    {"a wrong type", "models.json", R"("flag": 1)", R"("flag": "1")", "Kvys[0].models[0].flag",
     "whole number"},
    {"a fraction for a whole number", "settings.json", R"("firstOpenClose": 0)",
     R"("firstOpenClose": 0.5)", "firstOpenClose", "whole number"},
    {"a whole number that is too large", "models.json", R"("flag": 1)", R"("flag": 30000000000)",
     "Kvys[0].models[0].flag", "must be from -2147483648 to 2147483647"},
    {"a whole number that is too small", "settings.json", R"("firstOpenClose": 0)",
     R"("firstOpenClose": -2147483649)", "firstOpenClose", "must be from -2147483648"},
    {"a tax mode that is too large", "models.json", "\"一般计税\"", "9999999999", "Kvys[0].taxMode",
     "must be from -2147483648 to 2147483647"},
    {"a fraction for a tax mode", "models.json", "\"一般计税\"", "0.5", "Kvys[0].taxMode",
     "must be a whole number"},
    {"a text for a list", "models.json", R"("feeModes": [)", R"("feeModes": "", "x": [)",
     "Kvys[0].models[0].x", "not known"},
    {"a missing key", "models.json", R"("key":)", R"("carriedText":)", "Kvys[0].models[0].key",
     "missing"},
    {"a missing section", "settings.json", R"("transactions")", R"("transaction")", "transaction",
     "not known"},
    {"an unknown key", "settings.json", R"("projectFolder")", R"("projectFolders")",
     "basicSettings.projectFolders", "not known"},
    {"an unknown tax mode", "models.json", "\"一般计税\"", "\"特殊计税\"", "Kvys[0].taxMode",
     "must be one of"},
    {"a broken encoding", "models.json", "国标2013", "\xB9\xFA\xB1\xEA", "encoding", "UTF-8"},
    {"bad JSON", "history.json", "[", "[,", "syntax", "illegal value"},
    {"a project folder that is no path", "settings.json", R"("projectFolder": ")",
     R"("projectFolder": "\u0000)", "basicSettings.projectFolder", "NUL"},
    {"a key twice", "settings.json", R"("firstOpenClose")", R"("area": {}, "firstOpenClose")",
     "area", "twice"},
    {"two byte order marks", "history.json", "{", "\xEF\xBB\xBF\xEF\xBB\xBF{", "encoding",
     "second byte order mark"},
    {"a suffix list under no number", "settings.json", R"("16":)", R"("sixteen":)",
     "suffixes.sixteen", "number"},
};

}  // namespace

TEST(Installation, BothSamplesAreRead) {
    for (const char* folder : {SAMPLE_INSTALLATION, YUNNAN_INSTALLATION}) {
        Installation sample;
        QString error;
        EXPECT_TRUE(Installation::load(QString::fromUtf8(folder), sample, error))
            << error.toStdString();
        EXPECT_FALSE(sample.models.value(QStringLiteral("Kvys")).isEmpty());
        EXPECT_FALSE(sample.history.isEmpty());
        EXPECT_EQ(sample.hostSettings.value(QStringLiteral("prodAreaYN")),
                  QLatin1String(folder) == QLatin1String(YUNNAN_INSTALLATION));
    }
}

TEST(Installation, TheSampleOffersModelsWithNoneOneAndTwoFeeModes) {
    Installation sample;
    QString error;
    ASSERT_TRUE(Installation::load(QStringLiteral(SAMPLE_INSTALLATION), sample, error));
    QSet<int> counts;
    for (const auto& pricing : sample.pricing.value(QStringLiteral("Kvys"))) {
        counts.insert(pricing.feeModes.size());
    }
    EXPECT_EQ(counts, (QSet<int>{0, 1, 2}));
}

TEST(Installation, TheSampleOffersEveryModelThatTheUsageLogCounts) {
    Installation sample;
    QString error;
    ASSERT_TRUE(Installation::load(QStringLiteral(SAMPLE_INSTALLATION), sample, error));
    QString letters;
    QList<int> functions;
    for (const auto& modes : qAsConst(sample.models)) {
        for (const auto& mode : modes) {
            for (const TaxTemplateInfo& model : mode.models) {
                letters += newpro::modelLogCode(model.name);
                functions.append(newpro::modelUsageFunction(model.name));
            }
        }
    }
    std::sort(letters.begin(), letters.end());
    std::sort(functions.begin(), functions.end());
    EXPECT_EQ(letters, QStringLiteral("abcdefghijklmn"));
    EXPECT_EQ(functions, (QList<int>{11006, 11007, 11008, 11009, 11010, 11011, 11012, 11013,
                                     11014, 11015, 11016, 11017, 11018, 11101, 13310, 13311,
                                     20003, 20004, 20005, 20006, 20007, 20008, 20009, 20010}));
}

TEST(Installation, ModelsOfOneNameKeepTheirFeeModes) {
    TemporaryInstallation installation;
    const auto entry = [](const char* taxMode, const char* key) {
        return QByteArray(R"({"taxMode": ")") + taxMode +
               R"(", "models": [{"name": "同名", "description": "", "basis": [], "feeMode": "",
                  "feeModes": ["整体计费"], "defaultFeeMode": "整体计费", "key": ")" +
               key + R"("}]})";
    };
    installation.write(
        QStringLiteral("models.json"),
        "{\"Kvys\": [" + entry("一般计税", "first") + ", " + entry("简易计税", "second") + "]}");
    ASSERT_EQ(Host::instance().loadInstallation(installation.folder()), QString());
    const auto map = ProjectSettingHelper::GetProjectSettingHelper()->GetPricingModelInfoMap(
        QStringLiteral("Kvys"), QString());
    Lines keys;
    for (const auto& record : map) keys.push_back(record.key.toStdString());
    std::sort(keys.begin(), keys.end());
    EXPECT_EQ(keys, (Lines{"first", "second"}));
    EXPECT_EQ(map.keys(), (QStringList{QStringLiteral("同名"), QStringLiteral("同名")}));
}

TEST(Installation, PartsOfAFeeModeRecordCallForTheRecord) {
    TemporaryInstallation installation;
    installation.write(QStringLiteral("models.json"),
                       R"({"k": [{"taxMode": 0, "models": [{"name": "", "key": "", "feeMode": "",
                          "description": "", "basis": [], "normName": "n"}]}]})");
    EXPECT_TRUE(Host::instance()
                    .loadInstallation(installation.folder())
                    .endsWith(QStringLiteral("k[0].models[0].feeModes: the key is missing")));
}

/// Qt's JSON parser leaks the list or object under a key that comes again in its object; that is
/// not looked at in its scope.
struct ParserLeaksAreQts {
#if defined(__SANITIZE_ADDRESS__)
    ParserLeaksAreQts() {
        __lsan_disable();
    }
    ~ParserLeaksAreQts() {
        __lsan_enable();
    }
#endif
};

TEST(Installation, EveryDamageIsNamedWithFileLineAndKey) {
    for (const Damage& damage : damages) {
        SCOPED_TRACE(damage.title);
        TemporaryInstallation installation;
        const QString path = installation.path(QLatin1String(damage.file));
        for (const char* file : {"models.json", "settings.json", "history.json"}) {
            installation.write(QLatin1String(file), sampleContent(file));
        }
        QByteArray text = contentOf(path);
        const int at = text.indexOf(damage.from);
        ASSERT_GE(at, 0);
        text.replace(at, int(qstrlen(damage.from)), damage.to);
        installation.write(QLatin1String(damage.file), text);

        Installation untouched;
        QString error;
        {
            [[maybe_unused]] const ParserLeaksAreQts scope;
            EXPECT_FALSE(Installation::load(installation.folder(), untouched, error));
        }
        const std::string said = error.toStdString();
        const std::string where = QDir::toNativeSeparators(path).toStdString();
        EXPECT_EQ(said.rfind(where + ":", 0), 0u) << said;
        EXPECT_NE(said.find(std::string(": ") + damage.key + ": "), std::string::npos) << said;
        EXPECT_NE(said.find(damage.message), std::string::npos) << said;
        EXPECT_TRUE(untouched.folder.isEmpty()) << "changed although it failed";
    }
}

TEST(Installation, TheLineIsTheOneOfTheValue) {
    TemporaryInstallation installation;
    installation.write(QStringLiteral("models.json"),
                       "{\n  \"Kvys\": [\n    {\"taxMode\": 0,\n     \"models\": [\n"
                       "       {\"name\": \"a\",\n        \"key\": 5,\n"
                       "        \"description\": \"\", \"basis\": [], \"feeMode\": \"\"}]}]\n}\n");
    const QString error = Host::instance().loadInstallation(installation.folder());
    EXPECT_NE(error.toStdString().find("models.json:6: Kvys[0].models[0].key: "), std::string::npos)
        << error.toStdString();
}

TEST(Installation, AMissingFileIsAnError) {
    TemporaryInstallation installation;
    ASSERT_TRUE(QFile::remove(installation.path(QStringLiteral("history.json"))));
    const QString error = Host::instance().loadInstallation(installation.folder());
    EXPECT_NE(error.toStdString().find("history.json:1: file: "), std::string::npos)
        << error.toStdString();
}

TEST(Installation, KeysWithDotsBracketsAndEscapesAreTakenAsTheyAre) {
    TemporaryInstallation installation;
    QByteArray text = sampleContent("settings.json");
    text.replace("\"transactions\": {}",
                 R"("transactions": {"a.b": "1", "a": "2", "b[0]": "3", "\u0022q\\": "4", "": "5",
            "\u001f": "6", "\u001f\u001f": "7"})");
    installation.write(QStringLiteral("settings.json"), text);
    ASSERT_EQ(Host::instance().loadInstallation(installation.folder()), QString());
    const QMap<QString, QString> expected{{QStringLiteral("a.b"), QStringLiteral("1")},
                                          {QStringLiteral("a"), QStringLiteral("2")},
                                          {QStringLiteral("b[0]"), QStringLiteral("3")},
                                          {QStringLiteral("\"q\\"), QStringLiteral("4")},
                                          {QStringLiteral(""), QStringLiteral("5")},
                                          {QStringLiteral("\x1f"), QStringLiteral("6")},
                                          {QStringLiteral("\x1f\x1f"), QStringLiteral("7")}};
    EXPECT_EQ(installation.switches().transactions, expected);
}

TEST(Installation, TaxModesBeyondTheNamedOnesAreLoadedAsNumbers) {
    TemporaryInstallation installation;
    installation.write(
        QStringLiteral("models.json"),
        R"({"Kvys": [{"taxMode": 3, "models": []}, {"taxMode": -1, "models": []}]})");
    ASSERT_EQ(Host::instance().loadInstallation(installation.folder()), QString());
    const auto& modes = installation.values().models[QStringLiteral("Kvys")];
    ASSERT_EQ(modes.size(), 2);
    EXPECT_EQ(modes.at(0).taxMode, 3);
    EXPECT_EQ(modes.at(1).taxMode, -1);
}

TEST(Installation, ThreeThousandModelsAndVeryLongNamesAreRead) {
    TemporaryInstallation installation;
    const QByteArray name = QString(500, QChar(0x6E05)).toUtf8();
    QByteArray text = R"({"Kvys": [{"taxMode": 0, "models": [)";
    for (int i = 0; i < 3000; ++i) {
        if (i > 0) text += ',';
        text += "{\"name\": \"" + name + QByteArray::number(i) +
                R"(", "key": "k", "description": "", "basis": [], "feeMode": ""})";
    }
    installation.write(QStringLiteral("models.json"), text + "]}]}");
    ASSERT_EQ(Host::instance().loadInstallation(installation.folder()), QString());
    const auto& models = installation.values().models[QStringLiteral("Kvys")].at(0).models;
    ASSERT_EQ(models.size(), 3000);
    EXPECT_EQ(models.at(2999).name.size(), 504);
}

TEST(Installation, HistoryIsKeptOnDiskAndMovesWithItsFolder) {
    TemporaryInstallation installation;
    const QString mine = QStringLiteral("bd##") + installation.path(QStringLiteral("P/甲.GCFX"));
    const QString foreign = QStringLiteral("a\x1f") + QStringLiteral("b");
    EXPECT_EQ(installation.values().addToHistory(foreign), QString());
    EXPECT_EQ(installation.values().addToHistory(mine), QString());
    EXPECT_EQ(installation.values().addToHistory(foreign), QString()) << "moves to the head";
    EXPECT_EQ(installation.values().history, (QStringList{foreign, mine}));
    EXPECT_FALSE(contentOf(installation.path(QStringLiteral("history.json")))
                     .contains(installation.folder().toUtf8()));
    ASSERT_EQ(Host::instance().loadInstallation(installation.folder()), QString());
    EXPECT_EQ(installation.values().history, (QStringList{foreign, mine}));
}

TEST(Installation, DrivesOfEitherCaseAreOneFileInTheHistory) {
    TemporaryInstallation installation;
    workbench::Installation& values = installation.values();
    const QString typed = QStringLiteral("d:\\工程\\a.GCFX");
    const QString own = QStringLiteral("bd##d:/工程/a.GCFX");
    const QString share = QStringLiteral("\\\\server\\share\\b.GCFX");
    const QString otherName = QStringLiteral("d:\\工程\\A.GCFX");
    for (const QString& entry : {typed, own, share, otherName})
        EXPECT_EQ(values.addToHistory(entry), QString());
    EXPECT_EQ(values.history, (QStringList{otherName, share, own, typed}));
    const QString ownLarge = QStringLiteral("bd##D:/工程/a.GCFX");
    const QString typedLarge = QStringLiteral("D:\\工程\\a.GCFX");
    EXPECT_EQ(values.addToHistory(ownLarge), QString());
    EXPECT_EQ(values.addToHistory(typedLarge), QString());
    EXPECT_EQ(values.history, (QStringList{typedLarge, ownLarge, otherName, share}));
    ASSERT_EQ(Host::instance().loadInstallation(installation.folder()), QString());
    EXPECT_EQ(installation.values().history, (QStringList{typedLarge, ownLarge, otherName, share}));
}

TEST(Installation, AUnitSeparatorInAKeyIsNoStepOfItsPath) {
    TemporaryInstallation installation;
    installation.write(QStringLiteral("models.json"),
                       R"({"Kvys": [{"taxMode": 0, "models": [{"name": "a", "key": "k",
                           "description": "", "basis": [], "feeMode": "", "feeModes": [],
                           "defaultFeeMode": "",
                           "parameters": {"p": {"q": "1"}},
                           "parameters\u001fp": 2}]}]})");
    const QString error = Host::instance().loadInstallation(installation.folder());
    EXPECT_NE(error.toStdString().find("models.json:5: "), std::string::npos)
        << error.toStdString();
    EXPECT_NE(error.toStdString().find("this key is not known"), std::string::npos)
        << error.toStdString();
}

TEST(Installation, ANulInAKeyDoesNotLoseThePlacesBehindIt) {
    TemporaryInstallation installation;
    const QByteArray text("{\"entries\": [],\n \"a\0b\": 1}", 26);
    installation.write(QStringLiteral("history.json"), text);
    const QString error = Host::instance().loadInstallation(installation.folder());
    EXPECT_NE(error.toStdString().find("history.json:2: a"), std::string::npos)
        << error.toStdString();
}

TEST(Installation, AFileNamedLikeThePlaceholderKeepsItsName) {
    TemporaryInstallation installation;
    const QString entry =
        QStringLiteral("bd##") + installation.path(QStringLiteral("P/{installation}-001.GCFX"));
    EXPECT_EQ(installation.values().addToHistory(entry), QString());
    ASSERT_EQ(Host::instance().loadInstallation(installation.folder()), QString());
    EXPECT_EQ(installation.values().history, QStringList(entry));
}

TEST(Installation, WrittenSystemSettingsLeaveTheRestOfTheFileAsItWas) {
    TemporaryInstallation installation;
    const QByteArray before = sampleContent("settings.json");
    installation.write(QStringLiteral("settings.json"), before);
    ProjectSettingHelper* helper = ProjectSettingHelper::GetProjectSettingHelper();
    ProjectSettingSpace::SysSettingInfo info = helper->GetSysSettingInfo();
    info.modelName = QStringLiteral("定额计价【四川2000定额】");
    helper->SetSysSettingInfo(info, ProjectSettingSpace::SettingLocal);

    const QByteArray after = contentOf(installation.path(QStringLiteral("settings.json")));
    const auto rest = [](const QByteArray& content) {
        QJsonObject settings = QJsonDocument::fromJson(content).object();
        EXPECT_TRUE(settings.take(QStringLiteral("systemSettings")).isObject());
        return settings;
    };
    EXPECT_EQ(rest(after), rest(before));
    ASSERT_EQ(Host::instance().loadInstallation(installation.folder()), QString());
    EXPECT_EQ(installation.values().systemSettings.modelName, info.modelName);
    EXPECT_EQ(installation.values().systemSettings.estimateTemplate, info.estimateTemplate);
}

}  // namespace testing_support
