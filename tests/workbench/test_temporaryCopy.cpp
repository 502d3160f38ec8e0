#include <QDir>
#include <QProcess>
#include <QThread>
#include <atomic>
#include <thread>

#include "tests/workbench/TemporaryFolders.h"
#include "tests/workbench/Writer.h"
#include "workbench/scenario/TemporaryCopy.h"

#ifdef Q_OS_UNIX
#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace testing_support {

using workbench::TemporaryCopy;

namespace {

/// The program, playing a scenario whose second step waits for what never comes.
class Play {
  public:
    explicit Play(const QString& folder, const QString& name) {
        const QString file = folder + QLatin1Char('/') + name;
        QFile scenario(file + QStringLiteral(".json"));
        EXPECT_TRUE(scenario.open(QIODevice::WriteOnly));
        scenario.write(R"({"title": "t", "steps": [{"do": "open"}, {"do": "click", "on": "x"}]})");
        scenario.close();
        journal.setFileName(file + QStringLiteral(".jsonl"));
        process.start(QStringLiteral(PROGRAM), {QStringLiteral("play"), scenario.fileName(),
                                                QStringLiteral("--journal"), journal.fileName()});
    }
    ~Play() { kill(); }
    Play(const Play&) = delete;
    Play& operator=(const Play&) = delete;

    /// Waits until the dialog is open.
    bool isInTheMiddle() {
        return QTest::qWaitFor(
            [this] {
                return QFileInfo::exists(journal.fileName()) &&
                       contentOf(journal.fileName()).contains(R"("event":"opened")");
            },
            patienceMs);
    }

    void kill() {
        process.kill();
        process.waitForFinished(patienceMs);
    }

  private:
    QFile journal;
    QProcess process;
};

class TemporaryCopyTest : public testing::Test {
  protected:
    /// @return the names of the copies below the temporary folder.
    QStringList copies() const {
        return QDir(folder.path()).entryList({QStringLiteral("newpro-workbench-*")}, QDir::Dirs);
    }

