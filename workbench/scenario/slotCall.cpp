#include "workbench/scenario/slotCall.h"

#include <QPointer>
#include <QVariant>

#include "SharedInterface.h"
#include "workbench/base/qtNames.h"
#include "workbench/hostlibs/common/Host.h"

namespace workbench {

namespace {

/// QMetaMethod::invoke takes as many.
const int mostArguments = 10;

bool findModel(const QString& name, QVariant& into) {
    for (const auto& modes : Host::instance().installation().models)
        for (const ProjectSettingSpace::ProTaxTemplateInfo& mode : modes)
            for (const TaxTemplateInfo& model : mode.models)
                if (model.name == name) {
                    into = QVariant::fromValue(model);
                    return true;
                }
    return false;
}

int typeOfParameter(QByteArray name) {
    if (name.endsWith('&')) name.chop(1);
    return typeIdOf(name);
}

bool convert(const QJsonValue& json, int type, QVariant& into) {
    if (type == qMetaTypeId<TaxTemplateInfo>()) return findModel(json.toString(), into);
    if (type == QMetaType::QJsonObject && json.isObject())
        into = json.toObject();
    else
        into = json.toVariant();
    return type == QMetaType::QVariant || type == QMetaType::QJsonValue ||
           into.userType() == type || convertTo(type, into);
}

QMetaMethod methodOf(const QObject* object, const QString& name, int argumentCount) {
    const QMetaObject* meta = object->metaObject();
    for (int i = meta->methodCount() - 1; i >= 0; --i) {
        const QMetaMethod method = meta->method(i);
        if (QLatin1String(method.name()) == name && method.parameterCount() == argumentCount)
            return method;
    }
    return {};
}

bool invoke(QObject* object, const QMetaMethod& method, QVector<QVariant>& values) {
    const QList<QByteArray> types = method.parameterTypes();
    QGenericArgument arguments[mostArguments];
    for (int i = 0; i < values.size(); ++i) {
        const bool asVariant = typeOfParameter(types[i]) == QMetaType::QVariant;
        const void* data = asVariant ? &values[i] : values[i].constData();
        arguments[i] = QGenericArgument(types[i].constData(), data);
    }
    return method.invoke(object, Qt::DirectConnection, arguments[0], arguments[1], arguments[2],
                         arguments[3], arguments[4], arguments[5], arguments[6], arguments[7],
                         arguments[8], arguments[9]);
}

}  // namespace

std::function<bool()> slotCall(QObject* object, const QString& slot, const QJsonArray& args,
                               QString& error) {
    const QMetaMethod method = methodOf(object, slot, args.size());
    if (!method.isValid() || args.size() > mostArguments) {
        error =
            QStringLiteral("there is no slot \"%1\" with %2 arguments").arg(slot).arg(args.size());
        return {};
    }
    const QList<QByteArray> types = method.parameterTypes();
    QVector<QVariant> values(args.size());
    for (int i = 0; i < args.size(); ++i) {
        if (convert(args[i], typeOfParameter(types[i]), values[i])) continue;
        error = QStringLiteral("argument %1 of %2 is no %3")
                    .arg(i + 1)
                    .arg(slot, QLatin1String(types[i]));
        return {};
    }
    const QPointer<QObject> target = object;
    return [target, method, values]() mutable { return target && invoke(target, method, values); };
}

}  // namespace workbench
