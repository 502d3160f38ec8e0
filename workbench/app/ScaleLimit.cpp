#include "workbench/app/ScaleLimit.h"

#include <QEvent>
#include <QScreen>
#include <QWidget>
#include <QWindow>

#include "workbench/app/Surface.h"
#include "workbench/hostlibs/common/Host.h"

namespace workbench {

namespace {

const QSize dialogSize(880, 750);  // the new-project dialog, at 100 %
const double offered[] = {1, 1.25, 1.5, 2, 3};

QString percent(double scale) {
    return QStringLiteral("%1 %").arg(qRound(scale * 100));
}

bool holds(const QSize& available, double scale) {
    return dialogSize.width() * scale <= available.width() &&
           dialogSize.height() * scale <= available.height();
}

/// @return the largest scale offered at which the dialog fits; 100 % even where it does not.
double largestFor(const QSize& available) {
    double found = offered[0];
    for (const double scale : offered)
        if (holds(available, scale)) found = scale;
    return found;
}

}  // namespace

ScaleLimit::ScaleLimit(QWidget* window)
    : QObject(window),
      window(window),
      asked(Host::instance().scale()),
      room(window->screen()->availableSize()) {
    window->installEventFilter(this);
    connect(&Host::instance(), &Host::scaleChanged, this, [this] {
        if (applying) return;
        asked = Host::instance().scale();
        apply();
    });
    apply();
}

QString ScaleLimit::notice() const {
    if (!holds(room, offered[0])) return said("屏幕太小，100 % 也容不下对话框");
    const double largest = largestFor(room);
    if (asked <= largest) return {};
    return said("屏幕容不下 %1，缩放限为 %2").arg(percent(asked), percent(largest));
}

void ScaleLimit::fit(const QSize& available) {
    room = available;
    apply();
}

void ScaleLimit::apply() {
    applying = true;
    Host::instance().setScale(qMin(asked, largestFor(room)));
    applying = false;
    Q_EMIT changed();
}

/// The native window, which knows its screen, is there when the window is first shown.
bool ScaleLimit::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show && watched == window) {
        connect(window->windowHandle(), &QWindow::screenChanged, this, &ScaleLimit::followScreen,
                Qt::UniqueConnection);
        followScreen();
    }
    return QObject::eventFilter(watched, event);
}

void ScaleLimit::followScreen() {
    const QScreen* screen = window->screen();
    connect(screen, &QScreen::availableGeometryChanged, this, &ScaleLimit::followScreen,
            Qt::UniqueConnection);
    fit(screen->availableSize());
}

}  // namespace workbench
