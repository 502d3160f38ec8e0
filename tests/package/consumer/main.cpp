// A program of somebody else's: shows the dialog until it is painted, closes it, and ends.
#include <TemplateProListItem.h>
#include <importExcelSelFile.h>
#include <xzGcLxDialog.h>

#include <QApplication>
#include <QPixmap>
#include <QTimer>

#include "SharedInterface.h"  // of the host, whose operations a program calls as well

class Host : public QObject {
  public:
    void createProject(int, int, const QVariant&) {}
};

#include "readme.h"  // showNewProject, as README.md has it

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    bool painted = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (dialog == nullptr || !dialog->isVisible()) return;
        painted = qobject_cast<NewProCfgDialog*>(dialog) != nullptr && !dialog->grab().isNull();
        dialog->close();
    });
    timer.start(1);
    Host host;
    showNewProject(nullptr, &host, {SharedInterface::GetAppPath()});
    return painted ? 0 : 1;
}
