#include <algorithm>
#include <chrono>
#include <random>
#include <thread>

#include "tests/workbench/Writer.h"

namespace testing_support {

using workbench::Installation;

namespace {

/// A workspace in which writers are killed again and again, and what they had told by then.
class Battlefield {
  public:
    Battlefield(const QString& folder, const QString& projects)
        : folder(folder), projects(projects), settings(load().systemSettings.modelName) {}

    /// What a dead writer has told.
    void note(Writer& writer) {
        int last = -1;
        for (const QString& line : writer.lines()) {
            const QString what = line.section(QLatin1Char(' '), 1);
            if (line.startsWith(QLatin1String("project ")))
                acknowledged.insert(QStringLiteral("bd##") + what);
            else
                last = what.section(QLatin1Char(' '), 1).toInt();
        }
        lastSettings.insert(writer.id(), last);
    }

    /// Looks at everything that is new, as a program that starts now would find it.
    void survey(int kills) {
        const Installation found = load();
        surveySettings(found.systemSettings.modelName);
        const QSet<QString> listed(found.history.begin(), found.history.end());
        EXPECT_EQ(listed.size(), found.history.size()) << "an entry stands twice";
        EXPECT_TRUE(listed.contains(acknowledged)) << "an acknowledged entry is lost";
        EXPECT_TRUE(listed.contains(before)) << "an entry that was there before is lost";
        for (const QString& entry : listed - before) EXPECT_TRUE(isWholeProject(entry.mid(4)));
        before = listed;
        surveyFolders(kills);
    }

    int size() const { return before.size(); }

  private:
    Installation load() const {
        Installation found;
        QString error;
        EXPECT_TRUE(Installation::load(folder, found, error)) << error.toStdString();
        return found;
    }

    /// Whoever wrote last, it was its last settings: those that it had told of, or later ones.
    void surveySettings(const QString& found) {
        const auto writer =
            lastSettings.constFind(found.section(QLatin1Char(' '), 0, 0).toLongLong());
        const auto told = [](int last) { return last >= 0; };
        if (writer != lastSettings.constEnd()) {
            EXPECT_GE(found.section(QLatin1Char(' '), 1).toInt(), *writer)
                << "acknowledged settings are lost";
        } else {
            EXPECT_EQ(found.toStdString(), settings.toStdString());
            EXPECT_TRUE(std::none_of(lastSettings.begin(), lastSettings.end(), told))
                << "acknowledged settings are lost";
        }
        settings = found;
        lastSettings.clear();
    }

    void surveyFolders(int kills) const {
        EXPECT_LE(filesIn(folder).size(), 4 + 2) << "the lock, and one unfinished file";
        const QDir made(projects);
        EXPECT_LE(filesIn(projects).size(), made.entryList(QDir::Files).size() + 2);
        EXPECT_LE(made.entryList(QDir::Files).size(), before.size() + kills)
            << "a kill leaves one project at the most that is not in the history";
    }

    const QString folder;
    const QString projects;
    QSet<QString> acknowledged;
    QSet<QString> before;
    QString settings;                ///< As they were found last.
    QMap<qint64, int> lastSettings;  ///< By writer since then, the last it told of; -1 for none.
};

/// @return how many processes are to be killed: NEWPRO_KILLS, or as many as take a few seconds.
int killsWanted() {
    bool given = false;
    const int wanted = qEnvironmentVariableIntValue("NEWPRO_KILLS", &given);
    return given ? wanted : 40;
}

/// Kills a writer at any moment from its start to a few projects later.
void killAtRandom(Writer& writer, std::mt19937& random) {
    writer.waitForLines(std::uniform_int_distribution<>(0, 4)(random));
    const int rest = std::uniform_int_distribution<>(0, 10000)(random);
    std::this_thread::sleep_for(std::chrono::microseconds(rest));
    writer.kill();
}

}  // namespace

TEST(Kills, LoseNothingThatWasThereBefore) {
    TemporaryInstallation installation;
    const QString projects = installation.path(QStringLiteral("ProjectFiles"));
    const QStringList atFirst = filesIn(installation.folder());
    const auto creating = [&](const char* title) {
        return QStringList{QStringLiteral("create"), installation.folder(),
                           QString::fromUtf8(title)};
    };
    Battlefield field(installation.folder(), projects);
    std::mt19937 random(1);
    int kills = 0;
    while (kills < killsWanted() && !HasFailure()) {
        // Two at once, so that the dead one leaves its lock to the other.
        Writer a(creating("甲"));
        Writer b(creating("乙"));
        for (Writer* writer : {&a, &b}) {
            killAtRandom(*writer, random);
            field.note(*writer);
            ++kills;
        }
        SCOPED_TRACE(kills);
        field.survey(kills);
    }
    for (const QString& file : QDir(projects).entryList(QDir::Files))
        isWholeProject(projects + QLatin1Char('/') + file);
    Writer last(creating("丙") + QStringList{QStringLiteral("1")});
    EXPECT_TRUE(last.finish());
    EXPECT_EQ(filesIn(installation.folder()), atFirst);
    EXPECT_EQ(filesIn(projects), QDir(projects).entryList(QDir::Files));
    RecordProperty("kills", kills);
    RecordProperty("projects", field.size());
}

}  // namespace testing_support
