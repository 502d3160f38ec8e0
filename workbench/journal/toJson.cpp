#include "workbench/journal/toJson.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QObject>

namespace workbench {

namespace {

template <typename Map>
QJsonObject objectOf(const Map& map) {
    QJsonObject object;
    for (auto it = map.begin(); it != map.end(); ++it) object.insert(it.key(), toJson(it.value()));
    return object;
}

QJsonArray arrayOf(const QVariantList& list) {
    QJsonArray array;
    for (const QVariant& value : list) array.append(toJson(value));
    return array;
}

}  // namespace

QJsonValue toJson(const QVariant& value) {
    switch (static_cast<QMetaType::Type>(value.userType())) {
        case QMetaType::UnknownType:
        case QMetaType::Nullptr:
            return QJsonValue::Null;
        case QMetaType::QVariantMap:
            return objectOf(value.toMap());
        case QMetaType::QVariantHash:
            return objectOf(value.toHash());
        case QMetaType::QVariantList:
            return arrayOf(value.toList());
        case QMetaType::QStringList:
            return QJsonArray::fromStringList(value.toStringList());
        default:
            break;
    }
    const QJsonValue json = QJsonValue::fromVariant(value);
    if (!json.isNull() || value.userType() == QMetaType::QJsonValue) return json;
    return QLatin1String("<") + QLatin1String(value.typeName()) + QLatin1Char('>');
}

QByteArray compact(const QJsonValue& value) {
    const QByteArray inArray = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return inArray.mid(1, inArray.size() - 2);
}

QJsonValue toJson(const QObject* object) {
    if (!object) return QJsonValue::Null;
    return QLatin1String(object->metaObject()->className());
}

}  // namespace workbench
