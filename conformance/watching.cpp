/// A host is looked at in a process of its own, so that nothing that it does ends the table.
#include <QCoreApplication>
#include <QEventLoop>
#include <QProcess>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <utility>

#include "conformance.h"

namespace conformance {

namespace {

/// Stands before what a process tells of a row, in a line between those of the table and of the
/// host: the row's place and its verdict.
constexpr char mark = '\x1e';
constexpr int begun = -1;  ///< In the place of a verdict.

void tell(int place, int verdict) {
    std::printf("%c%d %d\n", mark, place, verdict);
    std::fflush(stdout);
}

void print(const QString& line) {
    std::puts(qUtf8Printable(line));
    std::fflush(stdout);
}

/// One process that looks at promises.
class Look : public QObject {
  public:
    /// @param patience seconds between two lines about rows.
    Look(QVector<Row>& rows, int patience) : rows(rows) {
        process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        silence.setSingleShot(true);
        silence.setInterval(patience * 1000);
        connect(&silence, &QTimer::timeout, this, [this] {
            gaveUp = true;
            process.kill();
        });
        connect(&process, &QProcess::readyReadStandardOutput, this, &Look::hear);
    }

    /// Looks at the rows from a place on, and waits for the end of it.
    void run(QStringList arguments, int first) {
        next = first;
        arguments += {QStringLiteral("--told"), QStringLiteral("--from"), QString::number(first)};
        process.start(QCoreApplication::applicationFilePath(), arguments,
                      QIODevice::ReadWrite | QIODevice::Text);
        silence.start();
        QEventLoop loop;
        connect(&process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), &loop,
                &QEventLoop::quit);
        connect(&process, &QProcess::errorOccurred, &loop, [this, &loop] {
            if (process.state() == QProcess::NotRunning) loop.quit();
        });
        loop.exec();
        silence.stop();
        hear();
        pass(process.readAllStandardOutput());
    }

    /// @return whether it was ended after all that patience.
    bool cameNotBack() const { return gaveUp; }
    bool endedWell() const {
        return !gaveUp && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0 &&
               process.error() == QProcess::UnknownError;
    }
    /// @return how it ended.
    QString end() const {
        if (gaveUp) return QStringLiteral("does not come back");
        if (process.error() == QProcess::FailedToStart) return process.errorString();
        if (process.exitStatus() == QProcess::CrashExit)
            return QStringLiteral("the process crashes");
        return QStringLiteral("the process ends with code %1").arg(process.exitCode());
    }

    int next = 0;       ///< The first row that has no verdict.
    bool open = false;  ///< Whether that row was begun.

  private:
    static void pass(const QByteArray& text) {
        std::fwrite(text.constData(), 1, size_t(text.size()), stdout);
        std::fflush(stdout);
    }

    void hear() {
        while (process.canReadLine()) {
            const QByteArray line = process.readLine();
            const int at = line.indexOf(mark);  // the host may have left a line open before it
            pass(line.left(at < 0 ? line.size() : at));
            int place = 0, verdict = 0;
            if (at >= 0 && std::sscanf(line.constData() + at + 1, "%d %d", &place, &verdict) == 2)
                know(place, verdict);
        }
    }

    void know(int place, int verdict) {
        silence.start();
        open = verdict == begun;
        if (place < 0 || place >= rows.size() || open) return;
        rows[place].verdict = Verdict(verdict);
        next = place + 1;
    }

    QVector<Row>& rows;
    QProcess process;
    QTimer silence;
    bool gaveUp = false;
};

bool nothingDiffers(const QVector<Row>& rows) {
    return std::none_of(rows.begin(), rows.end(),
                        [](const Row& row) { return row.verdict == Verdict::Differs; });
}

/// Gives a row its verdict that no process could tell.
void judge(Row& row, Verdict verdict, const QString& detail) {
    row.verdict = verdict;
    row.detail = detail;
    print(lineOf(row));
}

/// The rows from a place to before another are not looked at.
void leaveOut(QVector<Row>& rows, int from, int to, const QString& why) {
    while (from < to) judge(rows[from++], Verdict::NotReached, why);
}

}  // namespace

bool tellRows(const Files& files, int first, bool told) {
    int place = first;
    const QVector<Row> rows = checkHost(files,
                                        {[&](const Row&) {
                                             if (told) tell(place, begun);
                                         },
                                         [&](const Row& row) {
                                             print(lineOf(row));
                                             if (told) tell(place, int(row.verdict));
                                             ++place;
                                         }},
                                        first);
    const QStringList names = missingPictures();
    if (!names.isEmpty())
        print(QStringLiteral("The host has no ") + names.join(QStringLiteral(", ")));
    return nothingDiffers(rows);
}

bool watchHost(const Files& files, const QStringList& arguments, int patience) {
    QVector<Row> rows = promisesOf(files);
    rows.append({QStringLiteral("program"),
                 QStringLiteral("it starts, and ends without a crash"),
                 Verdict::NotReached,
                 {}});
    for (int first = 0; first < rows.size();) {
        Look look(rows, patience);
        look.run(arguments, first);
        first = look.next;
        if (!look.open) {
            leaveOut(rows, first, rows.size() - 1, look.end());
            judge(rows.last(), look.endedWell() ? Verdict::Holds : Verdict::Differs,
                  look.endedWell() ? QString() : look.end());
            break;
        }
        judge(rows[first], Verdict::Differs,
              QStringLiteral("%1 (--from %2)").arg(look.end()).arg(first));
        ++first;
        if (look.cameNotBack())  // a second time costs as much again
            leaveOut(rows, std::exchange(first, rows.size()), rows.size(),
                     QStringLiteral("the host did not come back before"));
    }
    print(summaryOf(rows));
    return nothingDiffers(rows);
}

}  // namespace conformance
