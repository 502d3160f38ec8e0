// the dialog goes with its parent
#include <zBaseControl.h>

#include <QCoreApplication>

void InterfaceAdaptation::closeMaxDialogMode() {
    QCoreApplication::processEvents();
}
