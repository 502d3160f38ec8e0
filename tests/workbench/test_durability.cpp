#include "tests/support/UnprivilegedUser.h"
#include "tests/workbench/Writer.h"
#include "workbench/base/FileLock.h"
#include "workbench/base/wholeFile.h"
#include "workbench/scenario/TemporaryCopy.h"

namespace testing_support {

using workbench::FileLock;
using workbench::Installation;
using workbench::ProjectFile;

namespace {

class Durability : public testing::Test {
  protected:
    QString projects() const { return installation.path(QStringLiteral("ProjectFiles")); }
    QString historyFile() const { return installation.path(QStringLiteral("history.json")); }
    QString settingsFile() const { return installation.path(QStringLiteral("settings.json")); }

    QStringList creating(const QString& title) const {
        return {QStringLiteral("create"), installation.folder(), title};
    }

    /// @return what another program finds on disk.
    Installation onDisk() const {
        Installation found;
        QString error;
        EXPECT_TRUE(Installation::load(installation.folder(), found, error)) << error.toStdString();
        return found;
    }

    TemporaryInstallation installation;
    const QStringList atFirst = filesIn(installation.folder());
};

}  // namespace

#ifdef Q_OS_UNIX

TEST_F(Durability, AProcessKilledAtItsFirstWriteLeavesNoProject) {
    const QByteArray before = contentOf(historyFile());
    EXPECT_TRUE(
        Writer(QStringList{QStringLiteral("die=0")} + creating(QStringLiteral("甲"))).died());
    EXPECT_EQ(QDir(projects()).entryList(QDir::Files), QStringList());
    EXPECT_EQ(contentOf(historyFile()), before);

    Writer next(creating(QStringLiteral("甲")) + QStringList{QStringLiteral("1")});
    EXPECT_TRUE(next.finish());
    ASSERT_EQ(filesIn(projects()).size(), 1) << "what the killed one left is gone";
    EXPECT_TRUE(filesIn(projects()).constFirst().endsWith(QLatin1String("-001.GCFX")));
    EXPECT_EQ(filesIn(installation.folder()), atFirst);
}

TEST_F(Durability, AProcessKilledInTheMiddleOfAFileLeavesTheOldOne) {
    const QString entry(5000, QLatin1Char('x'));
    ASSERT_EQ(installation.values().addToHistory(entry), QString());
    const QByteArray before = contentOf(historyFile());
    const QStringList halfWay{QStringLiteral("die=4096")};
    EXPECT_TRUE(Writer(halfWay + creating(QStringLiteral("甲"))).died());
    EXPECT_EQ(contentOf(historyFile()), before);
    EXPECT_EQ(onDisk().history, QStringList{entry});
    const QStringList made = QDir(projects()).entryList(QDir::Files);
    ASSERT_EQ(made.size(), 1);
    EXPECT_TRUE(isWholeProject(projects() + QLatin1Char('/') + made.constFirst()));
}

TEST_F(Durability, AWorkspaceWhoseCopyingWasKilledIsCopiedAnew) {
    installation.write(QStringLiteral("source/a"), QByteArray(10, 'a'));
    installation.write(QStringLiteral("source/b/c"), QByteArray(9000, 'c'));
    const QString target = installation.path(QStringLiteral("target"));
    const QStringList copying{QStringLiteral("copy"), installation.path(QStringLiteral("source")),
                              target};
    EXPECT_TRUE(Writer(QStringList{QStringLiteral("die=4096")} + copying).died());
    EXPECT_FALSE(QFileInfo::exists(target));
    EXPECT_TRUE(Writer(copying).finish());
    EXPECT_EQ(contentOf(target + QStringLiteral("/b/c")).size(), 9000);
    EXPECT_EQ(filesIn(installation.folder()), atFirst);
    EXPECT_EQ(QDir(installation.folder()).entryList({QStringLiteral("target*")}),
              QStringList{QStringLiteral("target")});
}

#endif

TEST_F(Durability, TwoProcessesLoseNoneOfEachOthersEntries) {
    constexpr int count = 150;
    const auto adding = [&](const char* prefix) {
        return QStringList{QStringLiteral("history"), installation.folder(), QLatin1String(prefix),
                           QString::number(count)};
    };
    Writer a(adding("a"));
    Writer b(adding("b"));
    EXPECT_TRUE(a.finish());
    EXPECT_TRUE(b.finish());
    const QStringList history = onDisk().history;
    EXPECT_EQ(history.size(), 2 * count);
    for (const char* prefix : {"a", "b"}) {
        QStringList mostRecentFirst;
        for (int i = count; i-- > 0;)
            mostRecentFirst.append(QLatin1String(prefix) + QString::number(i));
        EXPECT_EQ(history.filter(QLatin1String(prefix)), mostRecentFirst);
    }
    EXPECT_EQ(installation.values().addToHistory(QStringLiteral("mine")), QString());
    EXPECT_EQ(installation.values().history, QStringList{QStringLiteral("mine")} + history);
    EXPECT_EQ(filesIn(installation.folder()), atFirst);
}

TEST_F(Durability, TwoProcessesThatMakeTheSameProjectMakeTwo) {
    const QStringList creatingTen =
        creating(QStringLiteral("甲")) + QStringList{QStringLiteral("10")};
    Writer a(creatingTen);
    Writer b(creatingTen);
    EXPECT_TRUE(a.finish());
    EXPECT_TRUE(b.finish());
    QStringList made = (a.lines() + b.lines()).filter(QStringLiteral("project "));
    EXPECT_EQ(made.size(), 20);
    EXPECT_EQ(made.removeDuplicates(), 0);
    for (const QString& line : qAsConst(made)) {
        const QString path = line.section(QLatin1Char(' '), 1);
        const auto project = ProjectFile::read(path);
        ASSERT_TRUE(project) << path.toStdString();
        EXPECT_EQ(project->name, QFileInfo(path).completeBaseName());
    }
    EXPECT_EQ(onDisk().history.size(), 20);
}

TEST_F(Durability, ABrokenHistoryIsToldAndNotOverwritten) {
    Installation& values = installation.values();
    const QByteArray broken = "{\"entries\": [\n\"someone's\",,\n]}";
    installation.write(QStringLiteral("history.json"), broken);
    const QString error = values.addToHistory(QStringLiteral("first"));
    EXPECT_EQ(error, QDir::toNativeSeparators(historyFile()) +
                         QStringLiteral(":2: syntax: illegal value"));
    EXPECT_EQ(contentOf(historyFile()), broken);
    EXPECT_EQ(values.history, QStringList{QStringLiteral("first")}) << "offered all the same";

    installation.write(QStringLiteral("history.json"), R"({"entries": ["someone's"]})");
    EXPECT_EQ(values.addToHistory(QStringLiteral("second")), QString());
    const QStringList all{QStringLiteral("second"), QStringLiteral("first"),
                          QStringLiteral("someone's")};
    EXPECT_EQ(onDisk().history, all);
    EXPECT_EQ(values.history, all);
}

TEST_F(Durability, WhatSomebodyElseTookOutOfTheHistoryStaysOut) {
    Installation& values = installation.values();
    EXPECT_EQ(values.addToHistory(QStringLiteral("old")), QString());
    installation.write(QStringLiteral("history.json"), R"({"entries": []})");
    EXPECT_EQ(values.addToHistory(QStringLiteral("new")), QString());
    EXPECT_EQ(onDisk().history, QStringList{QStringLiteral("new")});
    ASSERT_TRUE(QFile::remove(historyFile()));
    EXPECT_EQ(values.addToHistory(QStringLiteral("newer")), QString());
    EXPECT_EQ(onDisk().history, (QStringList{QStringLiteral("newer"), QStringLiteral("new")}));
}

#ifdef Q_OS_UNIX
TEST_F(Durability, AProtectedFileKeepsItsContentAlthoughItsFolderIsOpen) {
    const QString path = installation.write(QStringLiteral("open/file"), "mine");
    const auto anybody = QFile::Permissions(0x7777);
    ASSERT_TRUE(QFile::setPermissions(installation.path(QStringLiteral("open")), anybody));
    ASSERT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadOther));
    const UnprivilegedUser user(installation.folder());
    EXPECT_EQ(workbench::replaceFile(path, "yours"), QStringLiteral("Permission denied"));
    EXPECT_EQ(contentOf(path), QByteArray("mine"));
}
#endif

