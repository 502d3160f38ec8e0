/// Where programs put their temporary folders.
#pragma once

#include <QString>

namespace testing_support {

/// Temporary folders, also those of child processes, are made below a folder until the scope ends.
class TemporaryFolders {
  public:
    explicit TemporaryFolders(const QString& folder) : before(qgetenv("TMPDIR")) {
        qputenv("TMPDIR", folder.toUtf8());
    }
    ~TemporaryFolders() { before.isEmpty() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before); }

    TemporaryFolders(const TemporaryFolders&) = delete;
    TemporaryFolders& operator=(const TemporaryFolders&) = delete;

  private:
    const QByteArray before;
};

}  // namespace testing_support
