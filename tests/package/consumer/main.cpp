// A program of somebody else's: shows the dialog until it is painted, closes it, and ends.
#include <NewProCfgDialog.h>
#include <TemplateProListItem.h>
#include <importExcelSelFile.h>
#include <xzGcLxDialog.h>

#include <QApplication>
#include <QPixmap>
#include <QTimer>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    NewProCfgDialog dialog(0, true, nullptr);
    dialog.SetIsFirstPageOpen(false);
    dialog.SetLsjl(QStringList());
    QObject::connect(&dialog, &NewProCfgDialog::SignalCreatePro, &application, [] {});
    QObject::connect(&dialog, &NewProCfgDialog::SignalCreateMB, &application, [] {});

    bool painted = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &dialog, [&] {
        if (!dialog.isVisible()) return;
        painted = !dialog.grab().isNull();
        dialog.reject();
    });
    timer.start(1);
    const int result = dialog.exec();
    return painted && result == QDialog::Rejected ? 0 : 1;
}
