#include "Check.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFile>
#include <exception>

namespace conformance {

namespace {

/// Notices an event loop: what was posted to it arrives only in one.
class Probe : public QObject {
  public:
    Probe() { QCoreApplication::postEvent(this, new QEvent(QEvent::User)); }
    ~Probe() override { QCoreApplication::removePostedEvents(this); }
    bool event(QEvent*) override { return reached = true; }

    bool reached = false;
};

/// An exception that the host throws is a difference.
void look(const std::function<void()>& promise, Row& row) {
    row.verdict = Verdict::Differs;
    try {
        promise();
        row.verdict = Verdict::Holds;
    } catch (const Differs& difference) {
        row.detail = difference.what;
    } catch (const NotReached& reason) {
        row.verdict = Verdict::NotReached;
        row.detail = reason.why;
    } catch (const std::exception& exception) {
        row.detail = QStringLiteral("throws: ") + QString::fromUtf8(exception.what());
    } catch (...) {
        row.detail = QStringLiteral("throws");
    }
}

/// The dialog catches what the host throws inside of it: a flow goes on as if nothing had happened.
void judgeReports(Row& row) {
    QStringList reports = takeReports();
    if (reports.isEmpty()) return;
    reports.removeDuplicates();
    row.verdict = Verdict::Differs;
    row.detail =
        QStringLiteral("the host throws in ") + reports.join(QStringLiteral("\n             "));
}

struct Area {
    const char* name;
    QVector<Promise> promises;
};

QVector<Area> areas(const Files& files) {
    return {
        {"services", services(files)}, {"controls", controls()},    {"flows", flows()},
        {"flows", pageFlows(files)},   {"flows", fileFlows(files)}, {"flows", cloudFlows(files)}};
}

Row rowOf(const Area& area, const Promise& promise) {
    return {QLatin1String(area.name), promise.text, Verdict::NotReached, {}};
}

const char* wordOf(Verdict verdict) {
    switch (verdict) {
        case Verdict::Holds:
            return "holds      ";
        case Verdict::Differs:
            return "DIFFERS    ";
        case Verdict::NotReached:
            break;
    }
    return "not reached";
}

}  // namespace

bool runsEventLoop(const std::function<void()>& action) {
    const Probe probe;
    action();
    return probe.reached;
}

QString textFile(const QTemporaryDir& folder, const QString& name) {
    QFile file(folder.filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write("text") < 0)
        throw NotReached{QStringLiteral("no temporary file can be written")};
    return file.fileName();
}

void quietly(const std::function<void()>& action) {
    expect(!runsEventLoop(action), QStringLiteral("an event loop runs before a service answers"));
}

QVector<Row> promisesOf(const Files& files) {
    QVector<Row> rows;
    for (const Area& area : areas(files))
        for (const Promise& promise : area.promises) rows.append(rowOf(area, promise));
    return rows;
}

QVector<Row> checkHost(const Files& files, const Progress& progress, int first) {
    QVector<Row> rows;
    int place = 0;
    for (const Area& area : areas(files)) {
        for (const Promise& promise : area.promises) {
            if (place++ < first) continue;
            Row row = rowOf(area, promise);
            if (progress.begins) progress.begins(row);
            look(promise.look, row);
            judgeReports(row);
            if (progress.ends) progress.ends(row);
            rows.append(row);
        }
    }
    return rows;
}

QString lineOf(const Row& row) {
    const QString line =
        QStringLiteral("%1  %2  %3")
            .arg(QLatin1String(wordOf(row.verdict)), row.area.leftJustified(8), row.promise);
    return row.detail.isEmpty() ? line : line + QStringLiteral("\n             ") + row.detail;
}

QString summaryOf(const QVector<Row>& rows) {
    int counts[3] = {};
    for (const Row& row : rows) ++counts[int(row.verdict)];
    return QStringLiteral("%1 hold, %2 differ, %3 not reached")
        .arg(counts[0])
        .arg(counts[1])
        .arg(counts[2]);
}

}  // namespace conformance
