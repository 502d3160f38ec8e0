#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "tests/schemas/Schema.h"
#include "tests/schemas/mutants.h"
#include "tests/support/TestSupport.h"
#include "workbench/hostlibs/common/Installation.h"
#include "workbench/hostlibs/common/hostSwitches.h"
#include "workbench/scenario/Scenario.h"
#include "workbench/scenario/verbs.h"

namespace {

using schemas::contents;
using schemas::Schema;

const QString repository = QStringLiteral(REPOSITORY "/");

void write(const QString& path, const QJsonValue& value) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QJsonDocument(value.toObject()).toJson());
}

QStringList filesIn(const QString& folder) {
    QStringList files;
    for (const QFileInfo& file :
         QDir(repository + folder).entryInfoList({QStringLiteral("*.json")}, QDir::Files))
        files.append(folder + QLatin1Char('/') + file.fileName());
    return files;
}

/// What the program says to a changed file.
using Reader = std::function<QString(const QJsonValue&)>;

/// @return how many mutants of the file were refused; each by the schema and by the program, or by
///         neither.
int compare(const Schema& schema, const Reader& reader, const QString& file) {
    int refused = 0;
    const auto see = [&](const QJsonValue& mutant, const QString& change) {
        if (!mutant.isObject()) return;  // JSON files of this program hold objects
        const QString bySchema = schema.refusal(mutant);
        const QString byProgram = reader(mutant);
        refused += bySchema.isEmpty() ? 0 : 1;
        EXPECT_EQ(bySchema.isEmpty(), byProgram.isEmpty())
            << file.toStdString() << change.toStdString()
            << "\n  schema: " << bySchema.toStdString()
            << "\n  program: " << byProgram.toStdString();
    };
    schemas::eachMutant(contents(file), schemas::anyWords(), see);
    return refused;
}

class InstallationFile : public testing::TestWithParam<const char*> {
  protected:
    QString name() const { return QLatin1String(GetParam()); }
    Schema schema{QStringLiteral("workbench/schemas/%1.schema.json").arg(name())};
};

TEST_P(InstallationFile, EveryOneOfTheRepositoryIsAsDescribed) {
    for (const char* folder : {"workbench/installation", "workbench/installation-yunnan",
                               "tests/monkey/installation", "tests/faults/installation"}) {
        const QString file = QStringLiteral("%1/%2.json").arg(QLatin1String(folder), name());
        EXPECT_EQ(schema.refusal(contents(file)), QString()) << folder;
    }
}

TEST_P(InstallationFile, IsRefusedByTheProgramWhereItIsNotAsDescribed) {
    const QString original = QStringLiteral("tests/monkey/installation/");
    QTemporaryDir folder;
    for (const char* each : {"models", "settings", "history"})
        write(folder.filePath(QLatin1String(each) + QStringLiteral(".json")),
              contents(original + QLatin1String(each) + QStringLiteral(".json")));
    const QString file = name() + QStringLiteral(".json");
    const auto reader = [&](const QJsonValue& mutant) {
        write(folder.filePath(file), mutant);
        workbench::Installation read;
        QString error;
        workbench::Installation::load(folder.path(), read, error);
        return error;
    };
    EXPECT_GT(compare(schema, reader, original + file), 10);
}

INSTANTIATE_TEST_SUITE_P(Schemas, InstallationFile,
                         testing::Values("models", "settings", "history"),
                         [](const auto& info) { return std::string(info.param); });

struct Scenarios : testing::Test {
    Schema schema{QStringLiteral("docs/contract/scenario.schema.json")};
};

TEST_F(Scenarios, EveryOneOfTheRepositoryIsAsDescribed) {
    for (const char* folder : {"tests/scenarios", "tests/faults/flows"}) {
        const QStringList files = filesIn(QLatin1String(folder));
        EXPECT_GT(files.size(), 40);
        for (const QString& file : files)
            EXPECT_EQ(schema.refusal(contents(file)), QString()) << file.toStdString();
    }
}

TEST_F(Scenarios, IsRefusedByTheProgramWhereItIsNotAsDescribed) {
    QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("s.json"));
    const auto reader = [&](const QJsonValue& mutant) {
        write(file, mutant);
        workbench::Scenario read;
        QString error;
        workbench::readScenario(file, read, error);
        return error;
    };
    EXPECT_GT(compare(schema, reader, QStringLiteral("tests/schemas/everyKey.json")), 500);
}

/// What the comparison does not see, it cannot compare.
TEST_F(Scenarios, EveryKeyThatTheProgramKnowsIsCompared) {
    const QJsonObject every = contents(QStringLiteral("tests/schemas/everyKey.json")).toObject();
    QMap<QString, QStringList> keysOf;  // by verb
    for (const QJsonValue step : every.value(QStringLiteral("steps")).toArray())
        keysOf[step[QStringLiteral("do")].toString()] += step.toObject().keys();
    for (const QVector<workbench::Verb>* verbs :
         {&workbench::dialogVerbs(), &workbench::windowVerbs()}) {
        for (const workbench::Verb& verb : *verbs) {
            EXPECT_TRUE(keysOf.contains(verb.name)) << verb.name.toStdString();
            if (verb.name == QLatin1String("host")) continue;  // has the keys of "host", below
            for (const workbench::Field& field : verb.fields)
                EXPECT_TRUE(keysOf[verb.name].contains(field.key))
                    << verb.name.toStdString() << " " << field.key.toStdString();
        }
    }
    const QJsonObject host = every.value(QStringLiteral("host")).toObject();
    for (const workbench::Field& field : workbench::hostFields())
        EXPECT_TRUE(host.contains(field.key)) << field.key.toStdString();
}

}  // namespace