TEST_F(Durability, AFileKeepsItsPermissions) {
    const auto shared = QFile::permissions(historyFile()) | QFile::WriteGroup;
    ASSERT_TRUE(QFile::setPermissions(historyFile(), shared));
    EXPECT_EQ(installation.values().addToHistory(QStringLiteral("a")), QString());
    EXPECT_EQ(QFile::permissions(historyFile()), shared);
}

TEST_F(Durability, PathsMayBeLongerThanWindowsTakesThemAsTheyAre) {
    QString deep = installation.folder();
    for (const char letter : {'a', 'b', 'c'})
        deep += QLatin1Char('/') + QString(100, QLatin1Char(letter));
    ASSERT_TRUE(QDir().mkpath(deep));
    const QString file = deep + QStringLiteral("/file");
    EXPECT_EQ(workbench::makeFile(file, "old"), QString());
    EXPECT_NE(workbench::makeFile(file, "other"), QString()) << "the name is taken";
    {
        FileLock lock(workbench::lockOfFolder(file));
        EXPECT_TRUE(lock.lock(0)) << lock.error().toStdString();
        EXPECT_EQ(workbench::replaceFile(file, "new"), QString());
    }
    EXPECT_EQ(contentOf(file), QByteArray("new"));
    EXPECT_EQ(filesIn(deep), QStringList{QStringLiteral("file")});
    const QString copy = QFileInfo(deep).path() + QStringLiteral("/copy");
#ifdef Q_OS_WIN
    EXPECT_NE(workbench::copyFolderWhole(deep, copy), QString()) << "not copied, and said";
    EXPECT_FALSE(QFileInfo::exists(copy));
#else
    EXPECT_EQ(workbench::copyFolderWhole(deep, copy), QString());
    EXPECT_EQ(contentOf(copy + QStringLiteral("/file")), QByteArray("new"));
#endif
}

TEST_F(Durability, ALockEndsWithItsHolderHoweverThatEnds) {
    const QString path = installation.path(QStringLiteral("lock"));
    Writer holder({QStringLiteral("lock"), path});
    holder.waitForLines(1);
    FileLock lock(path);
    EXPECT_FALSE(lock.lock(20));
    EXPECT_EQ(lock.error(), QStringLiteral("another program is at work here"));
    holder.kill();
    EXPECT_TRUE(QFileInfo::exists(path)) << "what a killed holder leaves";
    EXPECT_TRUE(lock.lock(0));
}

TEST_F(Durability, ALockTakesItsFileWithIt) {
    const QString path = installation.path(QStringLiteral("lock"));
    {
        FileLock lock(path);
        EXPECT_TRUE(lock.lock(0));
        EXPECT_TRUE(QFileInfo::exists(path));
    }
    EXPECT_FALSE(QFileInfo::exists(path));
    FileLock nowhere(installation.path(QStringLiteral("no/such/lock")));
    EXPECT_FALSE(nowhere.lock(patienceMs));
    EXPECT_EQ(nowhere.error(), noSuchFolder());
}

}  // namespace testing_support
