/// A screen reader: a process of its own that asks AT-SPI what there is.
#pragma once

#include <QProcess>
#include <QRect>
#include <QSet>
#include <QString>
#include <QVector>

namespace reader_tests {

/// One thing as AT-SPI tells it, in its words.
struct Told {
    int depth;  ///< 0: a window.
    QString role, name, description, text;
    QSet<QString> states;
    QRect place;  ///< On the screen.
};

/// Lets a reader walk through the windows of this process, which answers it meanwhile.
/// @return everything, from the windows down, hidden things included; the test fails where the
///         reader does, or says nothing for a minute.
QVector<Told> whatIsTold();

/// A reader that follows the focus in the windows of this process.
class Listener {
  public:
    Listener();  ///< Returns when it listens.
    ~Listener();
    Listener(const Listener&) = delete;

    /// @return the name of what the focus went to next. This process answers meanwhile; the test
    ///         fails where nothing comes for a minute.
    QString next();

  private:
    QProcess reader;
};

}  // namespace reader_tests
