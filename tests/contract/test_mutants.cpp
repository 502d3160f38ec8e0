#include <QRegularExpression>
#include <QSet>
#include <algorithm>
#include <iostream>
#include <map>
#include <vector>

#include "core/hostContract.h"
#include "tests/contract/Contract.h"
#include "tests/schemas/Schema.h"
#include "tests/schemas/mutants.h"
#include "tests/support/TestSupport.h"
#include "workbench/journal/hostOperations.h"
#include "workbench/journal/toJson.h"

namespace {

using contract::Message;

const QString argsKey = QStringLiteral("args");

/// A change that makes one legal line of another.
struct Legal {
    const char* of;      ///< Schema of the message, or kind of the line.
    const char* change;  ///< As eachMutant tells it.
    const char* reason;
};

const Legal legalChanges[] = {
    {"plugin-(0|10[0-5].*)", "/2/client_pid dropped", "the plug-in may not be loaded"},
    {"plugin-(0|10[0-5].*)", "/2 \\+ client_pid", "the plug-in may be loaded"},
    {"plugin-(0|10[0-5].*)", "/2/(GcLx|GsMb|JsMb|GcLj) = \".*\"", "chosen on the page, or not"},
    {"plugin-0", "/0 = (0|1|32)", "another kind without a case"},
    {"plugin-100", "/0 = 4", "the budget without the bits 8 and 16"},
    {"plugin-102", "/0 = 6", "the estimate without the bits 1, 8 and 16"},
    {"plugin-105", "/0 = 16", "the general contract without the bits 2 and 8"},
    {"plugin-107", "/2/type = [01]", "a workbook or a folder"},
    {"plugin-107", "/2/(jjms|gcmb) = \".*\"", "chosen in the import dialog, or not"},
    {"plugin-(107|108|114)", "/2/(path|dzb_file|pro_file) = \".+\"", "another file"},
    {"signal-95", "/2/m_strProjectType = \".*\"", "another pricing model"},
    {"signal-95", "/2/mJfms = [01]", "the other fee mode"},
    {"signal-(95|44)", "/0 = (4|8|16|32)", "another kind"},
    {"(signal|message)-44", "/2 = \".+\"", "another template"},
    {"signal-cjz-int", "/[01] = -?\\d+", "the host's own numbers"},
    {"signal-cjz-string", "/0 = -?\\d+|/1 = \".*\"", "the host's own number and text"},

    {".*", "/seq = [1-9]\\d*|/ms = \\d+", "another place or time"},
    {"project|exception", "/name = \".+\"", "another file or function"},
    {"call .*", "/args/\\d = -?[\\d.]+", "another plug-in, function, kind or size"},
    {"call .*", "/args/\\d = \".*\"", "another path, name or caption"},
    {"call .*", "/args/0 = null", "a file dialog without a parent"},
    {"call .*", "/args/0 dropped|/args = \\[\\]",
     "load: the plug-in that isLoaded was asked about"},
    {"call .*", "/args/2( = \\[\\]|/\\d+ = \".*\"|/\\d+ dropped)", "other suffixes"},
    {"call .*", "/args/0/(\\w+ = \".*\"|others \\+ .*)", "other settings of the user's"},
    {"call .*", "/answer = .+", "another answer of its type"},
    {"call (AppPluginManager::instance|Communication::GetMainWindow|LibXLExcel::Open|"
     "ProjectSettingHelper::GetProjectSettingHelper|osgi::ObjectHelper::GetService)",
     "of another type: /answer = (null|true)", "the host has none, or one"},
    {"call .*", "/answer/\\d+( = \".*\"| dropped)", "a shorter list, or other texts in it"},
    {"call .*", "/answer(/.*| \\+ .*)", "other settings; the cloud service's answers are its own"},
    {"call .*", "/answer dropped| \\+ answer", "the host has thrown, or has not"},
    {"dialog", "/result = -?\\d+", "another result"},
    {"box", "/args/(0 = \".*\"|1 = \".+\"|2/\\d = \".+\")", "other texts"},
    {"exception", "/args/(1 = [1-9]\\d*|[02] = \".+\"|3 = \".*\")", "another place or text"},
};

/// @return the first row that a change is in; -1 for none.
int rowOf(const QString& of, const QString& change) {
    struct Row {
        QRegularExpression of, change;
    };
    static const std::vector<Row> rows = [] {
        const auto whole = [](const char* pattern) {
            QRegularExpression made(
                QRegularExpression::anchoredPattern(QString::fromUtf8(pattern)));
            made.optimize();
            return made;
        };
        std::vector<Row> made;
        for (const Legal& row : legalChanges) made.push_back({whole(row.of), whole(row.change)});
        return made;
    }();
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const Row& row) {
        return row.of.match(of).hasMatch() && row.change.match(change).hasMatch();
    });
    return found == rows.end() ? -1 : int(found - rows.begin());
}

