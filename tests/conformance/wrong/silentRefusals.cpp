// an audit without a file is refused with a box
#include <zControl.h>

#include <QMessageBox>

static int show(const QString& text, QWidget* parent, const QStringList& buttons) {
    QMessageBox box(QMessageBox::Information, QString(), text, QMessageBox::NoButton, parent);
    for (const QString& button : buttons) box.addButton(button, QMessageBox::AcceptRole);
    box.exec();
    return box.buttons().indexOf(box.clickedButton());
}

int showInformation(const QString&, QWidget* parent, const QString& text,
                    const QStringList& buttons) {
    return buttons.size() < 2 ? 0 : show(text, parent, buttons);
}
int showInforByOneBtn(const QString& text, QWidget* parent, int) {
    return show(text, parent, {QStringLiteral("确定")});
}
