/// Strict reading of a JSON file: whatever is not as asked for is an error with its place.
#pragma once

#include <QHash>
#include <QJsonValue>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVector>

#include "workbench/base/WorkbenchApi.h"

namespace workbench {

/// "file:line: key: message", thrown by everything here.
struct WORKBENCH_API JsonError {
    QString text;
};

/// A JSON file and the place of every value in it.
class WORKBENCH_API JsonFile {
  public:
    /// Where a value stands in the text, in bytes; `end` is behind it.
    struct Span {
        int begin = 0;
        int end = 0;
    };

    /// Reads a file. Throws JsonError for a file that cannot be read, is not valid UTF-8, is no
    /// JSON, or names a key twice in one object.
    explicit JsonFile(const QString& path);

    const QJsonValue& root() const { return content; }
    const QByteArray& text() const { return bytes; }
    /// @param path JsonPlace's path of a value. @return its place; the start for an unknown one.
    Span span(const QString& path) const { return spans.value(path); }
    /// Throws a JsonError. @param offset where, in bytes. @param key what to call the place.
    [[noreturn]] void fail(int offset, const QString& key, const QString& message) const;

  private:
    QString path;
    QByteArray bytes;
    QJsonValue content;
    QHash<QString, Span> spans;
};

/// A value in a JSON file. Every reading throws JsonError where the value is of another type.
class WORKBENCH_API JsonPlace {
  public:
    explicit JsonPlace(const JsonFile& file) : JsonPlace(file, file.root(), QString()) {}

    /// @return where the value stands in the text.
    JsonFile::Span span() const { return file->span(path); }

    const QJsonValue& raw() const { return value; }

    /// Throws an error that names this place.
    [[noreturn]] void fail(const QString& message) const;
    /// Throws when the object has a key beside these.
    void allowOnly(const QStringList& keys) const;
    /// @param keys separated by blanks.
    void allowOnly(const char* keys) const {
        allowOnly(QString::fromLatin1(keys).split(QLatin1Char(' ')));
    }
    /// Throws when the value is of another type. @param description of the right one.
    void expect(QJsonValue::Type type, const char* description) const;
    bool has(const QString& name) const;
    /// @return a member of the object; a missing one is an error.
    JsonPlace member(const QString& name) const;
    JsonPlace member(const char* name) const { return member(QLatin1String(name)); }
    QStringList memberNames() const;
    QVector<JsonPlace> items() const;

    QString text() const;
    /// @return a text that can be a path: a NUL would end it for the system, and nothing else.
    QString filePath() const;
    int integer() const;
    bool boolean() const;
    QStringList texts() const;
    QMap<QString, QString> textMap() const { return mapOf(&JsonPlace::text); }
    QMap<QString, QStringList> textLists() const { return mapOf(&JsonPlace::texts); }
    QMap<QString, QMap<QString, QString>> textMaps() const { return mapOf(&JsonPlace::textMap); }

  private:
    JsonPlace(const JsonFile& file, const QJsonValue& value, const QString& path);
    /// @return the object's members, each as `read` reads it.
    template <typename Value>
    QMap<QString, Value> mapOf(Value (JsonPlace::*read)() const) const {
        QMap<QString, Value> map;
        for (const QString& name : memberNames()) map.insert(name, (member(name).*read)());
        return map;
    }

    const JsonFile* file;
    QJsonValue value;
    QString path;
};

}  // namespace workbench
