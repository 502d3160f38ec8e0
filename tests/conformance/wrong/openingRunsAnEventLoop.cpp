// the dialog opens, is painted and closes
#include <zBaseControl.h>

#include <QCoreApplication>

void InterfaceAdaptation::openMaxDialogMode(int, int) {
    QCoreApplication::processEvents();
}
