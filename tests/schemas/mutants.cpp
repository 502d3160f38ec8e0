#include "tests/schemas/mutants.h"

#include <QJsonArray>
#include <QJsonObject>

namespace schemas {

namespace {

using See = std::function<void(const QJsonValue&, const QString&)>;

const QString added = QStringLiteral("added");

QVector<QJsonValue> otherTypes(const QJsonValue& value) {
    QVector<QJsonValue> others = {QJsonValue(),          QJsonValue(true),
                                  QJsonValue(1.5),       QJsonValue(-7),
                                  QJsonValue(QString()), QJsonValue(QStringLiteral("End")),
                                  QJsonArray(),          QJsonObject()};
    others.removeAll(value);
    return others;
}

void change(const QJsonValue& value, const QString& at, const See& see);

void changeMembers(const QJsonObject& object, const QString& at, const See& see) {
    for (const QString& key : object.keys()) {
        const QString place = at + QLatin1Char('/') + key;
        QJsonObject without = object;
        const QJsonValue member = without.take(key);
        see(without, place + QStringLiteral(" dropped"));
        QJsonObject renamed = without;
        renamed.insert(key + QStringLiteral("x"), member);
        see(renamed, place + QStringLiteral(" renamed"));
        change(member, place, [&](const QJsonValue& changed, const QString& what) {
            QJsonObject whole = object;
            whole.insert(key, changed);
            see(whole, what);
        });
    }
    QJsonObject more = object;
    more.insert(added, 1);
    see(more, at + QStringLiteral(" more"));
}

void changeItems(const QJsonArray& array, const QString& at, const See& see) {
    for (int i = 0; i < array.size(); ++i) {
        change(array[i], at + QLatin1Char('/') + QString::number(i),
               [&](const QJsonValue& changed, const QString& what) {
                   QJsonArray whole = array;
                   whole.replace(i, changed);
                   see(whole, what);
               });
    }
    QJsonArray more = array;
    more.append(QJsonValue());
    see(more, at + QStringLiteral(" more"));
}

void change(const QJsonValue& value, const QString& at, const See& see) {
    for (const QJsonValue& other : otherTypes(value))
        see(other, at + QStringLiteral(" retyped %1").arg(other.type()));
    if (value.isObject()) changeMembers(value.toObject(), at, see);
    if (value.isArray()) changeItems(value.toArray(), at, see);
}

}  // namespace

void eachMutant(const QJsonValue& value, const See& see) {
    change(value, QString(), see);
}

}  // namespace schemas
