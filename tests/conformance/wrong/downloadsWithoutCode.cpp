// the cloud service answers data or a refusal
#include <fileDialog.h>

QJsonObject zFileDialog::downLoadYunpanFile(const QString& name, const QString&, const QString&,
                                            const QString&) {
    return {{QStringLiteral("data"), QStringLiteral("/downloads/") + name}};
}
