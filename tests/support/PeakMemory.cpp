#include "tests/support/PeakMemory.h"

#if defined(__SANITIZE_ADDRESS__)

#include <atomic>

// Of the sanitizer's own interface; the compiler comes without its header.
extern "C" {
int __sanitizer_install_malloc_and_free_hooks(void (*allocated)(const volatile void*, size_t),
                                              void (*freed)(const volatile void*));
size_t __sanitizer_get_allocated_size(const volatile void*);
}

namespace testing_support {

namespace {

// A sanitizer keeps what is given back for a while, so that the process tells of its past: the
// pieces that are in use are counted instead.
std::atomic<qint64> inUse{0};
std::atomic<qint64> most{0};

void allocated(const volatile void*, size_t bytes) {
    const qint64 now = inUse += qint64(bytes);
    qint64 known = most;
    while (now > known && !most.compare_exchange_weak(known, now)) continue;
}

void freed(const volatile void* piece) {
    if (piece) inUse -= qint64(__sanitizer_get_allocated_size(piece));
}

qint64 peak() {
    return most;
}

}  // namespace

PeakMemory::PeakMemory() {
    static const int hooks = __sanitizer_install_malloc_and_free_hooks(allocated, freed);
    Q_UNUSED(hooks)
    most = qint64(inUse);
    before = peak();
}

#else

#include <QByteArray>
#include <QFile>

#ifdef Q_OS_WIN
#include <windows.h>
// After it.
#include <psapi.h>
#endif

namespace testing_support {

namespace {

#ifdef Q_OS_WIN

// What has been given back stays in it: only what exceeds it is seen.
qint64 peak() {
    PROCESS_MEMORY_COUNTERS counters{};
    GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
    return qint64(counters.PeakWorkingSetSize);
}

#else

qint64 peak() {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) return 0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:")) {
            return line.mid(6).trimmed().split(' ').at(0).toLongLong() * 1024;
        }
    }
    return 0;
}

#endif

}  // namespace

PeakMemory::PeakMemory() {
    // Brings the peak down to what is in use. Where it stays, only what exceeds it is seen.
    QFile references(QStringLiteral("/proc/self/clear_refs"));
    if (references.open(QIODevice::WriteOnly)) references.write("5");
    references.close();
    before = peak();
}

#endif

qint64 PeakMemory::growth() const {
    return peak() - before;
}

}  // namespace testing_support
