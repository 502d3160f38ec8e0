// a box with one button has 确定
#include <zControl.h>

#include <stdexcept>

int showInforByOneBtn(const QString&, QWidget*, int) {
    throw std::runtime_error("no such box");
}