    /// Makes what could be taken for a copy of the program's.
    void make(const QString& name, bool withLock) {
        EXPECT_TRUE(QDir(folder.path()).mkdir(name));
        QFile file(folder.filePath(name + QStringLiteral("/precious")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        QFile lock(folder.filePath(name + QStringLiteral(".lock")));
        EXPECT_TRUE(!withLock || lock.open(QIODevice::WriteOnly));
    }

    QTemporaryDir folder;
    const TemporaryFolders here{folder.path()};
};

}  // namespace

TEST_F(TemporaryCopyTest, GoesAtTheEndOfItsScopeWithEverythingAroundIt) {
    {
        const TemporaryCopy copy(QStringLiteral(SAMPLE_INSTALLATION));
        EXPECT_EQ(copy.error(), QString());
        EXPECT_TRUE(QFileInfo::exists(copy.folder() + QStringLiteral("/models.json")));
        EXPECT_EQ(copies().size(), 1);
        workbench::removeAbandonedCopies();
        EXPECT_TRUE(QFileInfo::exists(copy.folder() + QStringLiteral("/models.json")))
            << "it is in use";
    }
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

TEST_F(TemporaryCopyTest, ATemporaryFolderThatIsNotThereIsTold) {
    const TemporaryFolders nowhere(folder.filePath(QStringLiteral("none")));
    const TemporaryCopy copy(QStringLiteral(SAMPLE_INSTALLATION));
    EXPECT_EQ(copy.error(), QStringLiteral("the system's temporary folder does not exist"));
}

TEST_F(TemporaryCopyTest, OnlyWhatAKilledProcessLeftIsRemoved) {
    const QString abandoned = QStringLiteral("newpro-workbench-0123456789abcdef");
    const QString withoutLock = QStringLiteral("newpro-workbench-fedcba9876543210");
    const QString ofSomebody = QStringLiteral("newpro-workbench-backup");
    make(abandoned, true);
    make(withoutLock, false);
    make(ofSomebody, true);
#ifdef Q_OS_UNIX
    // A link of such a name, to a folder that must stay.
    const QString link = folder.filePath(QStringLiteral("newpro-workbench-00000000000000aa"));
    ASSERT_TRUE(QFile::link(folder.filePath(withoutLock), link));
    QFile lockOfLink(link + QStringLiteral(".lock"));
    ASSERT_TRUE(lockOfLink.open(QIODevice::WriteOnly));
#endif

    workbench::removeAbandonedCopies();
    EXPECT_FALSE(QFileInfo::exists(folder.filePath(abandoned)));
    EXPECT_FALSE(QFileInfo::exists(folder.filePath(abandoned + QStringLiteral(".lock"))));
    for (const QString& kept : {withoutLock, ofSomebody})
        EXPECT_TRUE(QFileInfo::exists(folder.filePath(kept + QStringLiteral("/precious"))))
            << kept.toStdString();
#ifdef Q_OS_UNIX
    EXPECT_TRUE(QFileInfo(link).isSymLink());
#endif
}

TEST_F(TemporaryCopyTest, TheNextStartRemovesTheCopyOfAKilledPlayAndNotOfALivingOne) {
    Play killed(folder.path(), QStringLiteral("killed"));
    ASSERT_TRUE(killed.isInTheMiddle());
    const QStringList first = copies();
    ASSERT_EQ(first.size(), 1);
    killed.kill();
    EXPECT_EQ(copies(), first) << "nobody was left to remove it";

    Play living(folder.path(), QStringLiteral("living"));
    ASSERT_TRUE(living.isInTheMiddle());
    const QStringList second = copies();
    ASSERT_EQ(second.size(), 1);
    EXPECT_NE(second, first) << "removed at the start";

    const Play third(folder.path(), QStringLiteral("third"));
    const QString copy = folder.filePath(second.constFirst());
    EXPECT_TRUE(QTest::qWaitFor([this] { return copies().size() == 2; }, patienceMs));
    EXPECT_TRUE(QFileInfo::exists(copy + QStringLiteral("/models.json"))) << "it is in use";
}

TEST_F(TemporaryCopyTest, TheNextStartRemovesWhatAKilledGalleryLeft) {
    QProcess gallery;
    gallery.start(QStringLiteral(PROGRAM), {QStringLiteral("gallery"), QStringLiteral("--pictures"),
                                            folder.filePath(QStringLiteral("pictures"))});
    EXPECT_TRUE(QTest::qWaitFor([this] { return copies().size() == 2; }, patienceMs))
        << "of the installation, and for the pictures";
    gallery.kill();
    gallery.waitForFinished(patienceMs);
    const QStringList left = copies();
    EXPECT_EQ(left.size(), 2);

    Play living(folder.path(), QStringLiteral("living"));
    ASSERT_TRUE(living.isInTheMiddle());
    for (const QString& name : left)
        EXPECT_FALSE(QFileInfo::exists(folder.filePath(name))) << name.toStdString();
}

#ifdef Q_OS_UNIX

/// Who clears up may hold a new copy's lock for a moment: its file exists before it is locked.
TEST_F(TemporaryCopyTest, IsMadeThoughSomebodyWhoClearsUpIsQuicker) {
    const QTemporaryDir source;
    const QByteArray place = QFile::encodeName(folder.path());
    std::atomic<bool> done{false};
    std::thread other([&] {
        DIR* const entries = opendir(place.constData());
        while (!done) {
            rewinddir(entries);
            while (const dirent* entry = readdir(entries)) {
                const int lock = openat(dirfd(entries), entry->d_name, O_RDWR);
                if (lock < 0) continue;
                if (flock(lock, LOCK_EX | LOCK_NB) == 0) QThread::usleep(50);
                close(lock);
            }
        }
        closedir(entries);
    });
    QStringList errors;
    for (int i = 0; i < 300; ++i) {
        const TemporaryCopy copy(source.path());
        if (!copy.error().isEmpty()) errors.append(copy.error());
    }
    done = true;
    other.join();
    EXPECT_EQ(errors, QStringList());
}

#endif

}  // namespace testing_support
