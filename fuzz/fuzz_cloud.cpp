/// Any JSON as the answer of a cloud disk.
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <cstddef>
#include <cstdint>

#include "files/cloudDisk.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, size_t size) {
    const QByteArray text(reinterpret_cast<const char*>(bytes), int(size));
    const QJsonObject answer = QJsonDocument::fromJson(text).object();
    const QStringList names = {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c.GCFX")};
    newpro::findInCloud(newpro::personalTopLevel(answer), names, [](const QJsonObject& folder) {
        return std::optional<QJsonArray>(folder.value(QStringLiteral("xjdata")).toArray());
    });
    return 0;
}
