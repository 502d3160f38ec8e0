#include "tests/schemas/Schema.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <stdexcept>
#include <valijson/adapters/qtjson_adapter.hpp>
#include <valijson/schema.hpp>
#include <valijson/schema_parser.hpp>
#include <valijson/validator.hpp>

namespace schemas {

using valijson::adapters::QtJsonAdapter;

namespace {

struct Document {
    QString file;
    QJsonValue whole;
};

QJsonValue inOneDocument(const QJsonValue& schema, const Document& document);

/// @return what a reference leads to.
QJsonValue target(const QString& reference, const Document& from) {
    const QString name = reference.section(QLatin1Char('#'), 0, 0);
    Document to = from;
    if (!name.isEmpty()) {
        to.file = QFileInfo(from.file).path() + QLatin1Char('/') + name;
        to.whole = contents(to.file);
    }
    QJsonValue found = to.whole;
    const QString path = reference.section(QLatin1Char('#'), 1);
    for (const QString& step : path.split(QLatin1Char('/'), Qt::SkipEmptyParts))
        found = found.toObject().value(step);
    if (found.isUndefined())
        throw std::runtime_error(from.file.toStdString() +
                                 ": leads nowhere: " + reference.toStdString());
    return inOneDocument(found, to);
}

/// Tuples are the one thing here that bears another name in the draft that the validator reads.
void renameTuple(QJsonObject& schema) {
    const QJsonValue items = schema.take(QStringLiteral("prefixItems"));
    if (items.isUndefined()) return;
    const QJsonValue others = schema.take(QStringLiteral("items"));
    schema.insert(QStringLiteral("items"), items);
    if (!others.isUndefined()) schema.insert(QStringLiteral("additionalItems"), others);
}

/// @return the schema with what its references lead to in their place. The validator would ignore
///         what stands beside a reference, and confuse places of two files.
QJsonValue inOneDocument(const QJsonValue& schema, const Document& document) {
    if (schema.isArray()) {
        QJsonArray whole;
        const QJsonArray parts = schema.toArray();
        for (const QJsonValue& part : parts) whole.append(inOneDocument(part, document));
        return whole;
    }
    if (!schema.isObject()) return schema;
    QJsonObject whole = schema.toObject();
    whole.remove(QStringLiteral("$defs"));
    whole.remove(QStringLiteral("examples"));
    const QJsonValue reference = whole.take(QStringLiteral("$ref"));
    for (const QString& key : whole.keys()) whole[key] = inOneDocument(whole[key], document);
    renameTuple(whole);
    if (reference.isUndefined()) return whole;
    const QString all = QStringLiteral("allOf");
    QJsonArray parts = whole.value(all).toArray();
    parts.append(target(reference.toString(), document));
    whole.insert(all, parts);
    return whole;
}

}  // namespace

struct Schema::Data {
    valijson::Schema schema;
};

Schema::Schema(const QString& file) : d(std::make_unique<Data>()) {
    const QJsonValue whole = contents(file);
    const QJsonValue text = inOneDocument(whole, {file, whole});
    // But for tuples, the schemas keep to what stands unchanged in the draft that they name.
    valijson::SchemaParser(valijson::SchemaParser::kDraft7)
        .populateSchema(QtJsonAdapter(text), d->schema);
}

Schema::~Schema() = default;

bool Schema::accepts(const QJsonValue& value) const {
    return valijson::Validator().validate(d->schema, QtJsonAdapter(value), nullptr);
}

QString Schema::refusal(const QJsonValue& value) const {
    if (accepts(value)) return {};
    valijson::ValidationResults results;
    valijson::Validator().validate(d->schema, QtJsonAdapter(value), &results);
    valijson::ValidationResults::Error error;
    results.popError(error);
    std::string text;
    for (const std::string& step : error.context) text += step;
    return QString::fromStdString(text + ": " + error.description);
}

QJsonValue contents(const QString& name) {
    QFile file(QStringLiteral(REPOSITORY "/") + name);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot be read: " + name.toStdString());
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll(), &error);
    if (document.isNull()) throw std::runtime_error(error.errorString().toStdString());
    return document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
}

}  // namespace schemas
