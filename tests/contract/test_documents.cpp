#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include "core/hostContract.h"
#include "core/projectKind.h"
#include "tests/contract/Contract.h"
#include "tests/schemas/Schema.h"
#include "tests/support/TestSupport.h"
#include "workbench/journal/hostOperations.h"

namespace {

using contract::argument;
using contract::Message;

const QString propertiesKey = QStringLiteral("properties");
const QString constKey = QStringLiteral("const");

/// @return what the header has between two of its lines.
QString headerSection(const QString& from, const QString& to) {
    QFile file(QStringLiteral(REPOSITORY "/core/hostContract.h"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(file.readAll());
    const int start = text.indexOf(from);
    EXPECT_GE(start, 0) << from.toStdString();
    return text.mid(start, text.indexOf(to, start) - start);
}

QSet<QString> found(const QString& text, const QString& pattern) {
    QSet<QString> all;
    auto match = QRegularExpression(pattern).globalMatch(text);
    while (match.hasNext()) all.insert(match.next().captured(1));
    return all;
}

/// @return the constants of a namespace of the header.
QSet<QString> constants(const char* name) {
    const QString space = QStringLiteral("namespace ") + QLatin1String(name);
    return found(headerSection(space + QLatin1String(" {"), QLatin1String("}  // ") + space),
                 QStringLiteral("latin1\\(\"(\\w+)\"\\)"));
}

QSet<QString> keysOf(const Message& message) {
    const QStringList keys = argument(message, 2)[propertiesKey].toObject().keys();
    return {keys.begin(), keys.end()};
}

TEST(Header, HasTheKeysOfTheSchemasAndNoOther) {
    QSet<QString> messageKeys;
    QSet<QString> projectKeys;
    for (const Message& message : contract::messages())
        (message.kind == QLatin1String("signal") ? projectKeys : messageKeys) += keysOf(message);
    EXPECT_EQ(constants("messageKey"), messageKeys);
    EXPECT_EQ(constants("projectKey"), projectKeys);
    EXPECT_EQ(messageKeys.size(), 13);
    EXPECT_EQ(projectKeys.size(), 13);
}

TEST(Header, HasTheCodesOfTheSchemasAndNoOther) {
    QSet<QString> codes;
    for (const Message& message : contract::messages()) {
        const QJsonValue code = argument(message, 1)[constKey];
        if (!code.isUndefined()) codes.insert(QString::number(code.toInt()));
    }
    EXPECT_EQ(found(headerSection(QStringLiteral("enum MessageCode"), QStringLiteral("};")),
                    QStringLiteral("= (\\d+),")),
              codes);
    EXPECT_EQ(codes.size(), 11);
}

TEST(Header, HasTheApplicationTypesOfTheSchemasAndNoOther) {
    QSet<QString> types;
    for (const Message& message : contract::messages()) {
        const QJsonValue type =
            argument(message, 2)[propertiesKey][newpro::messageKey::appType][constKey];
        if (type.isString()) types.insert(type.toString());
    }
    EXPECT_EQ(constants("applicationType"), types);
    EXPECT_EQ(types.size(), 3);
}

TEST(Header, HasTheValuesOfTheSchemas) {
    const auto values = [](const char* schema, QLatin1String key) {
        for (const Message& message : contract::messages()) {
            if (message.schema == QLatin1String(schema))
                return argument(message, 2)[propertiesKey][key][QStringLiteral("enum")].toArray();
        }
        return QJsonArray();
    };
    EXPECT_EQ(values("plugin-107", newpro::messageKey::importType),
              (QJsonArray{newpro::ImportWorkbook, newpro::ImportFolder}));
    EXPECT_EQ(values("signal-95", newpro::projectKey::feeMode),
              (QJsonArray{newpro::FeePerUnit, newpro::FeeOfWholeProject}));
}

TEST(Header, HasTheOnlyTargetsOfTheSchemas) {
    QSet<int> targets;
    for (const Message& message : contract::messages()) {
        const QJsonValue target = argument(message, 0)[constKey];
        if (!target.isUndefined()) targets.insert(target.toInt());
    }
    EXPECT_EQ(targets, (QSet<int>{newpro::BudgetProgram, newpro::SettlementProgram,
                                  newpro::ContractingProgram}));
}

bool isDescribed(const QJsonValue& member) {
    return member.isBool() || !member[QStringLiteral("description")].toString().isEmpty() ||
           member[QStringLiteral("$ref")].toString().contains(QLatin1Char('#'));
}

/// Reports each member of a closed object, and each place of a closed tuple, that nothing is said
/// about. @return how many there are.
int expectDescriptions(const QJsonValue& schema, const QString& at) {
    int members = 0;
    const auto expectEach = [&](const QJsonObject& parts, const QString& kind) {
        for (auto part = parts.begin(); part != parts.end(); ++part, ++members)
            EXPECT_TRUE(isDescribed(*part))
                << at.toStdString() << " " << kind.toStdString() << " " << part.key().toStdString();
    };
    if (schema[QStringLiteral("additionalProperties")] == false)
        expectEach(schema[propertiesKey].toObject(), propertiesKey);
    const QJsonArray places = schema[QStringLiteral("prefixItems")].toArray();
    for (int i = 0; schema[QStringLiteral("items")] == false && i < places.size(); ++i)
        expectEach({{QString::number(i), places[i]}}, QStringLiteral("place"));

    const QJsonObject object = schema.toObject();
    for (auto it = object.begin(); it != object.end(); ++it)
        members += expectDescriptions(*it, at + QLatin1Char('/') + it.key());
    const QJsonArray array = schema.toArray();
    for (int i = 0; i < array.size(); ++i)
        members += expectDescriptions(array[i], at + QLatin1Char('/') + QString::number(i));
    return members;
}

TEST(Documents, SayWhatEachMemberMeans) {
    int members = 0;
    for (const QString& file : contract::schemaFiles())
        members += expectDescriptions(schemas::contents(file), file);
    EXPECT_GT(members, 150);
}

TEST(Documents, HaveExamplesThatTheySayAreRight) {
    int count = 0;
    for (const QString& file : contract::schemaFiles()) {
        const schemas::Schema schema(file);
        const QJsonArray examples = schemas::contents(file)[QStringLiteral("examples")].toArray();
        for (const QJsonValue& example : examples)
            EXPECT_EQ(schema.refusal(example), QString()) << file.toStdString() << " " << count;
        count += examples.size();
    }
    EXPECT_GT(count, 2 * contract::messages().size() - 5);
}

/// The operations that a line may name are those that the workbench journals.
TEST(Documents, NameEveryOperationOfTheHost) {
    QSet<QString> named;
    const QString name = QStringLiteral("name");
    const QJsonArray kinds = schemas::contents(QStringLiteral(
        "docs/contract/journal-line.schema.json"))[QStringLiteral("allOf")]
                                 .toArray();
    for (const QJsonValue& kind : kinds) {
        const QJsonValue of = kind[QStringLiteral("if")][propertiesKey];
        const QString word = of[QStringLiteral("kind")][constKey].toString();
        if (word != QLatin1String("call") && word != QLatin1String("box")) continue;
        const QJsonArray names =
            kind[QStringLiteral("then")][propertiesKey][name][QStringLiteral("enum")].toArray();
        for (const QJsonValue& each : names) named.insert(each.toString());
    }
    const QStringList all = workbench::hostOperations();
    EXPECT_EQ(named, QSet<QString>(all.begin(), all.end()));
}

/// @return the texts that a schema gives for "name" alone, anywhere in it.
QSet<QString> namedAlone(const QJsonValue& schema) {
    QSet<QString> names;
    const QString name =
        schema[QStringLiteral("if")][propertiesKey][QStringLiteral("name")][constKey].toString();
    if (!name.isEmpty()) names.insert(name);
    const QJsonObject object = schema.toObject();
    for (const QJsonValue& part : object) names += namedAlone(part);
    const QJsonArray array = schema.toArray();
    for (const QJsonValue& part : array) names += namedAlone(part);
    return names;
}

/// Else a line of that name could have any arguments and any answer.
TEST(Documents, DescribeEveryOperationThatTheyName) {
    const QSet<QString> described =
        namedAlone(schemas::contents(QStringLiteral("docs/contract/journal-line.schema.json"))) +
        namedAlone(schemas::contents(QStringLiteral("docs/contract/host-calls.schema.json")));
    for (const QString& operation : workbench::hostOperations())
        EXPECT_TRUE(described.contains(operation) || operation.startsWith(QLatin1String("show")))
            << operation.toStdString();
}

TEST(Documents, HaveTheProgramTypesOfTheKinds) {
    QSet<int> sent;
    for (const char* label :
         {"预算工程", "概算工程", "结算工程", "总承包工程", "全过程工程", "审核工程"}) {
        const newpro::ProjectKind* kind = newpro::kindOfLabel(QString::fromUtf8(label));
        ASSERT_TRUE(kind) << label;
        int type = newpro::UnknownProgram;
        EXPECT_TRUE(newpro::programTypeOf(kind->appType, type));
        sent.insert(type);
    }
    QSet<int> described;
    const QJsonValue common = schemas::contents(QStringLiteral("docs/contract/common.schema.json"));
    const QJsonArray types =
        common[QStringLiteral("$defs")][QStringLiteral("programType")][QStringLiteral("enum")]
            .toArray();
    for (const QJsonValue& type : types) described.insert(type.toInt());
    EXPECT_EQ(sent, described);
}

TEST(Documents, StandInTheTable) {
    const QSet<QString> linked =
        found(contract::table(), QStringLiteral("\\]\\(([\\w-]+\\.schema\\.json)\\)"));
    QSet<QString> there;
    for (const QString& file : contract::schemaFiles())
        there.insert(file.section(QLatin1Char('/'), -1));
    EXPECT_EQ(linked, there);
}

}  // namespace
