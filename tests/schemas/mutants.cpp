#include "tests/schemas/mutants.h"

#include <QJsonArray>

#include "workbench/journal/toJson.h"

namespace schemas {

namespace {

using See = std::function<void(const QJsonValue&, const QString&)>;

const QString unknownKey = QStringLiteral("added");

class Mutation {
  public:
    explicit Mutation(const Vocabulary& words) : words(words) {}

    void change(const QJsonValue& value, const QString& at, const See& see) const {
        for (const QJsonValue& other : words.values) {
            if (other != value)
                see(other,
                    at + QLatin1String(" = ") + QString::fromUtf8(workbench::compact(other)));
        }
        if (value.isObject()) changeMembers(value.toObject(), at, see);
        if (value.isArray()) changeItems(value.toArray(), at, see);
    }

  private:
    void changeMembers(const QJsonObject& object, const QString& at, const See& see) const {
        for (const QString& key : object.keys()) {
            const QString place = at + QLatin1Char('/') + key;
            QJsonObject without = object;
            const QJsonValue member = without.take(key);
            see(without, place + QLatin1String(" dropped"));
            for (const QString& name : newKeys(object)) {
                QJsonObject renamed = without;
                renamed.insert(name, member);
                see(renamed, place + QLatin1String(" renamed ") + name);
            }
            change(member, place, [&](const QJsonValue& changed, const QString& what) {
                QJsonObject whole = object;
                whole.insert(key, changed);
                see(whole, what);
            });
        }
        for (const QString& name : newKeys(object)) {
            QJsonObject more = object;
            more.insert(name, words.members.value(name));
            see(more, at + QLatin1String(" + ") + name);
        }
    }

    void changeItems(const QJsonArray& array, const QString& at, const See& see) const {
        for (int i = 0; i < array.size(); ++i) {
            QJsonArray fewer = array;
            fewer.removeAt(i);
            see(fewer, at + QLatin1Char('/') + QString::number(i) + QLatin1String(" dropped"));
            change(array[i], at + QLatin1Char('/') + QString::number(i),
                   [&](const QJsonValue& changed, const QString& what) {
                       QJsonArray whole = array;
                       whole.replace(i, changed);
                       see(whole, what);
                   });
        }
        QJsonArray more = array;
        more.append(QJsonValue());
        see(more, at + QLatin1String(" longer"));
    }

    QStringList newKeys(const QJsonObject& object) const {
        QStringList keys = words.members.keys();
        for (const QString& key : object.keys()) keys.removeAll(key);
        return keys;
    }

    const Vocabulary& words;
};

}  // namespace

Vocabulary anyWords() {
    return {{QJsonValue(), QJsonValue(true), QJsonValue(1.5), QJsonValue(-7), QJsonValue(QString()),
             QJsonValue(QStringLiteral("End")), QJsonArray(), QJsonObject()},
            {{unknownKey, 1}}};
}

void eachMutant(const QJsonValue& value, const Vocabulary& words, const See& see) {
    Mutation(words).change(value, QString(), see);
}

}  // namespace schemas
