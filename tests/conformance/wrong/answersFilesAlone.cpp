// the Excel import takes a folder
#include <fileDialog.h>

#include <QFileDialog>

QString zFileDialog::getOpenFileName(QWidget* parent, QString folder, QStringList*, int, QString,
                                     bool, QString, bool, OpenFileType type) {
    const QString path = type == OpenFolder ? QFileDialog::getExistingDirectory(parent)
                                            : QFileDialog::getOpenFileName(parent, {}, folder);
    return QFileInfo(path).isFile() ? path : QString();
}
