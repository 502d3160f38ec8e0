// A cloud disk that has nothing: an empty object.
#include <fileDialog.h>

QJsonObject zFileDialog::LoadGrypData() {
    return {};
}
QJsonObject zFileDialog::LoadQyypData() {
    return {};
}
QJsonObject zFileDialog::LoadQyypMlData(const QString&, const QString&) {
    return {};
}
QJsonObject zFileDialog::IsExistDownLoadfile(const QString&, const QString&) {
    return {};
}
QJsonObject zFileDialog::downLoadYunpanFile(const QString&, const QString&, const QString&,
                                            const QString&) {
    return {};
}
