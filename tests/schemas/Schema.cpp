#include "tests/schemas/Schema.h"

#include <QFile>
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

struct Schema::Data {
    valijson::Schema schema;
};

Schema::Schema(const QString& file) : d(std::make_unique<Data>()) {
    const QJsonValue text = contents(file);
    // The schemas keep to what this reads and what stands unchanged in the draft that they name.
    valijson::SchemaParser(valijson::SchemaParser::kDraft7)
        .populateSchema(QtJsonAdapter(text), d->schema);
}

Schema::~Schema() = default;

QString Schema::refusal(const QJsonValue& value) const {
    valijson::Validator validator;
    valijson::ValidationResults results;
    if (validator.validate(d->schema, QtJsonAdapter(value), &results)) return {};
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
