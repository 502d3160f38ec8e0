#include <QJsonArray>
#include <QPointer>

#include "workbench/hostlibs/common/Host.h"
#include "workbench/hostlibs/zControl/MessageBox.h"
#include "workbench/journal/Journal.h"

namespace {

int showBox(const char* name, const QString& title, const QString& text, const QStringList& buttons,
            const char* picture, QWidget* parent) {
    workbench::Journal& journal = workbench::Journal::instance();
    journal.throwIfAsked(name, {title, text, QJsonArray::fromStringList(buttons)});
    journal.box(QLatin1String(name), title, text, buttons);
    if (workbench::Host::instance().switches().boxesAnswerThemselves) return 0;

    // The parent may go while the box is open and takes the box with it.
    const QPointer<workbench::MessageBox> box =
        new workbench::MessageBox(title, text, buttons, picture, parent);
    box->exec();
    if (!box) return -1;
    const int chosen = box->chosen();
    delete box;
    return chosen;
}

}  // namespace

int showInformation(const QString& title, QWidget* parent, const QString& text,
                    const QStringList& buttons) {
    return showBox("showInformation", title, text, buttons, "info", parent);
}

int showCritical(const QString& title, QWidget* parent, const QString& text,
                 const QStringList& buttons) {
    return showBox("showCritical", title, text, buttons, "critical", parent);
}

int showInforByOneBtn(const QString& text, QWidget* parent, int icon) {
    return showBox("showInforByOneBtn", QStringLiteral("提示"), text, {QStringLiteral("确定")},
                   icon == 1 ? "info" : "critical", parent);
}
