#include "tests/monkey/Herd.h"

#include <QCoreApplication>
#include <QRegularExpression>
#include <QTimer>

#include "tests/support/systemTexts.h"

namespace monkey {

using testing_support::outputText;

namespace {

const int portion = 25;  ///< Sequences that a process plays before the next one.
const qint64 patienceMs =
    120 * 1000;  ///< With one sequence. A player that hangs ends itself sooner.

/// @return what a process said of its end: a sanitizer's or the library's headline, else how it
/// ended
///         and its last line, which may be about something else.
QString lastWords(QProcess& process, const QString& end) {
    static const QRegularExpression headline(
        QStringLiteral("ERROR: .*|.*runtime error: .*|terminate called .*"));
    const QString said = outputText(process.readAllStandardError());
    const QRegularExpressionMatch match = headline.match(said);
    if (match.hasMatch()) return match.captured();
    return end + QLatin1String(": ") + said.trimmed().section(QLatin1Char('\n'), -1);
}

QString told(QProcess& process) {
    const QString code = QString::number(process.exitCode());
    if (process.exitStatus() == QProcess::CrashExit)
        return QLatin1String("crash: ") + lastWords(process, QLatin1String("signal ") + code);
    return QLatin1String("died: ") + lastWords(process, QLatin1String("exit code ") + code);
}

QStringList argumentsOf(const Traps& traps) {
    QStringList arguments;
    for (const QString& name : traps.never) arguments << QStringLiteral("--never") << name;
    for (const QString& name : traps.crashAt) arguments << QStringLiteral("--crash-at") << name;
    return arguments;
}

}  // namespace

struct Herd::Child {
    QProcess process;
    quint32 seed = 0;      ///< Of the next sequence.
    int left = 0;          ///< Sequences from there.
    bool playing = false;  ///< Between the beginning and the end of a sequence.
    bool hangs = false;
    bool useful = false;  ///< It has begun a sequence.
    QElapsedTimer sinceWord;
    QByteArray said;
};

QStringList childArguments(quint32 seed, int count, const Traps& traps) {
    const QStringList arguments{QStringLiteral("--play"), QStringLiteral("--seed"),
                                QString::number(seed), QStringLiteral("--sequences"),
                                QString::number(count)};
    return arguments + argumentsOf(traps);
}

QStringList judgeArguments(const QString& file, const Traps& traps) {
    return QStringList{QStringLiteral("--judge"), file} + argumentsOf(traps);
}

QString faultOf(const QString& file, const Traps& traps) {
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), judgeArguments(file, traps));
    if (!process.waitForFinished(int(patienceMs))) {
        process.kill();
        process.waitForFinished();
        return QStringLiteral("hang: no end");
    }
    const QString fault =
        outputText(process.readAllStandardOutput()).section(QLatin1Char('\n'), 0, 0);
    if (!fault.isEmpty()) return fault;
    const bool well = process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    return well ? QString() : told(process);
}

Herd::Herd(const Errand& errand) : errand(errand) {
    for (int begin = 0; begin < errand.sequences; begin += portion)
        waiting.append({errand.seed + quint32(begin), qMin(portion, errand.sequences - begin)});
}

Herd::~Herd() = default;

void Herd::run() {
    QTimer watch;
    connect(&watch, &QTimer::timeout, this, &Herd::lookForHangs);
    watch.start(1000);
    for (int i = 0; i < errand.processes && !waiting.isEmpty(); ++i) sendOut();
    if (!children.empty()) loop.exec();
}

void Herd::sendOut() {
    children.push_back(std::make_unique<Child>());
    Child& child = *children.back();
    const auto task = waiting.takeFirst();
    child.seed = task.first;
    child.left = task.second;
    child.sinceWord.start();
    connect(&child.process, &QProcess::readyReadStandardOutput, this,
            [this, &child] { listen(child); });
    connect(
        &child.process,
        static_cast<void (QProcess::*)(int, QProcess::ExitStatus)>(&QProcess::finished), this,
        [this, &child] { bury(child); }, Qt::QueuedConnection);
    child.process.start(QCoreApplication::applicationFilePath(),
                        childArguments(child.seed, child.left, errand.traps));
}

void Herd::listen(Child& child) {
    child.sinceWord.start();
    child.said += child.process.readAllStandardOutput();
    for (int end; (end = child.said.indexOf('\n')) >= 0; child.said.remove(0, end + 1))
        hear(child, outputText(child.said.left(end + 1)).chopped(1));
}

void Herd::hear(Child& child, const QString& line) {
    const QString word = line.section(QLatin1Char(' '), 0, 0);
    const QString rest = line.section(QLatin1Char(' '), 1);
    if (word == QLatin1String("begin")) {
        child.playing = child.useful = true;
    } else if (word == QLatin1String("fault")) {
        failed.append({child.seed, rest});
    } else if (word == QLatin1String("end")) {
        child.playing = false;
        ++child.seed;
        --child.left;
        ++counted.sequences;
        for (const QString& count : rest.split(QLatin1Char(' '), Qt::SkipEmptyParts))
            counted.counts[count.section(QLatin1Char('='), 0, 0)] +=
                count.section(QLatin1Char('='), 1).toInt();
    }
}

void Herd::bury(Child& child) {
    listen(child);
    if (child.playing) {
        failed.append(
            {child.seed, child.hangs ? QStringLiteral("hang: no end") : told(child.process)});
        ++child.seed;
        --child.left;
        ++counted.sequences;
    } else if (child.process.exitCode() != 0 || !child.useful) {
        failed.append({child.seed, told(child.process)});
    }
    // One that never began would not begin the next time either.
    if (child.left > 0 && child.useful) waiting.prepend({child.seed, child.left});
    for (auto it = children.begin(); it != children.end(); ++it)
        if (it->get() == &child) {
            children.erase(it);
            break;
        }
    if (!waiting.isEmpty()) sendOut();
    if (children.empty()) loop.quit();
}

void Herd::lookForHangs() {
    for (const auto& child : children)
        if (child->sinceWord.elapsed() > patienceMs) {
            child->hangs = true;
            child->process.kill();
        }
}

}  // namespace monkey
