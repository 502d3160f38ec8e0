#include "workbench/base/JsonReader.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtNumeric>
#include <algorithm>
#include <cmath>
#include <limits>

#include "workbench/base/fileSystem.h"

namespace workbench {

namespace {

// Between the steps of a key's path. A key may hold any character, escaped ones included.
const QLatin1Char stepMark('\x1f');
const QLatin1String stepMarkInKey("\\u001f");

QString itemKey(const QString& array, int index) {
    return array + stepMark + QLatin1Char('[') + QString::number(index) + QLatin1Char(']');
}

QString memberKey(const QString& object, QString name) {
    return object + stepMark + name.replace(stepMark, stepMarkInKey);
}

/// @return "Kvys[0].models[2].name" for the path of a value; "file" for the whole file.
QString readable(const QString& path) {
    QString text = path.mid(1);
    text.replace(QString(stepMark) + QLatin1Char('['), QLatin1String("["));
    text.replace(stepMark, QLatin1Char('.'));
    return text.isEmpty() ? QStringLiteral("file") : text;
}

bool isSpace(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool endsWord(char c) {
    return c == ',' || c == ']' || c == '}' || isSpace(c);
}

/// Finds the place of every value in a text that is known to be JSON.
class Places {
  public:
    Places(const JsonFile& file, QHash<QString, JsonFile::Span>& spans)
        : file(file), text(file.text()), spans(spans) {
        value(QString());
    }

  private:
    void skipSpace() {
        while (at < text.size() && isSpace(text.at(at))) ++at;
    }

    void value(const QString& key) {
        skipSpace();
        const int begin = at;
        if (text.at(at) == '{') {
            sequence('}', [&](int) { member(key); });
        } else if (text.at(at) == '[') {
            sequence(']', [&](int index) { value(itemKey(key, index)); });
        } else if (text.at(at) == '"') {
            string();
        } else {
            while (at < text.size() && !endsWord(text.at(at))) ++at;
        }
        if (spans.contains(key)) {
            file.fail(begin, readable(key), QStringLiteral("the key stands here twice"));
        }
        spans.insert(key, {begin, at});
    }

    template <typename Element>
    void sequence(char close, Element element) {
        ++at;
        skipSpace();
        for (int index = 0; text.at(at) != close; ++index) {
            element(index);
            skipSpace();
            if (text.at(at) == ',') ++at;
            skipSpace();
        }
        ++at;
    }

    void member(const QString& object) {
        skipSpace();
        const QString name = string();
        skipSpace();
        ++at;  // the colon
        value(memberKey(object, name));
    }

    QString string() {
        const int begin = at++;
        while (text.at(at) != '"') at += text.at(at) == '\\' ? 2 : 1;
        ++at;
        const QByteArray quoted = text.mid(begin, at - begin);
        // With its length, since a NUL would end it.
        if (!quoted.contains('\\')) {
            return QString::fromUtf8(quoted.constData() + 1, quoted.size() - 2);
        }
        return QJsonDocument::fromJson('[' + quoted + ']').array().at(0).toString();
    }

    const JsonFile& file;
    const QByteArray& text;
    QHash<QString, JsonFile::Span>& spans;
    int at = 0;
};

/// @return offset of the first line that is not valid UTF-8; -1 if all are.
int badlyEncoded(const QByteArray& text) {
    // What is not UTF-8 becomes a replacement character, which is written as other bytes.
    const QByteArray again = QString::fromUtf8(text.constData(), text.size()).toUtf8();
    if (again == text) return -1;
    const auto bad = std::mismatch(text.begin(), text.end(), again.begin(), again.end()).first;
    return text.left(int(bad - text.begin())).lastIndexOf('\n') + 1;
}

}  // namespace

JsonFile::JsonFile(const QString& path) : path(path) {
    QFile file(path);
    if (!openPatiently(file, QIODevice::ReadOnly)) {
        fail(0, QStringLiteral("file"), QStringLiteral("cannot be read: ") + file.errorString());
    }
    bytes = file.readAll();
    const char mark[] = "\xEF\xBB\xBF";
    if (bytes.startsWith(mark)) bytes.remove(0, 3);
    // Qt would skip it without a word, and the places of all values would be lost.
    if (bytes.startsWith(mark)) {
        fail(0, QStringLiteral("encoding"), QStringLiteral("a second byte order mark"));
    }
    const int bad = badlyEncoded(bytes);
    if (bad >= 0) fail(bad, QStringLiteral("encoding"), QStringLiteral("this line is not UTF-8"));

    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
    if (error.error != QJsonParseError::NoError) {
        fail(error.offset, QStringLiteral("syntax"), error.errorString());
    }
    content = document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
    Places(*this, spans);
}

void JsonFile::fail(int offset, const QString& key, const QString& message) const {
    const int line = bytes.left(offset).count('\n') + 1;
    throw JsonError{QDir::toNativeSeparators(path) + QLatin1Char(':') + QString::number(line) +
                    QLatin1String(": ") + key + QLatin1String(": ") + message};
}

JsonPlace::JsonPlace(const JsonFile& file, const QJsonValue& value, const QString& path)
    : file(&file), value(value), path(path) {}

void JsonPlace::fail(const QString& message) const {
    file->fail(file->span(path).begin, readable(path), message);
}

void JsonPlace::expect(QJsonValue::Type type, const char* description) const {
    if (value.type() != type) fail(QLatin1String("must be ") + QLatin1String(description));
}

void JsonPlace::allowOnly(const QStringList& keys) const {
    for (const QString& name : memberNames()) {
        if (!keys.contains(name)) member(name).fail(QStringLiteral("this key is not known"));
    }
}

bool JsonPlace::has(const QString& name) const {
    expect(QJsonValue::Object, "an object");
    return value.toObject().contains(name);
}

JsonPlace JsonPlace::member(const QString& name) const {
    expect(QJsonValue::Object, "an object");
    const JsonPlace found(*file, value.toObject().value(name), memberKey(path, name));
    if (found.value.isUndefined()) {
        file->fail(file->span(path).begin, readable(found.path),
                   QStringLiteral("the key is missing"));
    }
    return found;
}

QStringList JsonPlace::memberNames() const {
    expect(QJsonValue::Object, "an object");
    return value.toObject().keys();
}

QVector<JsonPlace> JsonPlace::items() const {
    expect(QJsonValue::Array, "a list");
    const QJsonArray array = value.toArray();
    QVector<JsonPlace> places;
    for (int i = 0; i < array.size(); ++i) {
        places.append(JsonPlace(*file, array.at(i), itemKey(path, i)));
    }
    return places;
}

QString JsonPlace::text() const {
    expect(QJsonValue::String, "a text");
    return value.toString();
}

QString JsonPlace::filePath() const {
    const QString name = text();
    if (name.contains(QChar(0))) fail(QStringLiteral("must not hold a NUL character"));
    return name;
}

int JsonPlace::integer() const {
    const double number = value.toDouble(qQNaN());
    if (number != std::floor(number)) fail(QStringLiteral("must be a whole number"));
    using Limits = std::numeric_limits<int>;
    if (number < Limits::min() || number > Limits::max()) {
        fail(QStringLiteral("must be from %1 to %2").arg(Limits::min()).arg(Limits::max()));
    }
    return int(number);
}

bool JsonPlace::boolean() const {
    expect(QJsonValue::Bool, "true or false");
    return value.toBool();
}

QStringList JsonPlace::texts() const {
    QStringList list;
    for (const JsonPlace& item : items()) list.append(item.text());
    return list;
}

}  // namespace workbench
