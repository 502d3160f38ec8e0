#include <QMouseEvent>
#include <QPainter>
#include <QWindow>

#include "workbench/base/qtNames.h"
#include "workbench/hostlibs/common/Skin.h"
#include "workbench/hostlibs/zBaseControl/Style.h"
#include "workbench/hostlibs/zControl/Outline.h"
#include "workbench/journal/Journal.h"
#include "zControl.h"

FramelessDialog::FramelessDialog(QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint) {}

FramelessDialog::~FramelessDialog() = default;

// Only presses that no child took arrive here: the empty areas are the handle of the window.
void FramelessDialog::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    grip = event->pos();
    if (windowHandle()) windowHandle()->startSystemMove();
}

// For window systems that cannot move a window on request.
void FramelessDialog::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & Qt::LeftButton) move(workbench::placeOnScreen(*event) - grip);
}

RoundedDialog::RoundedDialog(QWidget* parent) : FramelessDialog(parent) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    new workbench::Outline(this);
}

bool RoundedDialog::eventFilter(QObject* watched, QEvent* event) {
    return FramelessDialog::eventFilter(watched, event);
}

void RoundedDialog::paintEvent(QPaintEvent*) {
    QPainter(this).fillRect(rect(), workbench::colour(workbench::Tint::Surface));
}

void RoundedDialog::resizeEvent(QResizeEvent* event) {
    FramelessDialog::resizeEvent(event);
    workbench::roundCorners(this, workbench::kDialogRadius);
}

KVBaseDialog::KVBaseDialog(QWidget* parent) : RoundedDialog(parent) {
    setModal(true);
}

// Deleted while it runs, as with its parent, it is done all the same.
KVBaseDialog::~KVBaseDialog() {
    if (running) workbench::Journal::instance().dialogDone(QLatin1String(running), Rejected);
}

void KVBaseDialog::showEvent(QShowEvent* event) {
    if (!running) {
        running = metaObject()->className();
        workbench::Journal::instance().dialogOpened(QLatin1String(running));
    }
    RoundedDialog::showEvent(event);
}

void KVBaseDialog::done(int result) {
    workbench::Journal::instance().dialogDone(QLatin1String(metaObject()->className()), result);
    running = nullptr;
    RoundedDialog::done(result);
}
