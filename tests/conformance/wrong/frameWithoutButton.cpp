// a dialog can be closed by hand
#include <zControl.h>

zBaseModal::zBaseModal(QWidget* parent) : KVBaseDialog(parent) {
    setWindowFlag(Qt::FramelessWindowHint);
}
