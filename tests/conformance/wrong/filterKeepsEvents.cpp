// events of others pass through
#include <zControl.h>

bool RoundedDialog::eventFilter(QObject*, QEvent*) {
    return true;
}
