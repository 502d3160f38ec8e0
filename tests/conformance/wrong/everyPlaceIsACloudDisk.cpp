// browsing shows the file that was chosen
#include <fileDialog.h>

#include <QFileDialog>

QString zFileDialog::getOpenFileName(QWidget* parent, QString folder, QStringList*, int, QString,
                                     bool, QString, bool, OpenFileType type) {
    iClickedBtn = 3;
    return type == OpenFolder ? QFileDialog::getExistingDirectory(parent)
                              : QFileDialog::getOpenFileName(parent, {}, folder);
}
