/// Ends the process when the user interface has stopped answering.
#pragma once

#include <QString>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace workbench {

/// While it lives it expects `feed` again and again. An endless loop in the user interface's thread
/// cannot be left from inside; the watchdog prints where it happened and ends the process with 1.
class Watchdog {
  public:
    explicit Watchdog(std::chrono::milliseconds patience);
    ~Watchdog();
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

    /// @param doing what is printed if this was the last sign of life.
    void feed(const QString& doing);

  private:
    void watch();

    const std::chrono::milliseconds patience;
    std::mutex mutex;
    std::condition_variable sign;
    std::string doing;
    bool fed = false;
    bool over = false;
    std::thread thread;
};

}  // namespace workbench
