#include "files/historyLists.h"

#include "tests/files/FileTesting.h"

namespace {

using files_testing::itemsOf;
using newpro::HistoryFlags;

constexpr HistoryFlags allPages{true, true, true, true};

class HistoryLists : public testing::Test {
  protected:
    void refill(const QStringList& history, HistoryFlags flags = allPages) {
        newpro::refillHistory(history, dialog.pages, flags);
    }
    static QString local(const QString& path) { return QStringLiteral("bd##") + path; }
    static QString cloud(const QString& path) { return QStringLiteral("yp##") + path; }
    QStringList audit() const { return itemsOf(*dialog.pages.audit.fileCombo); }
    QStringList contracting() const { return itemsOf(*dialog.pages.contracting.fileCombo); }
    QStringList settlement() const { return itemsOf(*dialog.pages.settlement.fileCombo); }
    QStringList estimate() const { return itemsOf(*dialog.pages.estimate.fileCombo); }

    testing_support::TemporaryInstallation host;
    testing_support::FakeDialog dialog;
};

TEST_F(HistoryLists, EveryPageTakesTheSuffixesThatSuitIt) {
    const struct {
        const char* suffix;
        bool contracting, settlementAndEstimate;
    } rows[] = {
        {"GCFX", true, true},    {"SGCFX", false, true}, {"SGCF", false, true},
        {"GCF", false, true},    {"GCFG", false, false}, {"GCFZ", false, false},
        {"SGCFG", false, false}, {"PMW", false, false},  {"TXT", false, false},
    };
    for (const auto& row : rows) {
        const QString name = QStringLiteral("企业云盘/a.") + QLatin1String(row.suffix);
        refill({cloud(name)});
        EXPECT_EQ(audit(), QStringList{name}) << row.suffix;
        EXPECT_EQ(contracting().contains(name), row.contracting) << row.suffix;
        EXPECT_EQ(settlement().contains(name), row.settlementAndEstimate) << row.suffix;
        EXPECT_EQ(estimate(), settlement()) << row.suffix;
    }
}

TEST_F(HistoryLists, TheHostKnowsTheSuffixOfALocalFile) {
    const QString file = host.path(QStringLiteral("ProjectFiles/a.gcfx"));
    files_testing::writeBudgetProject(file);
    refill({local(file)});
    for (const QStringList& list : {audit(), contracting(), settlement(), estimate()}) {
        EXPECT_EQ(list, QStringList{file});
    }
    // A file that is no project has no suffix for the host, whatever its name.
    const QString other = host.write(QStringLiteral("ProjectFiles/b.GCFX"));
    refill({local(other)});
    EXPECT_EQ(audit(), QStringList{other});
    EXPECT_EQ(contracting(), QStringList());
}

TEST_F(HistoryLists, LocalEntriesAreListedOnceAndCloudEntriesAsOftenAsTheyStand) {
    const QString cloudFile = QStringLiteral("个人云盘/A.GCF");
    refill({local(QStringLiteral("/p/a.GCF")), cloud(cloudFile), local(QStringLiteral("/P/A.gcf")),
            cloud(cloudFile), local(cloudFile)});
    EXPECT_EQ(audit(), (QStringList{QStringLiteral("/p/a.GCF"), cloudFile, cloudFile, cloudFile}));
}

TEST_F(HistoryLists, TheHostIsAskedForEveryLocalEntryAndNoOther) {
    refill({local(QStringLiteral("/p/a.GCF")), cloud(QStringLiteral("b.GCF")),
            local(QStringLiteral("/P/A.gcf")), QStringLiteral("nothing")});
    EXPECT_EQ(testing_support::flowLines(),
              (testing_support::Lines{"call SharedInterface::GetFileInfo(\"/p/a.GCF\")",
                                      "call SharedInterface::GetFileInfo(\"/P/A.gcf\")"}));
}

TEST_F(HistoryLists, AnEmptyHistoryLeavesTheTextsAlone) {
    dialog.pages.audit.fileCombo->addItem(QStringLiteral("old"));
    dialog.pages.audit.fileCombo->setCurrentText(QStringLiteral("typed"));
    refill({});
    EXPECT_EQ(audit(), QStringList{});
    EXPECT_EQ(dialog.pages.audit.path(), QStringLiteral("typed"));
    EXPECT_EQ(dialog.pages.contracting.path(), QString());
}

TEST_F(HistoryLists, TheTextOfABoxSurvivesTheRefill) {
    dialog.pages.audit.fileCombo->setCurrentText(QStringLiteral("typed"));
    for (int times = 0; times < 2; ++times) {
        refill({cloud(QStringLiteral("a.GCF")), cloud(QStringLiteral("b.GCF"))});
        EXPECT_EQ(audit().size(), 2);
        EXPECT_EQ(dialog.pages.audit.path(), QStringLiteral("typed"));
        EXPECT_EQ(dialog.pages.estimate.path(), QString());
    }
}

TEST_F(HistoryLists, ItemsCarryNoData) {
    refill({cloud(QStringLiteral("a.GCF"))});
    EXPECT_FALSE(dialog.pages.audit.fileCombo->itemData(0).isValid());
}

/// What the host's box does for an entry and Qt's own addItem does not: screen readers are told.
TEST_F(HistoryLists, ItemsAreAddedByTheHostsOwnBox) {
    const QString longPath =
        QStringLiteral("/p/") + QStringLiteral("工程/").repeated(40) + QStringLiteral("a.GCFX");
    const QStringList paths{QStringLiteral("a.GCFX"), longPath};
    refill({cloud(paths.first()), cloud(longPath)});
    for (const newpro::FilePage& page : {dialog.pages.audit, dialog.pages.contracting,
                                         dialog.pages.settlement, dialog.pages.estimate}) {
        ASSERT_EQ(itemsOf(*page.fileCombo), paths);
        for (int i = 0; i < paths.size(); ++i)
            EXPECT_EQ(page.fileCombo->itemData(i, Qt::AccessibleTextRole), paths.at(i));
    }
}

TEST_F(HistoryLists, AFlagThatIsNotSetLeavesItsBoxAlone) {
    const QStringList history{cloud(QStringLiteral("a.GCFX"))};
    const struct {
        HistoryFlags flags;
        QVector<int> counts;
    } rows[] = {
        {{true, false, false, false}, {1, 0, 0, 0}},  {{false, true, false, false}, {0, 1, 0, 0}},
        {{false, false, true, false}, {0, 0, 1, 0}},  {{false, false, false, true}, {0, 0, 0, 1}},
        {{false, false, false, false}, {0, 0, 0, 0}},
    };
    for (const auto& row : rows) {
        testing_support::FakeDialog fresh;
        newpro::refillHistory(history, fresh.pages, row.flags);
        const QVector<int> counts{
            fresh.pages.audit.fileCombo->count(), fresh.pages.contracting.fileCombo->count(),
            fresh.pages.settlement.fileCombo->count(), fresh.pages.estimate.fileCombo->count()};
        EXPECT_EQ(counts, row.counts);
    }
}

TEST_F(HistoryLists, PagesThatAreNotBuiltArePassedOver) {
    dialog.pages.settlement = {};
    dialog.pages.estimate = {};
    refill({cloud(QStringLiteral("a.GCFX"))});
    EXPECT_EQ(audit().size(), 1);
    EXPECT_EQ(contracting().size(), 1);
}

TEST_F(HistoryLists, AnExceptionOfTheHostLeavesTheBoxesAsTheyWere) {
    refill({cloud(QStringLiteral("a.GCF"))});
    testing_support::throwAt("SharedInterface::GetFileInfo", workbench::ThrowRule::As::Literal);
    EXPECT_ANY_THROW(refill({cloud(QStringLiteral("b.GCF")), local(QStringLiteral("/c.GCF"))}));
    EXPECT_EQ(audit(), QStringList{QStringLiteral("a.GCF")});
}

TEST_F(HistoryLists, LongAndStrangeNamesAreListedUnchanged) {
    const QString suffix = QStringLiteral(".GCFX");
    for (const QString& name :
         {QString(250, QLatin1Char('n')), QStringLiteral("锦江区第三中学").repeated(11),
          QStringLiteral("😀👷 e\u0301"),
          testing_support::allowedName(QStringLiteral("单引'双\" `$(a)` %1 #b%20c&d"))}) {
        const QString file = host.path(QStringLiteral("ProjectFiles/") + name + suffix);
        files_testing::writeBudgetProject(file);
        const QString onDisk = QStringLiteral("个人云盘/") + name + suffix;
        refill({local(file), cloud(onDisk)});
        for (const QStringList& list : {audit(), contracting(), settlement(), estimate()}) {
            EXPECT_EQ(list, (QStringList{file, onDisk}));
        }
        ASSERT_TRUE(QFile::remove(file));
        refill({local(file)});
        EXPECT_EQ(audit(), QStringList{file});
    }
}

TEST_F(HistoryLists, AnEntryWithANullIsPassedOverUnasked) {
    refill({local(QStringLiteral("/a") + QChar(QChar::Null) + QStringLiteral(".GCFX")),
            cloud(QStringLiteral("个人云盘/a") + QChar(QChar::Null) + QStringLiteral(".GCFX"))});
    EXPECT_EQ(audit(), QStringList{});
    EXPECT_EQ(testing_support::flowLines(), testing_support::Lines{});
}

TEST_F(HistoryLists, HostileEntriesAreListedOrPassedOverAndLoseNoOther) {
    const QString longPath = QString(5000, QChar(0x5DE5));
    QStringList history{QString(QChar(0xD800)), QString(QChar(0x1F)).repeated(40),
                        QStringLiteral("#").repeated(1001), local(longPath),
                        local(QStringLiteral("/a'b\"c 😀.GCF"))};
    refill(history << cloud(QStringLiteral("z.GCF")));
    EXPECT_EQ(audit(),
              (QStringList{longPath, QStringLiteral("/a'b\"c 😀.GCF"), QStringLiteral("z.GCF")}));
}

}  // namespace
