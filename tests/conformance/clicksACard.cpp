// Stands beside the skeleton's main.cpp: clicks "新建" on the first card, once the dialog is up.
#include <QAbstractButton>
#include <QApplication>
#include <QListWidget>
#include <QTest>
#include <QTimer>

static void click() {
    const QWidget* dialog = QApplication::activeModalWidget();
    if (!dialog) qFatal("The skeleton shows no dialog.");
    for (const auto* list : dialog->findChildren<QListWidget*>()) {
        if (!list->isVisible() || list->count() == 0) continue;
        for (auto* button : list->itemWidget(list->item(0))->findChildren<QAbstractButton*>())
            if (button->text() == QStringLiteral("新建"))
                return QTest::mouseClick(button, Qt::LeftButton);
    }
    qFatal("The skeleton's dialog has no card.");
}

static void wait() {
    QTimer::singleShot(0, qApp, click);
}
Q_COREAPP_STARTUP_FUNCTION(wait)
