/// What all promises are looked at with.
#pragma once

#include <QStringList>
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

/// A promise, and what looks at it.
struct Promise {
    QString text;
    std::function<void()> look;
};

// The three areas.
QVector<Promise> services(const Files& files);
QVector<Promise> controls();
QVector<Promise> flows(const Files& files);

}  // namespace conformance
