/// A process that writes into a workspace as the workbench does.
#pragma once

#include <QDir>
#include <QProcess>

#include "tests/support/TestSupport.h"
#include "workbench/projects/ProjectFile.h"

namespace testing_support {

/// Longer than anything takes.
constexpr int patienceMs = 60000;

/// A process that writes as the workbench does; killed at the end of the scope.
class Writer {
  public:
    explicit Writer(const QStringList& arguments) {
        process.start(QStringLiteral(WRITER), arguments);
        EXPECT_TRUE(process.waitForStarted(patienceMs));
        number = process.processId();
    }
    ~Writer() { kill(); }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    /// Waits until this many lines have been told in all, or the process has ended.
    void waitForLines(int count) {
        while (lines().size() < count && process.waitForReadyRead(patienceMs)) continue;
    }

    /// @return whether the process ended by itself and said that all went well.
    bool finish() {
        EXPECT_TRUE(process.waitForFinished(patienceMs));
        EXPECT_EQ(outputText(process.readAllStandardError()).toStdString(), "");
        return process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
    }

    /// @return whether the process died of itself.
    bool died() {
        EXPECT_TRUE(process.waitForFinished(patienceMs));
        return process.exitStatus() == QProcess::CrashExit;
    }

    void kill() {
        process.kill();
        process.waitForFinished(patienceMs);
    }

    /// @return the process's number, also once it is dead.
    qint64 id() const { return number; }

    /// @return what was told in whole lines.
    QStringList lines() {
        told += process.readAllStandardOutput();
        return outputText(told.left(told.lastIndexOf('\n') + 1))
            .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

  private:
    QProcess process;
    qint64 number = 0;
    QByteArray told;
};

/// @return the names of all files of a folder, hidden ones too.
inline QStringList filesIn(const QString& folder) {
    return QDir(folder).entryList(QDir::Files | QDir::Hidden | QDir::System);
}

/// @return whether a project file can be read; fails the test with the reason where not.
inline bool isWholeProject(const QString& path) {
    QString error;
    const bool whole = workbench::ProjectFile::read(path, &error).has_value();
    EXPECT_TRUE(whole) << error.toStdString();
    return whole;
}

}  // namespace testing_support
