/// Measures how long a window takes to open: from a key press to the window being mapped, and to
/// the last change of its picture.
///
///     openingTime KEYSYM QUIET_MS [CLOSE_KEYSYM]
///
/// Sends Ctrl+KEYSYM through XTEST to the focused window, waits until a new top-level window is
/// mapped and none of its pixels has changed for QUIET_MS, prints both times in milliseconds, and
/// closes the window with CLOSE_KEYSYM (default Escape). XDamage reports each change, so nothing is
/// polled. Changes by the text cursor's blinking would count: keep QUIET_MS below the blink time.
#include <X11/Xlib.h>
#include <X11/extensions/XTest.h>
#include <X11/extensions/Xdamage.h>
#include <X11/keysym.h>
#include <poll.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

using Clock = std::chrono::steady_clock;

double millisecondsSince(Clock::time_point start) {
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

void press(Display* display, KeySym key, bool withControl) {
    const KeyCode control = XKeysymToKeycode(display, XK_Control_L);
    const KeyCode code = XKeysymToKeycode(display, key);
    if (withControl) XTestFakeKeyEvent(display, control, True, 0);
    XTestFakeKeyEvent(display, code, True, 0);
    XTestFakeKeyEvent(display, code, False, 0);
    if (withControl) XTestFakeKeyEvent(display, control, False, 0);
    XFlush(display);
}

struct Opening {
    double mapped = -1, lastChange = -1;
    XRectangle place{};
};

XRectangle placeOf(Display* display, Window window) {
    Window root;
    int x = 0, y = 0;
    unsigned width = 0, height = 0, border = 0, depth = 0;
    XGetGeometry(display, window, &root, &x, &y, &width, &height, &border, &depth);
    return {short(x), short(y), static_cast<unsigned short>(width),
            static_cast<unsigned short>(height)};
}

bool inside(const XRectangle& a, const XRectangle& b) {
    return a.x >= b.x && a.x + a.width <= b.x + b.width && a.y >= b.y &&
           a.y + a.height <= b.y + b.height;
}

Opening watch(Display* display, int damageEvent, Clock::time_point start, int quiet) {
    constexpr double giveUp = 5000;
    Opening opening;
    while (millisecondsSince(start) < giveUp) {
        while (XPending(display)) {
            XEvent event;
            XNextEvent(display, &event);
            const double now = millisecondsSince(start);
            if (event.type == MapNotify) {
                opening.mapped = now;
                opening.place = placeOf(display, event.xmap.window);
            }
            if (event.type == damageEvent) {
                const auto& area = reinterpret_cast<XDamageNotifyEvent&>(event).area;
                if (inside(area, opening.place)) opening.lastChange = now;
            }
        }
        const double last = opening.lastChange > 0 ? opening.lastChange : 0;
        if (opening.mapped >= 0 && millisecondsSince(start) - last > quiet) break;
        pollfd waiting{ConnectionNumber(display), POLLIN, 0};
        poll(&waiting, 1, 1 + quiet / 10);
    }
    return opening;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: %s KEYSYM QUIET_MS [CLOSE_KEYSYM]\n", argv[0]);
        return 2;
    }
    Display* display = XOpenDisplay(nullptr);
    int firstEvent = 0, firstError = 0;
    if (!display || !XDamageQueryExtension(display, &firstEvent, &firstError)) {
        std::fprintf(stderr, "no X display with the DAMAGE extension\n");
        return 2;
    }
    const Window root = DefaultRootWindow(display);
    XSelectInput(display, root, SubstructureNotifyMask);
    XDamageCreate(display, root, XDamageReportRawRectangles);
    XSync(display, True);

    const auto start = Clock::now();
    press(display, XStringToKeysym(argv[1]), true);
    const Opening opening = watch(display, firstEvent + XDamageNotify, start, std::atoi(argv[2]));
    press(display, argc > 3 ? XStringToKeysym(argv[3]) : XK_Escape, false);
    XCloseDisplay(display);
    if (opening.mapped < 0) {
        std::fprintf(stderr, "no window came\n");
        return 1;
    }
    std::printf("%.1f %.1f\n", opening.mapped, opening.lastChange);
    return 0;
}
