/// Any bytes as a strictly read JSON file: every value stands where the reader says.
#include <QJsonArray>
#include <QJsonDocument>

#include "fuzz/support.h"
#include "fuzz/targets.h"
#include "workbench/base/JsonReader.h"

namespace fuzzing {

using workbench::JsonError;
using workbench::JsonFile;
using workbench::JsonPlace;

namespace {

struct Reading {
    const JsonFile& file;
    QString path;
    QByteArray content;

    /// A reading answers, or throws an error with its place.
    template <typename Read>
    bool answers(Read read) const {
        try {
            read();
            return true;
        } catch (const JsonError& wrong) {
            requirePlaced(wrong.text, path, content);
            return false;
        }
    }

    void place(const JsonPlace& value) const {
        const JsonFile::Span span = value.span();
        const QByteArray text = file.text().mid(span.begin, span.end - span.begin);
        const QJsonValue raw = value.raw();
        readAsEverything(value);
        if (raw.isObject()) {
            require(text.startsWith('{') && text.endsWith('}'), "an object stands at its place");
            for (const QString& name : value.memberNames()) place(value.member(name));
        } else if (raw.isArray()) {
            require(text.startsWith('[') && text.endsWith(']'), "a list stands at its place");
            for (const JsonPlace& item : value.items()) place(item);
        } else {
            const QJsonArray again = QJsonDocument::fromJson('[' + text + ']').array();
            require(again.size() == 1 && again.at(0) == raw, "a value stands at its place");
        }
    }

    void readAsEverything(const JsonPlace& value) const {
        const QJsonValue raw = value.raw();
        int number = 0;
        if (answers([&] { number = value.integer(); })) {
            require(raw == QJsonValue(number), "a whole number is read as it is");
        }
        QString text;
        require(answers([&] { text = value.text(); }) == raw.isString() && text == raw.toString(),
                "a text is read as it is");
        require(answers([&] { value.boolean(); }) == raw.isBool(), "true and false are read");
        require(!answers([&] { value.member("no such key"); }), "a missing key is an error");
    }
};

}  // namespace

void fuzzJson(const QByteArray& input) {
    const QString path = write(QStringLiteral("any.json"), input);
    try {
        const JsonFile file(path);
        Reading{file, path, input}.place(JsonPlace(file));
    } catch (const JsonError& wrong) {
        requirePlaced(wrong.text, path, input);
    }
}

}  // namespace fuzzing
