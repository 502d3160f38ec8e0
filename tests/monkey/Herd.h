/// Many monkeys at once, each in a process of its own.
#pragma once

#include <QElapsedTimer>
#include <QEventLoop>
#include <QMap>
#include <QObject>
#include <QProcess>
#include <QStringList>
#include <memory>
#include <vector>

#include "tests/monkey/performance.h"

namespace monkey {

struct Errand {
    quint32 seed = 1;  ///< Of the first sequence; the others follow.
    int sequences = 300;
    int processes = 2;  ///< At the same time.
    Traps traps;
};

/// How a seed failed.
struct Failure {
    quint32 seed = 0;
    QString fault;  ///< "kind: details"
};

struct Tally {
    int sequences = 0;
    QMap<QString, int> counts;  ///< Steps done and skipped, dialogs, requests, exceptions
                                ///< reported and thrown at places.
};

/// @return the arguments that make this program a child, which plays sequences and tells of each.
QStringList childArguments(quint32 seed, int count, const Traps& traps);
/// @return the arguments for a child that plays a scenario file and ends with the number of faults.
QStringList judgeArguments(const QString& file, const Traps& traps);

/// What a process that played one file came to: its first fault, empty if there was none.
QString faultOf(const QString& file, const Traps& traps);

/// A crash or a hang ends one process only: its sequence has failed, and another process goes on
/// behind it.
class Herd : public QObject {
    Q_OBJECT
  public:
    explicit Herd(const Errand& errand);
    ~Herd() override;

    /// Returns when every sequence was played.
    void run();
    const QVector<Failure>& failures() const { return failed; }
    const Tally& tally() const { return counted; }

  private:
    struct Child;
    void sendOut();
    void listen(Child& child);
    void hear(Child& child, const QString& line);
    void bury(Child& child);
    void lookForHangs();

    const Errand errand;
    std::vector<std::unique_ptr<Child>> children;
    QVector<QPair<quint32, int>> waiting;  ///< Seeds and how many from there.
    QVector<Failure> failed;
    Tally counted;
    QEventLoop loop;
};

}  // namespace monkey
