/// Ends the process when the user interface has stopped answering.
#pragma once

#include <QString>
#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <mutex>
#include <string>
#include <thread>

namespace workbench {

/// While it lives it expects `feed` again and again. An endless loop in the user interface's thread
/// cannot be left from inside; the watchdog prints the last words that it was fed, removes the
/// temporary folder and ends the process with 1.
class Watchdog {
  public:
    /// @param folder removed before the process is ended.
    Watchdog(std::chrono::milliseconds patience, const QString& folder);
    ~Watchdog();
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

    /// @param words what is printed if this was the last sign of life.
    void feed(const QString& words);

  private:
    void watch();

    const std::chrono::milliseconds patience;
    const std::filesystem::path folder;
    std::mutex mutex;
    std::condition_variable sign;
    std::string lastWords;
    bool fed = false;
    bool over = false;
    std::thread thread;
};

}  // namespace workbench
