/// What all promises are looked at with.
#pragma once

#include <QStringList>
#include <QTemporaryDir>
#include <functional>

#include "conformance.h"

namespace conformance {

/// Thrown by what looks at a promise; ends it.
struct Differs {
    QString what;
};
struct NotReached {
    QString why;
};

/// Ends the promise where `holds` is false. @param what what was found instead.
inline void expect(bool holds, const QString& what) {
    if (!holds) throw Differs{what};
}

/// @return whether an event loop runs while the action is done.
bool runsEventLoop(const std::function<void()>& action);

/// Does what a host answers without a window; ends the promise where an event loop runs meanwhile.
void quietly(const std::function<void()>& action);

/// @return what was reported to ProcExceptionNew since it was asked last: "function: text" each.
///         Stays empty where the host's own cannot be stood before; see docs/writing-a-host.md.
QStringList takeReports();

/// @return the path of a new file of the name in the folder: a text, whatever its name says.
QString textFile(const QTemporaryDir& folder, const QString& name);

/// A promise, and what looks at it.
struct Promise {
    QString text;
    std::function<void()> look;
};

// The three areas; the last has several parts.
QVector<Promise> services(const Files& files);
QVector<Promise> controls();
QVector<Promise> flows();
QVector<Promise> pageFlows(const Files& files);
QVector<Promise> fileFlows(const Files& files);
QVector<Promise> cloudFlows(const Files& files);

}  // namespace conformance
