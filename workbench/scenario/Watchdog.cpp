#include "workbench/scenario/Watchdog.h"

#include <cstdio>
#include <cstdlib>

namespace workbench {

Watchdog::Watchdog(std::chrono::milliseconds patience)
    : patience(patience), thread([this] { watch(); }) {}

Watchdog::~Watchdog() {
    {
        const std::lock_guard<std::mutex> lock(mutex);
        over = true;
    }
    sign.notify_one();
    thread.join();
}

void Watchdog::feed(const QString& nowDoing) {
    {
        const std::lock_guard<std::mutex> lock(mutex);
        doing = nowDoing.toStdString();
        fed = true;
    }
    sign.notify_one();
}

void Watchdog::watch() {
    std::unique_lock<std::mutex> lock(mutex);
    while (!over) {
        fed = false;
        if (sign.wait_for(lock, patience, [this] { return fed || over; })) continue;
        std::fprintf(stderr, "%s: the user interface has stopped answering\n", doing.c_str());
        std::fflush(nullptr);
        std::_Exit(1);
    }
}

}  // namespace workbench
