/// Strict reading of JSON by tables: which members an object may have, and of what shape.
#pragma once

#include <QStringList>
#include <QVector>

#include "workbench/base/JsonReader.h"

namespace workbench {

enum class Shape {
    Text,
    Path,   ///< A text without NUL.
    Whole,  ///< A number without fraction.
    Number,
    Truth,
    Texts,  ///< An array of texts.
    Array,  ///< An array of anything.
    Anything,
    Word,      ///< One of the field's words.
    Words,     ///< One of the field's words, or an array of them.
    TextMap,   ///< An object of texts under any keys.
    TruthMap,  ///< An object of true and false under whole numbers as keys.
    Object,    ///< An object of the field's members.
    Objects    ///< An array of such objects.
};

struct Field;
using Fields = QVector<Field>;

/// One member that an object may have.
struct Field {
    QString key;
    Shape shape = Shape::Text;
    bool required = false;
    QStringList words = {};  ///< For Word and Words.
    Fields members = {};     ///< For Object and Objects.
    /// What is wrong with a value of the right shape, empty if nothing; for Objects: with each.
    QString (*fault)(const QJsonValue& value) = nullptr;
};

/// Makers of fields, for tables. @param words separated by blanks.
WORKBENCH_API Field field(const char* key, Shape shape = Shape::Text, bool required = false,
                          const Fields& members = {});
WORKBENCH_API Field needed(const char* key, Shape shape = Shape::Text);
WORKBENCH_API Field word(const char* key, const char* words, bool required = false);
/// @return the field with a judge of its values. @see Field::fault
WORKBENCH_API Field sound(Field field, QString (*fault)(const QJsonValue&));

/// @return the field of a key, which must be one.
WORKBENCH_API const Field& fieldNamed(const Fields& fields, const char* key);

/// Throws JsonError where the value is not of the field's shape.
WORKBENCH_API void requireShape(const JsonPlace& place, const Field& field);
/// Throws JsonError for the first member that is unknown, missing or of another shape, or if the
/// place holds no object.
WORKBENCH_API void requireFields(const JsonPlace& object, const Fields& fields);

}  // namespace workbench
