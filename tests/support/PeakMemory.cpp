#include "tests/support/PeakMemory.h"

#include <QByteArray>
#include <QFile>

namespace testing_support {

namespace {

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

}  // namespace

PeakMemory::PeakMemory() {
    // Brings the peak down to what is in use. Where it stays, only what exceeds it is seen.
    QFile references(QStringLiteral("/proc/self/clear_refs"));
    if (references.open(QIODevice::WriteOnly)) references.write("5");
    references.close();
    before = peak();
}

qint64 PeakMemory::growth() const {
    return peak() - before;
}

}  // namespace testing_support
