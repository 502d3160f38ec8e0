// the cloud service answers data or a refusal
#include <fileDialog.h>

QJsonObject zFileDialog::LoadQyypData() {
    return {{QStringLiteral("data"), QJsonObject()}};
}
