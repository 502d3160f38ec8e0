#include "workbench/base/Schema.h"

#include <QJsonObject>
#include <algorithm>

namespace workbench {

namespace {

void requireWord(const JsonPlace& place, const Field& field) {
    if (!field.words.contains(place.text()))
        place.fail(QStringLiteral("must be one of \"%1\"")
                       .arg(field.words.join(QStringLiteral("\", \""))));
}

void requireTruths(const JsonPlace& map) {
    for (const QString& key : map.memberNames()) {
        bool whole = false;
        (void)key.toInt(&whole);
        if (!whole) map.member(key).fail(QStringLiteral("the key must be a whole number"));
        map.member(key).boolean();
    }
}

void requireSound(const JsonPlace& place, const Field& field) {
    const QString fault = field.fault ? field.fault(place.raw()) : QString();
    if (!fault.isEmpty()) place.fail(fault);
}

}  // namespace

const Field& fieldNamed(const Fields& fields, const char* key) {
    return *std::find_if(fields.begin(), fields.end(),
                         [key](const Field& field) { return field.key == QLatin1String(key); });
}

/// Reading a value as what it must be throws where it is not.
void requireShape(const JsonPlace& place, const Field& field) {
    switch (field.shape) {
        case Shape::Text:
            return void(place.text());
        case Shape::Path:
            return void(place.filePath());
        case Shape::Whole:
            return void(place.integer());
        case Shape::Number:
            return place.expect(QJsonValue::Double, "a number");
        case Shape::Truth:
            return void(place.boolean());
        case Shape::Texts:
            return void(place.texts());
        case Shape::Array:
            return void(place.items());
        case Shape::Word:
            return requireWord(place, field);
        case Shape::Words:
            if (!place.raw().isArray()) return requireWord(place, field);
            for (const JsonPlace& item : place.items()) requireWord(item, field);
            break;
        case Shape::TextMap:
            return void(place.textMap());
        case Shape::TruthMap:
            return requireTruths(place);
        case Shape::Object:
            return requireFields(place, field.members);
        case Shape::Objects:
            for (const JsonPlace& item : place.items()) requireFields(item, field.members);
            break;
        case Shape::Anything:
            break;
    }
}

Field field(const char* key, Shape shape, bool required, const Fields& members) {
    return {QLatin1String(key), shape, required, {}, members};
}

Field needed(const char* key, Shape shape) {
    return field(key, shape, true);
}

Field word(const char* key, const char* words, bool required) {
    return {QLatin1String(key), Shape::Word, required,
            QString::fromLatin1(words).split(QLatin1Char(' '))};
}

Field sound(Field field, QString (*fault)(const QJsonValue&)) {
    field.fault = fault;
    return field;
}

void requireFields(const JsonPlace& object, const Fields& fields) {
    QStringList keys;
    for (const Field& field : fields) keys.append(field.key);
    object.allowOnly(keys);
    for (const Field& field : fields) {
        if (!field.required && !object.has(field.key)) continue;
        const JsonPlace member = object.member(field.key);
        requireShape(member, field);
        if (field.shape != Shape::Objects) {
            requireSound(member, field);
            continue;
        }
        for (const JsonPlace& item : member.items()) requireSound(item, field);
    }
}

}  // namespace workbench
