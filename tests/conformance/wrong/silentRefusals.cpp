// an audit without a file is refused with a box
#include <zControl.h>

#include <QMessageBox>

int showInformation(const QString& title, QWidget* parent, const QString& text,
                    const QStringList& buttons) {
    if (buttons.size() < 2) return 0;
    QMessageBox box(QMessageBox::Information, title, text, QMessageBox::NoButton, parent);
    for (const QString& button : buttons) box.addButton(button, QMessageBox::AcceptRole);
    box.exec();
    return box.buttons().indexOf(box.clickedButton());
}
