#include "workbench/scenario/Stage.h"

#include "workbench/scenario/hostDialog.h"
#include "workbench/scenario/targets.h"

namespace workbench {

void Stage::openDialog(const QString& entry) {
    delete dialog;
    dialog = makeHostDialog(setup, *store, mainWindow);
    dialog->setProperty(startEntryProperty, entry);
    if (opened) opened(dialog);
    showHostDialog(dialog);
    startWithEntry(dialog, entry);
}

void Stage::openChooser() {
    const auto kind = askForKind(mainWindow);
    if (!kind) return;
    openDialog(*kind);
}

QWidget* Stage::window() const {
    if (QWidget* top = topWindow()) return top;
    return dialog && dialog->isVisible() ? dialog.data() : nullptr;
}

QString Stage::obstacle() const {
    QWidget* top = topWindow();
    if (top && top != dialog)
        return QStringLiteral("an unexpected window is open: %1").arg(described(top));
    if (!dialog) return QStringLiteral("no dialog is open");
    if (!dialog->isVisible()) return QStringLiteral("the dialog is closed");
    return {};
}

QString described(const QWidget* window) {
    return QStringLiteral("%1 \"%2\"")
        .arg(QLatin1String(window->metaObject()->className()), window->windowTitle());
}

}  // namespace workbench