const QString retyped = QStringLiteral("of another type: ");

/// @return whether two lines of a call have answers of different types.
bool isRetyped(const QJsonValue& one, const QJsonValue& other) {
    const QJsonValue answers[] = {one[QLatin1String("answer")], other[QLatin1String("answer")]};
    return !answers[0].isUndefined() && !answers[1].isUndefined() &&
           answers[0].type() != answers[1].type();
}

/// @return the value with texts that somebody chose made equal.
QJsonValue outline(const QJsonValue& value) {
    static const QStringList words = {QString(), newpro::applicationType::budget,
                                      newpro::applicationType::contracting,
                                      newpro::applicationType::settlement};
    if (value.isString()) return words.contains(value.toString()) ? value : QStringLiteral("…");
    if (value.isArray()) {
        QJsonArray array = value.toArray();
        for (int i = 0; i < array.size(); ++i) array.replace(i, outline(array[i]));
        return array;
    }
    QJsonObject object = value.toObject();
    for (const QString& key : object.keys()) object[key] = outline(object[key]);
    return value.isObject() ? QJsonValue(object) : value;
}

class Mutants : public testing::Test {
  protected:
    Mutants() : words(schemas::anyWords()), seen(std::size(legalChanges)) {
        for (const Message& message : contract::messages()) {
            const QJsonValue code = contract::argument(message, 1)[QLatin1String("const")];
            if (code.isDouble() && !words.values.contains(code)) words.values.append(code);
        }
        for (const int number : {1, 4, 5, 6, 8, 16, 17, 32}) words.values.append(number);
        for (const QLatin1String type :
             {newpro::applicationType::budget, newpro::applicationType::contracting,
              newpro::applicationType::settlement})
            words.values.append(QString(type));
        words.values.append(false);
    }

    /// Refuses every mutant of a line's part, or finds its row in the table.
    /// @param whole makes a line of the part.
    void judge(const QString& of, const QJsonValue& part,
               const std::function<QJsonValue(const QJsonValue&)>& whole) {
        ASSERT_EQ(schema.refusal(whole(part)), QString()) << of.toStdString();
        schemas::eachMutant(part, words, [&](const QJsonValue& mutant, const QString& change) {
            ++count;
            if (!schema.accepts(whole(mutant))) return;
            const int row = rowOf(of, isRetyped(part, mutant) ? retyped + change : change);
            EXPECT_GE(row, 0) << of.toStdString() << " " << change.toStdString() << "\n"
                              << workbench::compact(part).toStdString();
            if (row < 0) return;
            ++legal;
            ++seen[size_t(row)];
        });
    }

    void tellAndCompare(const char* what, int examples, const char* rowsOf) {
        std::cout << what << ": " << examples << " examples, " << count << " mutants, "
                  << count - legal << " refused, " << legal << " legal\n";
        const QRegularExpression own(QString::fromUtf8(rowsOf));
        for (size_t row = 0; row < seen.size(); ++row) {
            const Legal& change = legalChanges[row];
            if (!QString::fromUtf8(change.of).contains(own)) continue;
            EXPECT_GT(seen[row], 0) << change.of << " " << change.change << ": never met";
            std::cout << "  " << seen[row] << " " << change.of << " " << change.change << ": "
                      << change.reason << "\n";
        }
    }

    const schemas::Schema schema{QStringLiteral("docs/contract/journal-line.schema.json")};
    schemas::Vocabulary words;
    std::vector<int> seen;
    int count = 0;
    int legal = 0;
};

/// @return the kind of a line, with the operation of a call.
QString nameOf(const QJsonObject& line) {
    const QString kind = line.value(QLatin1String("kind")).toString();
    return kind == QLatin1String("call")
               ? kind + QLatin1Char(' ') + line.value(QLatin1String("name")).toString()
               : kind;
}

