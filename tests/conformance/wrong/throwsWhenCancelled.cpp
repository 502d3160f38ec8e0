// browsing can be cancelled
// the tender import can be cancelled
#include <fileDialog.h>

#include <QFileDialog>
#include <stdexcept>

QString zFileDialog::getOpenFileName(QWidget* parent, QString, QStringList*, int, QString, bool,
                                     QString, bool, OpenFileType) {
    const QString path = QFileDialog::getOpenFileName(parent);
    if (path.isEmpty()) throw std::runtime_error("nothing was chosen");
    return path;
}
