// the file dialog forgets its last cloud choice
#include <fileDialog.h>

#include <QCoreApplication>

void zFileDialog::TbServerMsg(const QString& path) {
    if (!path.isEmpty()) QCoreApplication::processEvents();
}
