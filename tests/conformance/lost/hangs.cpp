// what is no project file has the type -1
// does not come back
// hold, 1 differ, [1-9][0-9]+ not reached
#include <SharedInterface.h>

#include <QFileInfo>
#include <condition_variable>
#include <mutex>

int GetProgramTypeByFile(const QString& path) {
    static std::mutex mutex;
    std::unique_lock<std::mutex> lock(mutex);
    if (path.endsWith(QLatin1String(".txt")))
        std::condition_variable().wait(lock, [] { return false; });
    return path.endsWith(QLatin1String(".GCFX")) ? 4 : -1;
}
