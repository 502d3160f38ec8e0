// the tender import can be cancelled
#include <fileDialog.h>

#include <QFileDialog>
#include <stdexcept>

QString zFileDialog::getOpenFileName(QWidget* parent, QString folder, QStringList* filter, int,
                                     QString, bool, QString, bool, OpenFileType type) {
    const QString path = type == OpenFolder ? QFileDialog::getExistingDirectory(parent)
                                            : QFileDialog::getOpenFileName(parent, {}, folder);
    if (path.isEmpty() && filter->contains(QStringLiteral("YFJZ")))
        throw std::runtime_error("no tender was chosen");
    return path;
}
