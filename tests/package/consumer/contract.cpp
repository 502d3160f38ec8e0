// The header of message codes and keys, first and alone, as a receiver with strict strings uses it.
#include <hostContract.h>

#include <QJsonObject>
#include <QVariant>

static_assert(newpro::CreateFromTemplate == 44 && newpro::messageKey::client.size() == 10,
              "constants at compile time");

QString sourceOf(int code, const QJsonObject& message, const QVariantMap& map) {
    switch (code) {
        case newpro::CreateFromModel:
            return map.value(newpro::projectKey::projectType).toString();
        case newpro::CreateFromFile:
            return message.value(newpro::messageKey::projectFile).toString();
        case newpro::ContractingFromFile:
            return message.value(newpro::messageKey::contractingFile).toString();
        default:
            return code == newpro::NoMessageCode ? QString() : newpro::wholeProjectFee;
    }
}