/// @return one line of each outline, by the case that its message is of.
QMultiMap<QString, QJsonObject> examplesOfMessages() {
    std::map<QString, schemas::Schema> schemas;
    for (const Message& message : contract::messages())
        schemas.try_emplace(message.schema, message.file());
    QSet<QByteArray> known;
    QMultiMap<QString, QJsonObject> examples;
    for (const QString& scenario : contract::scenarios()) {
        for (const QJsonObject& line : contract::journalOf(scenario)) {
            for (const Message& message : contract::messages()) {
                if (!message.isNamedBy(line)) continue;
                const QJsonValue args = line.value(argsKey);
                const QByteArray shape =
                    message.schema.toUtf8() + workbench::compact(outline(args));
                if (known.contains(shape)) continue;
                if (!schemas.at(message.schema).accepts(args)) continue;
                known.insert(shape);
                examples.insert(message.schema, line);
            }
        }
    }
    return examples;
}

TEST_F(Mutants, OfEveryMessageAreRefusedOrInTheTable) {
    const QMultiMap<QString, QJsonObject> examples = examplesOfMessages();
    for (const QJsonObject& line : examples) {
        const QJsonObject body = line.value(argsKey).toArray().at(2).toObject();
        for (auto it = body.begin(); it != body.end(); ++it) words.members.insert(it.key(), *it);
    }
    EXPECT_GT(words.members.size(), 25);
    for (auto it = examples.begin(); it != examples.end(); ++it) {
        words.members.insert(newpro::messageKey::client, it->value(argsKey).toArray().at(0));
        judge(it.key(), it->value(argsKey), [&](const QJsonValue& args) {
            QJsonObject line = *it;
            line.insert(argsKey, args);
            return line;
        });
    }
    tellAndCompare("Messages", examples.size(), "plugin|signal|message");
}

QJsonArray linesOfTheSchema() {
    return schemas::contents(
               QStringLiteral("docs/contract/journal-line.schema.json"))[QStringLiteral("examples")]
        .toArray();
}

/// @return whether the operation hands over messages, which have mutants of their own, or is a box:
///         one stands for all.
bool isMessageOrBox(const QString& operation) {
    const auto& all = contract::messages();
    return operation.startsWith(QLatin1String("show")) ||
           std::any_of(all.begin(), all.end(),
                       [&](const Message& message) { return message.name == operation; });
}

TEST_F(Mutants, OfEveryKindOfLineAreRefusedOrInTheTable) {
    QMap<QByteArray, QJsonObject> examples;
    const auto add = [&](const QJsonObject& line) {
        const auto isOfLine = [&](const Message& message) { return message.isNamedBy(line); };
        const auto& all = contract::messages();
        if (std::any_of(all.begin(), all.end(), isOfLine)) return;
        QByteArray shape = nameOf(line).toUtf8();
        for (const QString& key : line.keys()) shape += ' ' + key.toUtf8();
        shape += ' ' + QByteArray::number(line.value(QLatin1String("answer")).type());
        examples.insert(shape, line);
        for (auto it = line.begin(); it != line.end(); ++it) words.members.insert(it.key(), *it);
    };
    // What no scenario reaches stands in the schema itself.
    const QJsonArray lines = linesOfTheSchema();
    for (const QJsonValue& line : lines) add(line.toObject());
    for (const QString& scenario : contract::scenarios())
        for (const QJsonObject& line : contract::journalOf(scenario)) add(line);
    QSet<QString> operations;
    for (const QJsonObject& line : qAsConst(examples))
        operations.insert(line.value(QLatin1String("name")).toString());
    for (const QString& operation : workbench::hostOperations())
        EXPECT_TRUE(operations.contains(operation) || isMessageOrBox(operation))
            << "no line of " << operation.toStdString();
    for (const char* word :
         {"call .*", "signal", "dialog", "box", "exception", "project", "opened", "done"})
        words.values.append(QString::fromUtf8(word));
    for (const QJsonObject& line : qAsConst(examples))
        judge(nameOf(line), line, [](const QJsonValue& whole) { return whole; });
    tellAndCompare("Lines", examples.size(), "^(\\.\\*|project|call|dialog|box|exception)");
}

}  // namespace
