// boxes answer the button's number, -1 when closed
// an audit without a file is refused with a box
#include <zControl.h>

int showInformation(const QString&, QWidget*, const QString&, const QStringList&) {
    return 0;
}
int showCritical(const QString&, QWidget*, const QString&, const QStringList&) {
    return 0;
}
int showInforByOneBtn(const QString&, QWidget*, int) {
    return 0;
}
