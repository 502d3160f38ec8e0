/// Where programs put their temporary folders.
#pragma once

#include <QDir>
#include <QString>

namespace testing_support {

/// Temporary folders, also those of child processes, are made below a folder until the scope ends.
class TemporaryFolders {
  public:
    explicit TemporaryFolders(const QString& folder) : before(qgetenv(variable)) { set(folder); }
    ~TemporaryFolders() { before.isEmpty() ? qunsetenv(variable) : qputenv(variable, before); }
    TemporaryFolders(const TemporaryFolders&) = delete;
    TemporaryFolders& operator=(const TemporaryFolders&) = delete;

    /// Another folder, until the scope of the one that is there ends.
    static void set(const QString& folder) {
        qputenv(variable, QDir::toNativeSeparators(folder).toLocal8Bit());
    }

  private:
#ifdef Q_OS_WIN
    static constexpr char variable[] = "TMP";
#else
    static constexpr char variable[] = "TMPDIR";
#endif

    const QByteArray before;
};

}  // namespace testing_support
