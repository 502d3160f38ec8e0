// A program that shows the dialog and tells what it was asked for.
#include <NewProCfgDialog.h>

#include <QApplication>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    NewProCfgDialog dialog(0, true, nullptr);
    dialog.SetLsjl(QStringList());
    QObject::connect(&dialog, &NewProCfgDialog::SignalCreatePro, &application,
                     [](int programType, int code, const QVariant& project) {
                         const QString model =
                             project.toMap().value(QStringLiteral("m_strProjectType")).toString();
                         qInfo("project %d %d %s", programType, code, qPrintable(model));
                     });
    QObject::connect(&dialog, &NewProCfgDialog::SignalCreateMB, &application,
                     [](int programType, int code, const QString& path) {
                         qInfo("template %d %d %s", programType, code, qPrintable(path));
                     });
    return dialog.exec() == QDialog::Accepted ? 0 : 1;
}
